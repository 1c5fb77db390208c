#pragma once

// Runs of one routine: with every variant of this machine and with one thread or several the results are
// those of the plain variant on one thread, to the bit.

#include "foundation/RowThreads.h"
#include "fuzz/InputBytes.h"
#include "imaging/RandomPlanes.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <vector>

namespace vostel {

// What a call leaves; of one that ends by the allocator's exception, nothing.
template <typename T>
struct Left {
    int            Width = 0;
    int            Height = 0;
    std::vector<T> Values;
};

template <typename T>
Left<T> LeftOf(const ClassData2DIO<T>& plane)
{
    Left<T> left = {plane.Width, plane.Height, {}};
    if (plane.Ptr1D && plane.Width > 0 && plane.Height > 0)
        left.Values.assign(plane.Ptr1D,
                           plane.Ptr1D + static_cast<std::ptrdiff_t>(plane.Width) * plane.Height);
    return left;
}

template <typename T>
bool SameLeft(const std::optional<Left<T>>& a, const std::optional<Left<T>>& b)
{
    if (!a || !b)
        return !a && !b;
    if (a->Width != b->Width || a->Height != b->Height || a->Values.size() != b->Values.size())
        return false;
    if constexpr (std::is_same_v<T, float>)
        return SameFloats(a->Values.data(), b->Values.data(), a->Values.size());
    else
        return a->Values == b->Values;
}

template <typename Run>
auto OutcomeOf(Run run) -> std::optional<decltype(run())>
{
    try {
        return run();
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

// Returns the outcome, the same of all runs.
template <typename Run>
auto CheckRuns(Run run)
{
    const auto once = [&](CpuVariant variant, int threads) {
        const VariantScope scope(variant);
        ForceRowThreads(threads);
        auto outcome = OutcomeOf(run);
        ForceRowThreads(0);
        return outcome;
    };
    auto expected = once(CpuVariant::Plain, 1);
    for (const CpuVariant variant : FastVariants()) {
        CAPTURE(NameOf(variant));
        CHECK(SameLeft(once(variant, 1), expected));
    }
    CHECK(SameLeft(once(BestCpuVariant(), 3), expected));
    return expected;
}

// Small mostly; else one that nobody has.
inline int SizeOf(InputBytes& input)
{
    static const int hard[] = {-1, -2, -100, INT_MIN, INT_MAX, 1 << 16, 65537, 1 << 20};
    const int        byte = input.Byte();
    return byte < 240 ? byte % 48 : hard[byte % 8];
}

constexpr long long MostElements = 1 << 14;

// Whether it takes longer than the fuzzer should wait; sizes beyond 31 bits are refused at once.
inline bool IsLong(long long width, long long height)
{
    return width > 0 && height > 0 && width * height > MostElements && width * height <= INT_MAX;
}

// Whether there is such a plane, that the fuzzer makes.
inline bool IsPlane(long long width, long long height)
{
    return width >= 0 && width <= MostElements && height >= 0 && height <= MostElements &&
           width * height <= MostElements;
}

// Of ordinary values, of hard ones, or of the input's own bits. Without elements where the size has none.
inline FloatPlane FloatsOf(InputBytes& input, int width, int height)
{
    FloatPlane plane;
    if (!IsPlane(width, height))
        return plane;
    plane.Allocate(width, height);
    const int          kind = input.Below(3);
    const unsigned     seed = input.Take<std::uint16_t>();
    const std::size_t  count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::mt19937       random(seed);
    std::vector<float> values(count);
    if (kind == 0)
        values = MixedFloats(count, seed);
    else if (kind == 1)
        std::generate(values.begin(), values.end(),
                      [&] { return static_cast<float>(random() % 1024) / 4.0f; });
    else
        std::generate(values.begin(), values.end(), [&] { return input.Take<float>(); });
    std::copy(values.begin(), values.end(), plane.Ptr1D);
    return plane;
}

inline BytePlane BytesOf(InputBytes& input, int width, int height)
{
    BytePlane plane;
    if (!IsPlane(width, height))
        return plane;
    plane.Allocate(width, height);
    const bool   seeded = input.Coin();
    std::mt19937 random(static_cast<unsigned>(input.Byte()));
    std::generate_n(plane.Ptr1D, width * height, [&] {
        return static_cast<unsigned char>(seeded ? random() : static_cast<unsigned>(input.Byte()));
    });
    return plane;
}

}
