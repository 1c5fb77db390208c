#pragma once

// The passes of a fast transform, for files that name a processor feature. Simd brings the vector type and
// its operations; everything here is a template on it, so that each file has a copy of its own.
//
// K stages in radix 2 join into one pass over R = 2^K values. A stage pairs elements that lie half a length
// apart, and lays sum and difference s apart; so value j of a group stands at j * N / R + s * p + q, its bits
// are used from the top one down, and after K stages it belongs to s * R * p + s * reversed(j) + q. Stage t
// takes table entry 2^t * (low * N / R + s * p), low being the bits of j below the one in use. Each value
// sees the same operations in the same order as one stage at a time.

#include "base/Compiler.h"
#include "imaging/Fourier.h"

#include <cstddef>

namespace vostel {

namespace {

template <int K>
VOSTEL_INLINE constexpr int Reversed(int j)
{
    int r = 0;
    for (int bit = 0; bit < K; ++bit)
        r |= (j >> bit & 1) << (K - 1 - bit);
    return r;
}

template <typename Simd>
VOSTEL_INLINE void Butterfly(typename Simd::Floats& aRe, typename Simd::Floats& aIm,
                             typename Simd::Floats& bRe, typename Simd::Floats& bIm, typename Simd::Floats c,
                             typename Simd::Floats n)
{
    const typename Simd::Floats dr = Simd::Sub(aRe, bRe);
    const typename Simd::Floats di = Simd::Sub(aIm, bIm);
    aRe = Simd::Add(aRe, bRe);
    aIm = Simd::Add(aIm, bIm);
    bRe = Simd::Sub(Simd::Mul(dr, c), Simd::Mul(di, n));
    bIm = Simd::Add(Simd::Mul(dr, n), Simd::Mul(di, c));
}

// Stages T to K - 1 of the values from High on, by twos as far as they are even in number: four values at a
// time are what the registers hold, the others wait in memory. Every value has been fetched from the source
// before the first goes to the sink. entry(stage, low, cos, sin) returns the factors of a pair.
template <typename Simd, int K, int T, int High, typename Source, typename Entry, typename Sink>
VOSTEL_INLINE void Stages(typename Simd::Floats (&re)[1 << K], typename Simd::Floats (&im)[1 << K],
                          Source source, Entry entry, Sink sink)
{
    using V = typename Simd::Floats;
    constexpr int  Joined = (K - T) % 2 == 0 ? 2 : 1;
    constexpr int  Apart = 1 << (K - T - Joined);
    constexpr bool Last = T + Joined == K;
    VOSTEL_UNROLL
    for (int low = 0; low < Apart; ++low) {
        const int a = High + low;
        if constexpr (T == 0) {
            VOSTEL_UNROLL
            for (int i = 0; i < 1 << Joined; ++i)
                source(a + i * Apart, re[a + i * Apart], im[a + i * Apart]);
        }
        V c, n;
        if constexpr (Joined == 2) {
            const int b = a + Apart, d = b + Apart, e = d + Apart;
            entry(T, low, c, n);
            Butterfly<Simd>(re[a], im[a], re[d], im[d], c, n);
            entry(T, low + Apart, c, n);
            Butterfly<Simd>(re[b], im[b], re[e], im[e], c, n);
            entry(T + 1, low, c, n);
            Butterfly<Simd>(re[a], im[a], re[b], im[b], c, n);
            Butterfly<Simd>(re[d], im[d], re[e], im[e], c, n);
        } else {
            entry(T, low, c, n);
            Butterfly<Simd>(re[a], im[a], re[a + Apart], im[a + Apart], c, n);
        }
        if constexpr (Last) {
            VOSTEL_UNROLL
            for (int i = 0; i < 1 << Joined; ++i)
                sink(a + i, re[a + i], im[a + i]);
        }
    }
    if constexpr (!Last) {
        Stages<Simd, K, T + Joined, High>(re, im, source, entry, sink);
        Stages<Simd, K, T + Joined, High + Apart>(re, im, source, entry, sink);
        if constexpr (Joined == 2) {
            Stages<Simd, K, T + Joined, High + 2 * Apart>(re, im, source, entry, sink);
            Stages<Simd, K, T + Joined, High + 3 * Apart>(re, im, source, entry, sink);
        }
    }
}

template <typename Simd>
VOSTEL_INLINE typename Simd::Floats LoadRow(const FourierRun& run, std::ptrdiff_t at)
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

enum class Input { Plain, Row, Product };

template <typename Simd>
VOSTEL_INLINE void Multiply(typename Simd::Floats& re, typename Simd::Floats& im, typename Simd::Floats c,
                            typename Simd::Floats d)
{
    const typename Simd::Floats a = re;
    re = Simd::Sub(Simd::Mul(a, c), Simd::Mul(im, d));
    im = Simd::Add(Simd::Mul(a, d), Simd::Mul(im, c));
}

// After K stages value q of a group meets only values q of others. Lanes of them at a time make a strip: what
// is left of the transform, on its own a transform of Length / strips, whose table has every second, fourth
// ... entry. A strip of a length that filters have fits the first-level cache, the whole does not.
enum class Sinks { Whole, Strips };

template <typename Simd, int K>
constexpr int StripCount = (1 << K) / Simd::Lanes;

template <typename Simd, int K>
FourierRun StripOf(const FourierRun& run)
{
    int doublings = 0;
    while (1 << doublings < StripCount<Simd, K>)
        ++doublings;
    const long long entries = FourierTableStage(run.Length, doublings);
    FourierRun      strip = run;
    strip.Cos += entries;
    strip.Sin += entries;
    strip.Length >>= doublings;
    strip.Stages -= doublings;
    return strip;
}

// The first K stages, s being 1, for the lanes from p on. The R results of one p are neighbours, or R / Lanes
// strips have a vector each, so squares are transposed on their way out.
template <typename Simd, int K, Sinks To, typename Source>
VOSTEL_INLINE void StagesToSquares(const FourierRun& run, std::ptrdiff_t p, Source source, float* outRe,
                                   float* outIm)
{
    using V = typename Simd::Floats;
    constexpr int R = 1 << K;
    static_assert(R % Simd::Lanes == 0 && K <= FourierTableStages);
    const std::ptrdiff_t step = run.Length / R;
    V                    re[R], im[R], toRe[R], toIm[R];
    Stages<Simd, K, 0, 0>(
        re, im, source,
        [&](int t, int low, V& c, V& n) VOSTEL_INLINE_LAMBDA {
            const std::ptrdiff_t at = FourierTableStage(run.Length, t) + low * step + p;
            c = Simd::Load(run.Cos + at);
            n = Simd::Load(run.Sin + at);
        },
        [&](int j, const V& a, const V& b) VOSTEL_INLINE_LAMBDA {
            toRe[Reversed<K>(j)] = a;
            toIm[Reversed<K>(j)] = b;
        });
    VOSTEL_UNROLL
    for (int part = 0; part < R; part += Simd::Lanes) {
        const std::ptrdiff_t to = To == Sinks::Whole ? p * R + part : p * Simd::Lanes + part * step;
        const std::ptrdiff_t apart = To == Sinks::Whole ? R : Simd::Lanes;
        Simd::StoreTransposed(outRe + to, apart, toRe + part);
        Simd::StoreTransposed(outIm + to, apart, toIm + part);
    }
}

template <typename Simd, int K, Input From, Sinks To = Sinks::Whole>
VOSTEL_NOINLINE void FirstPass(const FourierRun& run, float* outRe, float* outIm)
{
    using V = typename Simd::Floats;
    constexpr int        R = 1 << K;
    const std::ptrdiff_t step = run.Length / R;
    for (std::ptrdiff_t p = 0; p < step; p += Simd::Lanes)
        StagesToSquares<Simd, K, To>(
            run, p,
            [&](int j, V& a, V& b) VOSTEL_INLINE_LAMBDA {
                const std::ptrdiff_t at = j * step + p;
                if constexpr (From == Input::Row) {
                    // No row reaches further. What is known to be zero is not loaded, but counted in: it
                    // decides the signs of zeros.
                    a = 3 * j < R ? LoadRow<Simd>(run, at) : Simd::Set(0.0f);
                    b = Simd::Set(0.0f);
                } else {
                    a = Simd::Load(run.Re + at);
                    b = Simd::Load(run.Im + at);
                }
                if constexpr (From == Input::Product)
                    Multiply<Simd>(a, b, Simd::Load(run.FactorRe + at), Simd::Load(run.FactorIm + at));
            },
            outRe, outIm);
}

enum class Output { Between, Last, Scaled, RealHalf };

// What all lanes of K stages multiply by.
template <typename Simd, int K>
struct Factors {
    typename Simd::Floats Cos[K][1 << (K - 1)];
    typename Simd::Floats Sin[K][1 << (K - 1)];

    // Those of stage T and the ones after it. The last stages of a transform begin at entry 0, whose cosine
    // is 1, by which nothing need be multiplied; the zero of its sine counts.
    template <int T = 0>
    VOSTEL_INLINE void Fetch(const FourierRun& run, std::ptrdiff_t sp, bool last)
    {
        VOSTEL_UNROLL
        for (int low = 0; low < 1 << (K - 1 - T); ++low) {
            const std::ptrdiff_t at = (low * (run.Length >> K) + sp) << T;
            Cos[T][low] = last && low == 0 ? Simd::Set(1.0f) : Simd::Set(run.Cos[at]);
            Sin[T][low] = Simd::Set(run.Sin[at]);
        }
        if constexpr (T + 1 < K)
            Fetch<T + 1>(run, sp, last);
    }
};

// K further stages from s on: lanes along q.
// The vectors that it writes lie Spread vectors apart, the first of their place being the first.
template <typename Simd, int K, Output To, int Spread = 1>
VOSTEL_NOINLINE void Pass(const FourierRun& run, std::ptrdiff_t s, const float* inRe, const float* inIm,
                          float* outRe, float* outIm)
{
    using V = typename Simd::Floats;
    constexpr int        R = 1 << K;
    const std::ptrdiff_t step = run.Length / R;
    const V              scale = Simd::Set(To == Output::RealHalf && !run.Scaled ? 1.0f : run.Scale);
    for (std::ptrdiff_t sp = 0; sp < step; sp += s) {
        Factors<Simd, K> factors;
        factors.Fetch(run, sp, To != Output::Between);
        for (std::ptrdiff_t q = 0; q < s; q += Simd::Lanes) {
            V re[R], im[R];
            Stages<Simd, K, 0, 0>(
                re, im,
                [&](int j, V& a, V& b) VOSTEL_INLINE_LAMBDA {
                    a = Simd::Load(inRe + j * step + sp + q);
                    b = Simd::Load(inIm + j * step + sp + q);
                },
                [&](int t, int low, V& c, V& n) VOSTEL_INLINE_LAMBDA {
                    c = factors.Cos[t][low];
                    n = factors.Sin[t][low];
                },
                [&](int j, const V& a, const V& b) VOSTEL_INLINE_LAMBDA {
                    const std::ptrdiff_t to = Spread * (R * sp + Reversed<K>(j) * s + q);
                    if constexpr (To == Output::RealHalf) {
                        // What leads to no output is not computed.
                        if (Reversed<K>(j) < R / 2)
                            Simd::Store(outRe + to, Simd::Mul(a, scale));
                    } else {
                        Simd::Store(outRe + to, To == Output::Scaled ? Simd::Mul(a, scale) : a);
                        Simd::Store(outIm + to, To == Output::Scaled ? Simd::Mul(b, scale) : b);
                    }
                });
        }
    }
}

template <typename Simd, Output To, int Spread = 1>
void AnyPass(int k, const FourierRun& run, std::ptrdiff_t s, const float* inRe, const float* inIm,
             float* outRe, float* outIm)
{
    if (k == 1)
        Pass<Simd, 1, To, Spread>(run, s, inRe, inIm, outRe, outIm);
    else if (k == 2)
        Pass<Simd, 2, To, Spread>(run, s, inRe, inIm, outRe, outIm);
    else if constexpr (Simd::PassStages == 3)
        Pass<Simd, 3, To, Spread>(run, s, inRe, inIm, outRe, outIm);
}

// Two pairs of arrays in turns; pair At holds the values.
struct Pairs {
    float* Re[2];
    float* Im[2];
    int    At = 0;
};

// Stages done to end - 1, in as few passes as can be with about as many stages each.
template <typename Simd>
void Between(const FourierRun& run, Pairs& pairs, int done, int end)
{
    while (done < end) {
        const int passes = (end - done + Simd::PassStages - 1) / Simd::PassStages;
        const int k = (end - done + passes - 1) / passes;
        const int to = 1 - pairs.At;
        AnyPass<Simd, Output::Between>(k, run, std::ptrdiff_t{1} << done, pairs.Re[pairs.At],
                                       pairs.Im[pairs.At], pairs.Re[to], pairs.Im[to]);
        pairs.At = to;
        done += k;
    }
}

// The stages that are left. The last pass reads and writes the same places, so that it can end in either
// pair.
template <typename Simd, int Spread = 1>
void Finish(const FourierRun& run, Pairs& pairs, int done, float* outRe, float* outIm)
{
    const int left = run.Stages - done;
    const int last = left / ((left + Simd::PassStages - 1) / Simd::PassStages);
    Between<Simd>(run, pairs, done, run.Stages - last);
    const std::ptrdiff_t s = std::ptrdiff_t{1} << (run.Stages - last);
    const auto           pass = run.RealHalf ? AnyPass<Simd, Output::RealHalf, Spread>
                                : run.Scaled ? AnyPass<Simd, Output::Scaled, Spread>
                                             : AnyPass<Simd, Output::Last, Spread>;
    pass(last, run, s, pairs.Re[pairs.At], pairs.Im[pairs.At], outRe, outIm);
}

// For lengths from Lanes << K on.
template <typename Simd, int K>
void TransformInPasses(const FourierRun& run)
{
    Pairs      pairs = {{run.Re, run.OtherRe}, {run.Im, run.OtherIm}, 1};
    const auto first = run.Row        ? FirstPass<Simd, K, Input::Row>
                       : run.FactorRe ? FirstPass<Simd, K, Input::Product>
                                      : FirstPass<Simd, K, Input::Plain>;
    first(run, pairs.Re[1], pairs.Im[1]);
    const int to = run.Stages % 2;
    Finish<Simd>(run, pairs, K, pairs.Re[to], pairs.Im[to]);
}

// The last K stages of a strip, the product and the first K stages of the way back, to strips of it: all take
// the same rows, a step apart.
template <typename Simd, int K>
VOSTEL_NOINLINE void MiddlePass(const FourierRun& strip, int at, const FourierRun& inverse, const float* inRe,
                                const float* inIm, float* outRe, float* outIm)
{
    using V = typename Simd::Floats;
    constexpr int        R = 1 << K;
    const std::ptrdiff_t step = strip.Length / R, whole = inverse.Length / R;
    Factors<Simd, K>     factors;
    factors.Fetch(strip, 0, true);
    for (std::ptrdiff_t p = 0; p < step; p += Simd::Lanes) {
        V                    re[R], im[R], toRe[R], toIm[R];
        const std::ptrdiff_t place = p * StripCount<Simd, K> + at * Simd::Lanes;    // in the whole
        Stages<Simd, K, 0, 0>(
            re, im,
            [&](int j, V& a, V& b) VOSTEL_INLINE_LAMBDA {
                a = Simd::Load(inRe + j * step + p);
                b = Simd::Load(inIm + j * step + p);
            },
            [&](int t, int low, V& c, V& n) VOSTEL_INLINE_LAMBDA {
                c = factors.Cos[t][low];
                n = factors.Sin[t][low];
            },
            [&](int j, const V& a, const V& b) VOSTEL_INLINE_LAMBDA {
                toRe[Reversed<K>(j)] = a;
                toIm[Reversed<K>(j)] = b;
            });
        StagesToSquares<Simd, K, Sinks::Strips>(
            inverse, place,
            [&](int j, V& a, V& b) VOSTEL_INLINE_LAMBDA {
                const std::ptrdiff_t factor = j * whole + place;
                a = toRe[j];
                b = toIm[j];
                Multiply<Simd>(a, b, Simd::Load(inverse.FactorRe + factor),
                               Simd::Load(inverse.FactorIm + factor));
            },
            outRe, outIm);
    }
}

// For lengths from Lanes << K and 1 << 2 * K on.
template <typename Simd, int K>
const float* FilterInPasses(const FourierRun& forward, const FourierRun& inverse)
{
    constexpr int    Strips = StripCount<Simd, K>;
    const FourierRun there = StripOf<Simd, K>(forward), back = StripOf<Simd, K>(inverse);
    const int        done = K - (forward.Stages - there.Stages);
    FirstPass<Simd, K, Input::Row, Sinks::Strips>(forward, forward.OtherRe, forward.OtherIm);
    for (int i = 0; i < Strips; ++i) {
        const std::ptrdiff_t from = static_cast<std::ptrdiff_t>(i) * there.Length;
        Pairs                pairs = {
                           {forward.SpareRe, forward.OtherRe + from}, {forward.SpareIm, forward.OtherIm + from}, 1};
        Between<Simd>(there, pairs, done, there.Stages - K);
        MiddlePass<Simd, K>(there, i, inverse, pairs.Re[pairs.At], pairs.Im[pairs.At], forward.Re,
                            forward.Im);
    }
    for (int i = 0; i < Strips; ++i) {
        const std::ptrdiff_t from = static_cast<std::ptrdiff_t>(i) * back.Length;
        Pairs pairs = {{forward.SpareRe, forward.Re + from}, {forward.SpareIm, forward.Im + from}, 1};
        Finish<Simd, Strips>(back, pairs, done, forward.OtherRe + i * Simd::Lanes,
                             forward.OtherIm + i * Simd::Lanes);
    }
    return forward.OtherRe;
}

}

}
