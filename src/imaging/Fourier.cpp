#include "imaging/Fourier.h"

#include "base/CpuVariants.h"

#include <cstring>

namespace vostel {

void MultiplyComplex(float* re, float* im, const float* factorRe, const float* factorIm, int count)
{
    for (int k = 0; k < count; ++k) {
        const float a = re[k];
        const float b = im[k];
        const float c = factorRe[k];
        const float d = factorIm[k];
        re[k] = a * c - b * d;
        im[k] = a * d + b * c;
    }
}

namespace {

void Transform(const FourierRun& run)
{
    const std::size_t bytes = static_cast<std::size_t>(run.Length) * sizeof(float);
    if (run.Row) {
        std::memset(run.Re, 0, bytes);
        std::memset(run.Im, 0, bytes);
        std::memcpy(run.Re, run.Row, static_cast<std::size_t>(run.RowLength) * sizeof(float));
    }
    if (run.FactorRe)
        MultiplyComplex(run.Re, run.Im, run.FactorRe, run.FactorIm, run.Length);
    const float* inRe = run.Re;
    const float* inIm = run.Im;
    float*       outRe = run.OtherRe;
    float*       outIm = run.OtherIm;
    const int    half = run.Length / 2;
    int          s = 1;
    for (int stage = 0; stage < run.Stages; ++stage, s *= 2) {
        for (int l = 0; l < half; l += s) {
            const float c = run.Cos[l];
            const float n = run.Sin[l];
            for (int q = 0; q < s; ++q) {
                const int   i = l + q;
                const int   o = 2 * l + q;
                const float dr = inRe[i] - inRe[i + half];
                const float di = inIm[i] - inIm[i + half];
                outRe[o] = inRe[i] + inRe[i + half];
                outIm[o] = inIm[i] + inIm[i + half];
                outRe[o + s] = dr * c - di * n;
                outIm[o + s] = dr * n + di * c;
            }
        }
        inRe = outRe;
        inIm = outIm;
        const bool toOther = inRe == run.Re;
        outRe = toOther ? run.OtherRe : run.Re;
        outIm = toOther ? run.OtherIm : run.Im;
    }
    if (run.Scaled) {
        float* const re = run.Stages % 2 == 0 ? run.Re : run.OtherRe;
        float* const im = run.Stages % 2 == 0 ? run.Im : run.OtherIm;
        for (int k = 0; k < run.Length; ++k) {
            re[k] *= run.Scale;
            im[k] *= run.Scale;
        }
    }
}

const float* Filter(const FourierRun& forward, const FourierRun& inverse)
{
    Transform(forward);
    Transform(inverse);
    return forward.Re;    // two runs: an even number of exchanges
}

}

const FourierVariant FourierPlain = {.Transform = Transform, .Filter = Filter};

const FourierVariant& ActiveFourierVariant()
{
    return Choose<FourierVariant>(
        {.Plain = &FourierPlain, .Avx2 = VOSTEL_X86(&FourierAvx2), .Avx512 = VOSTEL_X86(&FourierAvx512)});
}

}
