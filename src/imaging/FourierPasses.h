#pragma once

// The passes of a fast transform, for files that name a processor feature. Simd brings the vector type and
// its operations; everything here is a template on it, so that each file has a copy of its own.
//
// K stages in radix 2 join into one pass over R = 2^K values. A stage pairs elements that lie half a length
// apart, and lays sum and difference s apart; so value j of a group stands at j * N / R + s * p + q, its bits
// are used from the top one down, and after K stages it belongs to s * R * p + s * reversed(j) + q. Stage t
// takes table entry 2^t * (low * N / R + s * p), low being the bits of j below the one in use. Each value
// sees the same operations in the same order as one stage at a time.

#include "imaging/FourierForms.h"

#include <cstddef>

namespace {

template <int K>
[[gnu::always_inline]] inline constexpr int Reversed(int j)
{
    int r = 0;
    for (int bit = 0; bit < K; ++bit)
        r |= (j >> bit & 1) << (K - 1 - bit);
    return r;
}

// entry(stage, low, cos, sin) answers the factors of a pair.
template <class Simd, int K, class Entry>
[[gnu::always_inline]] inline void Butterflies(typename Simd::V (&re)[1 << K], typename Simd::V (&im)[1 << K],
                                               Entry entry)
{
    using V = typename Simd::V;
#pragma GCC unroll 4
    for (int t = 0; t < K; ++t) {
        const int bit = 1 << (K - 1 - t);
#pragma GCC unroll 16
        for (int low = 0; low < bit; ++low) {
            V c, n;
            entry(t, low, c, n);
#pragma GCC unroll 16
            for (int high = 0; high < 1 << K; high += 2 * bit) {
                const int a = high + low;
                const int b = a + bit;
                const V   dr = Simd::Sub(re[a], re[b]);
                const V   di = Simd::Sub(im[a], im[b]);
                re[a] = Simd::Add(re[a], re[b]);
                im[a] = Simd::Add(im[a], im[b]);
                re[b] = Simd::Sub(Simd::Mul(dr, c), Simd::Mul(di, n));
                im[b] = Simd::Add(Simd::Mul(dr, n), Simd::Mul(di, c));
            }
        }
    }
}

template <class Simd>
[[gnu::always_inline]] inline typename Simd::V LoadRow(const FourierRun& run, std::ptrdiff_t at)
{
    if (at + Simd::Lanes <= run.RowLength)
        return Simd::Load(run.Row + at);
    if (at >= run.RowLength)
        return Simd::Set(0.0f);
    float part[Simd::Lanes];
    for (int i = 0; i < Simd::Lanes; ++i)
        part[i] = at + i < run.RowLength ? run.Row[at + i] : 0.0f;
    return Simd::Load(part);
}

// The first K stages, 2^K = lanes: lanes along p, and each group's R results are R neighbours, so that a
// square of R groups is transposed on its way out.
template <class Simd, int K, bool FromRow, bool WithFactors>
[[gnu::noinline]] void FirstPass(const FourierRun& run, float* outRe, float* outIm)
{
    using V = typename Simd::V;
    constexpr int R = 1 << K;
    static_assert(R == Simd::Lanes);
    const std::ptrdiff_t step = run.Length / R;
    for (std::ptrdiff_t p = 0; p < step; p += R) {
        V re[R], im[R];
#pragma GCC unroll 16
        for (int j = 0; j < R; ++j) {
            const std::ptrdiff_t at = j * step + p;
            if constexpr (FromRow) {
                re[j] = LoadRow<Simd>(run, at);
                im[j] = Simd::Set(0.0f);
            } else {
                re[j] = Simd::Load(run.Re + at);
                im[j] = Simd::Load(run.Im + at);
            }
            if constexpr (WithFactors) {
                const V a = re[j];
                const V b = im[j];
                const V c = Simd::Load(run.FactorRe + at);
                const V d = Simd::Load(run.FactorIm + at);
                re[j] = Simd::Sub(Simd::Mul(a, c), Simd::Mul(b, d));
                im[j] = Simd::Add(Simd::Mul(a, d), Simd::Mul(b, c));
            }
        }
        Butterflies<Simd, K>(
            re, im, [&](int t, int low, V& c, V& n) __attribute__((always_inline)) {
                const std::ptrdiff_t at = (low * step + p) << t;
                c = Simd::LoadEvery(run.Cos + at, t);
                n = Simd::LoadEvery(run.Sin + at, t);
            });
        V out[R];
#pragma GCC unroll 16
        for (int j = 0; j < R; ++j)
            out[Reversed<K>(j)] = re[j];
        Simd::Transpose(out);
#pragma GCC unroll 16
        for (int j = 0; j < R; ++j)
            Simd::Store(outRe + (p + j) * R, out[j]);
#pragma GCC unroll 16
        for (int j = 0; j < R; ++j)
            out[Reversed<K>(j)] = im[j];
        Simd::Transpose(out);
#pragma GCC unroll 16
        for (int j = 0; j < R; ++j)
            Simd::Store(outIm + (p + j) * R, out[j]);
    }
}

// K further stages from s on: lanes along q.
template <class Simd, int K, bool Scaled>
[[gnu::noinline]] void Pass(const FourierRun& run, std::ptrdiff_t s, const float* inRe, const float* inIm,
                            float* outRe, float* outIm)
{
    using V = typename Simd::V;
    constexpr int        R = 1 << K;
    const std::ptrdiff_t step = run.Length / R;
    const V              scale = Simd::Set(run.Scale);
    for (std::ptrdiff_t sp = 0; sp < step; sp += s) {
        for (std::ptrdiff_t q = 0; q < s; q += Simd::Lanes) {
            V re[R], im[R];
#pragma GCC unroll 16
            for (int j = 0; j < R; ++j) {
                re[j] = Simd::Load(inRe + j * step + sp + q);
                im[j] = Simd::Load(inIm + j * step + sp + q);
            }
            Butterflies<Simd, K>(
                re, im, [&](int t, int low, V& c, V& n) __attribute__((always_inline)) {
                    const std::ptrdiff_t at = (low * step + sp) << t;
                    c = Simd::Set(run.Cos[at]);
                    n = Simd::Set(run.Sin[at]);
                });
#pragma GCC unroll 16
            for (int j = 0; j < R; ++j) {
                const std::ptrdiff_t to = R * sp + Reversed<K>(j) * s + q;
                Simd::Store(outRe + to, Scaled ? Simd::Mul(re[j], scale) : re[j]);
                Simd::Store(outIm + to, Scaled ? Simd::Mul(im[j], scale) : im[j]);
            }
        }
    }
}

template <class Simd, bool Scaled>
void AnyPass(int k, const FourierRun& run, std::ptrdiff_t s, const float* inRe, const float* inIm,
             float* outRe, float* outIm)
{
    if (k == 1)
        Pass<Simd, 1, Scaled>(run, s, inRe, inIm, outRe, outIm);
    else if (k == 2)
        Pass<Simd, 2, Scaled>(run, s, inRe, inIm, outRe, outIm);
    else
        Pass<Simd, 3, Scaled>(run, s, inRe, inIm, outRe, outIm);
}

// For lengths from Lanes^2 on.
template <class Simd, int K>
void Transform(const FourierRun& run)
{
    float* re[2] = {run.Re, run.OtherRe};
    float* im[2] = {run.Im, run.OtherIm};
    if (run.Row)
        FirstPass<Simd, K, true, false>(run, re[1], im[1]);
    else if (run.FactorRe)
        FirstPass<Simd, K, false, true>(run, re[1], im[1]);
    else
        FirstPass<Simd, K, false, false>(run, re[1], im[1]);
    int            at = 1;
    int            left = run.Stages - K;
    std::ptrdiff_t s = 1 << K;
    while (left > 3) {
        const int k = left == 4 ? 2 : 3;
        AnyPass<Simd, false>(k, run, s, re[at], im[at], re[1 - at], im[1 - at]);
        at = 1 - at;
        s <<= k;
        left -= k;
    }
    // The last pass reads and writes the same places, so that it can end in either pair.
    const int to = run.Stages % 2;
    if (run.Scaled)
        AnyPass<Simd, true>(left, run, s, re[at], im[at], re[to], im[to]);
    else
        AnyPass<Simd, false>(left, run, s, re[at], im[at], re[to], im[to]);
}

}
