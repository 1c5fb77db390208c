#include "base/CpuVariants.h"

#include "support/EveryVariant.h"

#include <doctest/doctest.h>
#include <string>

using namespace vostel;

namespace {

struct NameVariant {
    std::string (*Name)();
};

const NameVariant Plain = {[] { return std::string("plain"); }};
const NameVariant Baseline = {[] { return std::string("baseline"); }};
const NameVariant Avx2 = {[] { return std::string("AVX2"); }};
const NameVariant Avx512 = {[] { return std::string("AVX-512"); }};

}

TEST_CASE("forcing a variant takes the best one at most and the plain one at least")
{
    const CpuVariant before = ActiveCpuVariant();
    CHECK(ForceCpuVariant(static_cast<CpuVariant>(99)) == BestCpuVariant());
    CHECK(ActiveCpuVariant() == BestCpuVariant());
    CHECK(ForceCpuVariant(static_cast<CpuVariant>(-1)) == CpuVariant::Plain);
    CHECK(ActiveCpuVariant() == CpuVariant::Plain);
    ForceCpuVariant(BestCpuVariant());
    CHECK(ActiveCpuVariant() == BestCpuVariant());
    ForceCpuVariant(before);
}

TEST_CASE("of a full set of records the one of the variant in use is chosen")
{
    InEveryVariant([](const char* variant) {
        const NameVariant& chosen =
            Choose<NameVariant>({.Plain = &Plain, .Baseline = &Baseline, .Avx2 = &Avx2, .Avx512 = &Avx512});
        CHECK(chosen.Name() == variant);
    });
}

TEST_CASE("a variant without a record takes the next lower one that has one")
{
    InEveryVariant([](const char* variant) {
        CHECK(Choose<NameVariant>({.Plain = &Plain}).Name() == "plain");
        const bool wide = ActiveCpuVariant() >= CpuVariant::Avx2;
        CHECK_MESSAGE(Choose<NameVariant>({.Plain = &Plain, .Avx2 = &Avx2}).Name() ==
                          (wide ? "AVX2" : "plain"),
                      variant);
        const bool widest = ActiveCpuVariant() == CpuVariant::Avx512;
        CHECK_MESSAGE(Choose<NameVariant>({.Plain = &Plain, .Avx512 = &Avx512}).Name() ==
                          (widest ? "AVX-512" : "plain"),
                      variant);
    });
}
