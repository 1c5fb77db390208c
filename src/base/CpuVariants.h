

namespace vostel {

#pragma once

// Which of several forms of a hot routine runs. All forms of one routine give the same bits.

enum class CpuVariant {
    Plain = 0,       // portable C++, the reference
    Baseline = 1,    // SSE2 on x86-64; the same as Plain elsewhere
    Avx2 = 2,
    Avx512 = 3    // F, BW, VL and DQ
};

// The best form that the processor and the operating system run.
CpuVariant BestCpuVariant();

// The form in use: the best one, unless another has been forced.
CpuVariant ActiveCpuVariant();

// Makes routines use a form, at most the best one; answers the form now in use. For tests and benches.
CpuVariant ForceCpuVariant(CpuVariant form);

}
