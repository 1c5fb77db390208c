#include "base/CpuVariants.h"

#include <algorithm>
#include <atomic>

#if defined(VOSTEL_X86_64) && defined(_MSC_VER)
#    include <immintrin.h>
#    include <intrin.h>
#endif

namespace vostel {

namespace {

#if !defined(VOSTEL_X86_64)

CpuVariant DetectVariant()
{
    return CpuVariant::Plain;
}

#elif defined(_MSC_VER)

CpuVariant DetectVariant()
{
    int registers[4];
    __cpuid(registers, 0);
    const int highestLeaf = registers[0];
    __cpuid(registers, 1);
    const bool systemReports = (registers[2] >> 27 & 1) != 0 && (registers[2] >> 28 & 1) != 0;
    if (highestLeaf < 7 || !systemReports)
        return CpuVariant::Baseline;
    const unsigned long long saved = _xgetbv(0);    // the registers that the system keeps per thread
    __cpuidex(registers, 7, 0);
    const unsigned features = static_cast<unsigned>(registers[1]);
    if ((saved & 0x06u) != 0x06u || (features >> 5 & 1u) == 0)
        return CpuVariant::Baseline;
    const unsigned wide = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;    // F, DQ, BW, VL
    return (saved & 0xE6u) == 0xE6u && (features & wide) == wide ? CpuVariant::Avx512 : CpuVariant::Avx2;
}

#else

// The compiler's run-time library counts a wide feature only where the system saves its registers too.
CpuVariant DetectVariant()
{
    __builtin_cpu_init();
    if (!__builtin_cpu_supports("avx2"))
        return CpuVariant::Baseline;
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        return CpuVariant::Avx512;
    return CpuVariant::Avx2;
}

#endif

// Worker threads read it while a test may be forcing another one.
std::atomic<CpuVariant>& VariantInUse()
{
    static std::atomic<CpuVariant> variant{BestCpuVariant()};
    return variant;
}

}

CpuVariant BestCpuVariant()
{
    static const CpuVariant best = DetectVariant();
    return best;
}

CpuVariant ActiveCpuVariant()
{
    return VariantInUse().load(std::memory_order_relaxed);
}

CpuVariant ForceCpuVariant(CpuVariant variant)
{
    const CpuVariant used = std::clamp(variant, CpuVariant::Plain, BestCpuVariant());
    VariantInUse().store(used, std::memory_order_relaxed);
    return used;
}

}
