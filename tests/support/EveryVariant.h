#pragma once

// What the tests of fast variants share: every processor variant in turn, planes between guards, hard values.

#include "base/CpuVariants.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace vostel {

inline const char* NameOf(CpuVariant variant)
{
    const char* const names[] = {"plain", "baseline", "AVX2", "AVX-512"};
    return names[static_cast<int>(variant)];
}

// A variant in use for the length of a scope, however it ends.
class VariantScope {
public:
    explicit VariantScope(CpuVariant variant) : Before(ActiveCpuVariant()) { ForceCpuVariant(variant); }
    ~VariantScope() { ForceCpuVariant(Before); }
    VariantScope(const VariantScope&) = delete;
    VariantScope& operator=(const VariantScope&) = delete;

private:
    CpuVariant Before;
};

// The variants of this machine from one on, in rising order.
inline std::vector<CpuVariant> VariantsFrom(CpuVariant first)
{
    std::vector<CpuVariant> variants;
    for (int number = static_cast<int>(first); number <= static_cast<int>(BestCpuVariant()); ++number)
        variants.push_back(static_cast<CpuVariant>(number));
    return variants;
}

// Those that are compared with the plain one.
inline std::vector<CpuVariant> FastVariants()
{
    return VariantsFrom(CpuVariant::Baseline);
}

// Runs body(name of the variant) once per variant of this machine.
template <typename Body>
void InEveryVariant(Body body)
{
    for (const CpuVariant variant : VariantsFrom(CpuVariant::Plain)) {
        const VariantScope scope(variant);
        body(NameOf(variant));
    }
}

// Elements at any distance from a cache line, with known ones before and behind.
template <typename T>
class GuardedRun {
public:
    static constexpr std::size_t Guards = 40;

    GuardedRun(std::size_t count, std::size_t start, T guard)
        : Memory(2 * Guards + start + count, guard), Start(Guards + start), Count(count), Guard(guard)
    {
    }

    T*       Data() { return Memory.data() + Start; }
    const T* Data() const { return Memory.data() + Start; }

    bool GuardsStand() const
    {
        for (std::size_t i = 0; i < Memory.size(); ++i)
            if ((i < Start || i >= Start + Count) && std::memcmp(&Memory[i], &Guard, sizeof(T)) != 0)
                return false;
        return true;
    }

private:
    std::vector<T> Memory;
    std::size_t    Start;
    std::size_t    Count;
    T              Guard;
};

inline std::vector<float> HardFloats()
{
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    return {0.0f,
            -0.0f,
            -0.5f,
            0.5f,
            1.0f,
            -1.0f,
            255.0f,
            256.0f,
            65534.9f,
            65535.0f,
            65535.5f,
            65536.0f,
            65791.0f,
            -65536.0f,
            3e9f,
            -3e9f,
            2147483520.0f,
            2147483648.0f,
            -2147483648.0f,
            1e7f,
            -1e7f,
            1.5e7f,
            1e30f,
            -1e30f,
            infinity,
            -infinity,
            nan,
            -nan,
            1e-40f,
            -1e-40f,
            std::numeric_limits<float>::min(),
            32767.5f};
}

// Values of the display range with hard ones among them.
inline std::vector<float> MixedFloats(std::size_t count, unsigned seed)
{
    const std::vector<float>              hard = HardFloats();
    std::mt19937                          random(seed);
    std::uniform_real_distribution<float> display(-1000.0f, 66500.0f);
    std::vector<float>                    values(count);
    for (float& v : values)
        v = random() % 4 == 0 ? hard[random() % hard.size()] : display(random);
    return values;
}

// Bit for bit, but any two not-a-numbers count as equal.
inline bool SameFloats(const float* a, const float* b, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        if (!(std::isnan(a[i]) && std::isnan(b[i])) && std::memcmp(a + i, b + i, sizeof(float)) != 0)
            return false;
    return true;
}

}
