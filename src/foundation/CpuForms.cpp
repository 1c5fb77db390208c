#include "foundation/CpuForms.h"

#include <atomic>

#if defined(_MSC_VER) && defined(_M_X64)
#    include <immintrin.h>
#    include <intrin.h>
#endif

namespace {

#if defined(__GNUC__) && defined(__x86_64__)

// The compiler's run-time library counts a wide feature only where the system saves its registers too.
CpuForm DetectForm()
{
    __builtin_cpu_init();
    if (!__builtin_cpu_supports("avx2"))
        return CpuForm::Baseline;
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        return CpuForm::Avx512;
    return CpuForm::Avx2;
}

#elif defined(_MSC_VER) && defined(_M_X64)

CpuForm DetectForm()
{
    int registers[4];
    __cpuid(registers, 0);
    const int highestLeaf = registers[0];
    __cpuid(registers, 1);
    const bool systemTells = (registers[2] >> 27 & 1) != 0 && (registers[2] >> 28 & 1) != 0;
    if (highestLeaf < 7 || !systemTells)
        return CpuForm::Baseline;
    const unsigned long long saved = _xgetbv(0);    // the registers that the system keeps per thread
    __cpuidex(registers, 7, 0);
    const unsigned features = static_cast<unsigned>(registers[1]);
    if ((saved & 0x06u) != 0x06u || (features >> 5 & 1u) == 0)
        return CpuForm::Baseline;
    const unsigned wide = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;    // F, DQ, BW, VL
    return (saved & 0xE6u) == 0xE6u && (features & wide) == wide ? CpuForm::Avx512 : CpuForm::Avx2;
}

#else

CpuForm DetectForm()
{
    return CpuForm::Plain;
}

#endif

// Worker threads read it while a test may be forcing another one.
std::atomic<CpuForm>& FormInUse()
{
    static std::atomic<CpuForm> form{BestCpuForm()};
    return form;
}

}

CpuForm BestCpuForm()
{
    static const CpuForm best = DetectForm();
    return best;
}

CpuForm ActiveCpuForm()
{
    return FormInUse().load(std::memory_order_relaxed);
}

CpuForm ForceCpuForm(CpuForm form)
{
    const CpuForm used = form < CpuForm::Plain ? CpuForm::Plain : form > BestCpuForm() ? BestCpuForm() : form;
    FormInUse().store(used, std::memory_order_relaxed);
    return used;
}
