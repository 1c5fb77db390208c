#pragma once

#include <array>
#include <atomic>
#include <cstddef>

namespace vostel {

// Working memory that calls take up where earlier ones left it, because fresh memory costs more than their
// work. It belongs to no thread: objects of a thread are destroyed at its end, on Windows with the loader's
// lock held and after the memory they lie in was freed.
template <typename T>
class ReusedMemory {
public:
    // What one call has for itself. It comes as an earlier call left it.
    class Loan {
    public:
        explicit Loan(ReusedMemory& owner) : Owner(owner), Lent(owner.Take()) {}
        ~Loan() { Owner.Return(Lent); }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

        T& operator*() const { return *Lent; }
        T* operator->() const { return Lent; }

    private:
        ReusedMemory& Owner;
        T*            Lent;
    };

    constexpr ReusedMemory() = default;
    ReusedMemory(const ReusedMemory&) = delete;
    ReusedMemory& operator=(const ReusedMemory&) = delete;

    ~ReusedMemory()
    {
        for (std::atomic<T*>& place : Kept)
            delete place.exchange(nullptr);
    }

private:
    // Calls at once that find their memory again; one more makes its own and frees it.
    static constexpr std::size_t Places = 8;

    T* Take()
    {
        for (std::atomic<T*>& place : Kept) {
            if (!place.load(std::memory_order_relaxed))
                continue;
            if (T* const found = place.exchange(nullptr, std::memory_order_acquire))
                return found;
        }
        return new T();
    }

    void Return(T* lent)
    {
        for (std::atomic<T*>& place : Kept) {
            T* empty = nullptr;
            if (place.compare_exchange_strong(empty, lent, std::memory_order_release,
                                              std::memory_order_relaxed))
                return;
        }
        delete lent;
    }

    std::array<std::atomic<T*>, Places> Kept{};
};

}
