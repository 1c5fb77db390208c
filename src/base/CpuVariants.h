#pragma once

// Which of several variants of a hot routine runs. All variants of one routine give the same bits.
//
// A family of such routines is a record of function pointers, one constant record per variant. Family.h
// declares the record and Family.cpp defines the plain one and chooses among them; FamilyAvx2.cpp and its
// like are compiled for the feature in their name and define the others.

namespace vostel {

enum class CpuVariant {
    Plain = 0,       // portable C++, the reference
    Baseline = 1,    // SSE2 on x86-64; the same as Plain elsewhere
    Avx2 = 2,
    Avx512 = 3    // F, BW, VL and DQ
};

// The best variant that the processor and the operating system run.
CpuVariant BestCpuVariant();

// The variant in use: the best one, unless another has been forced.
CpuVariant ActiveCpuVariant();

// Makes routines use a variant, at most the best one; returns the variant now in use. For tests and benches.
CpuVariant ForceCpuVariant(CpuVariant variant);

// The records of a family; null where there is none.
template <typename Record>
struct VariantsOf {
    const Record* Plain;
    const Record* Baseline = nullptr;
    const Record* Avx2 = nullptr;
    const Record* Avx512 = nullptr;
};

// The record of the variant that is in use at the time of the call, or the next lower one that there is.
template <typename Record>
const Record& Choose(const VariantsOf<Record>& variants)
{
    const CpuVariant active = ActiveCpuVariant();
    if (active >= CpuVariant::Avx512 && variants.Avx512)
        return *variants.Avx512;
    if (active >= CpuVariant::Avx2 && variants.Avx2)
        return *variants.Avx2;
    if (active >= CpuVariant::Baseline && variants.Baseline)
        return *variants.Baseline;
    return *variants.Plain;
}

}

// A record that only x86-64 has, null elsewhere. The build sets VOSTEL_X86_64 where it compiles those files.
#if defined(VOSTEL_X86_64)
#    define VOSTEL_X86(record) record
#else
#    define VOSTEL_X86(record) nullptr
#endif
