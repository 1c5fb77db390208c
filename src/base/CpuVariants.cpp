#include "base/CpuVariants.h"

#include <atomic>

#if defined(_MSC_VER) && defined(_M_X64)
#    include <immintrin.h>
#    include <intrin.h>
#endif

namespace vostel {

namespace {

#if defined(__GNUC__) && defined(__x86_64__)

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

#elif defined(_MSC_VER) && defined(_M_X64)

CpuVariant DetectVariant()
{
    int registers[4];
    __cpuid(registers, 0);
    const int highestLeaf = registers[0];
    __cpuid(registers, 1);
    const bool systemTells = (registers[2] >> 27 & 1) != 0 && (registers[2] >> 28 & 1) != 0;
    if (highestLeaf < 7 || !systemTells)
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

CpuVariant DetectVariant()
{
    return CpuVariant::Plain;
}

#endif

// Worker threads read it while a test may be forcing another one.
std::atomic<CpuVariant>& FormInUse()
{
    static std::atomic<CpuVariant> form{BestCpuVariant()};
    return form;
}

}

CpuVariant BestCpuVariant()
{
    static const CpuVariant best = DetectVariant();
    return best;
}

CpuVariant ActiveCpuVariant()
{
    return FormInUse().load(std::memory_order_relaxed);
}

CpuVariant ForceCpuVariant(CpuVariant form)
{
    const CpuVariant used = form < CpuVariant::Plain  ? CpuVariant::Plain
                            : form > BestCpuVariant() ? BestCpuVariant()
                                                      : form;
    FormInUse().store(used, std::memory_order_relaxed);
    return used;
}

}
