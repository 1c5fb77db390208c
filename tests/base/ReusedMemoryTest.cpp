#include "base/ReusedMemory.h"

#include "support/AtOnce.h"

#include <atomic>
#include <doctest/doctest.h>
#include <memory>
#include <vector>

using namespace vostel;

namespace {

std::atomic<int> gAlive{0};

struct Counted {
    std::vector<int> Values;
    std::atomic<int> Users{0};

    Counted() { ++gAlive; }
    ~Counted() { --gAlive; }
};

using Memory = ReusedMemory<Counted>;

}

TEST_CASE("a call gets the memory of the call before")
{
    Memory         memory;
    const Counted* first = nullptr;
    {
        const Memory::Loan loan(memory);
        loan->Values.assign(1000, 7);
        first = &*loan;
    }
    const Memory::Loan loan(memory);
    CHECK(&*loan == first);
    CHECK(loan->Values.size() == 1000);
}

TEST_CASE("calls at once have memory of their own, and all of it is freed")
{
    constexpr int AtOnceCount = 12;
    gAlive = 0;
    {
        Memory memory;
        {
            std::vector<std::unique_ptr<Memory::Loan>> loans;
            for (int i = 0; i < AtOnceCount; ++i) {
                loans.push_back(std::make_unique<Memory::Loan>(memory));
                CHECK((*loans.back())->Users++ == 0);
            }
            CHECK(gAlive == AtOnceCount);
        }
        CHECK(gAlive > 0);
        CHECK(gAlive < AtOnceCount);    // what many calls at once took is not kept for ever
    }
    CHECK(gAlive == 0);
}

TEST_CASE("threads never share what was lent")
{
    Memory           memory;
    std::atomic<int> shared{0};
    AtOnce([&](int) {
        for (int i = 0; i < 2000; ++i) {
            const Memory::Loan loan(memory);
            if (loan->Users++ != 0)
                ++shared;
            loan->Values.push_back(i);
            --loan->Users;
        }
    });
    CHECK(shared == 0);
}
