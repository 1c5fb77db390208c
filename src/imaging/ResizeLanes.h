#pragma once

// The steps of bilinear scaling with lanes along the target's columns, for files that name a processor
// feature. Simd brings the vector types and their operations; everything here is a template on it, so that
// each file has a copy of its own.

#include "base/Compiler.h"
#include "imaging/ResizeRows.h"

namespace vostel {

namespace {

// How the samples of neighbouring columns, one per lane, are fetched, left ones and right ones.
template <typename Simd>
struct Fetch {
    typename Simd::Ints Index;
    int                 First;
    int                 Loads;    // one or two vectors that hold all samples, or 0 for gathers
};

template <typename Simd>
VOSTEL_INLINE Fetch<Simd> FetchOf(const ResizeColumns& columns, int x)
{
    constexpr int Lanes = Simd::Lanes;
    const int     first = columns.Index[x];
    const int     span = columns.Index[x + Lanes - 1] - first;
    Fetch<Simd>   fetch{Simd::LoadInts(columns.Index + x), first, 0};
    // The right samples come out of the same loads. None may leave the row.
    if (span < Lanes - 1 && first <= columns.SourceWidth - Lanes)
        fetch.Loads = 1;
    else if (span < 2 * Lanes - 1 && first <= columns.SourceWidth - 2 * Lanes)
        fetch.Loads = 2;
    if (fetch.Loads > 0)
        fetch.Index = Simd::Add(fetch.Index, Simd::Set(-first));
    return fetch;
}

template <typename Simd>
VOSTEL_INLINE void FetchSamples(const float* source, const Fetch<Simd>& fetch, typename Simd::Floats& left,
                                typename Simd::Floats& right)
{
    const typename Simd::Ints next = Simd::Add(fetch.Index, Simd::Set(1));
    if (fetch.Loads == 1) {
        const typename Simd::Floats samples = Simd::Load(source + fetch.First);
        left = Simd::Pick(samples, fetch.Index);
        right = Simd::Pick(samples, next);
    } else if (fetch.Loads == 2) {
        const typename Simd::Floats samples = Simd::Load(source + fetch.First);
        const typename Simd::Floats more = Simd::Load(source + fetch.First + Simd::Lanes);
        left = Simd::Pick(samples, more, fetch.Index);
        right = Simd::Pick(samples, more, next);
    } else {
        left = Simd::Gather(source, fetch.Index);
        right = Simd::Gather(source, next);
    }
}

// The samples between left and right, as doubles: the lower half of the lanes and the upper one.
template <typename Simd>
VOSTEL_INLINE void Between(const float* source, const Fetch<Simd>& fetch, typename Simd::Floats fraction,
                           typename Simd::Doubles& low, typename Simd::Doubles& high)
{
    const typename Simd::Doubles one = Simd::Set(1.0);
    typename Simd::Floats        left, right;
    FetchSamples<Simd>(source, fetch, left, right);
    right = Simd::Mul(fraction, right);
    low = Simd::Add(Simd::Mul(Simd::Low(left), Simd::Sub(one, Simd::Low(fraction))), Simd::Low(right));
    high = Simd::Add(Simd::Mul(Simd::High(left), Simd::Sub(one, Simd::High(fraction))), Simd::High(right));
}

VOSTEL_INLINE ResizeColumns From(const ResizeColumns& columns, int x)
{
    return {columns.Index + x, columns.Fraction + x, columns.Count - x, columns.SourceWidth, 0};
}

template <typename Simd>
void Spread(const float* source, const ResizeColumns& columns, double* spread)
{
    int x = 0;
    for (; x + Simd::Lanes <= columns.Count; x += Simd::Lanes) {
        typename Simd::Doubles low, high;
        Between<Simd>(source, FetchOf<Simd>(columns, x), Simd::Load(columns.Fraction + x), low, high);
        Simd::Store(spread + x, low);
        Simd::Store(spread + x + Simd::Lanes / 2, high);
    }
    ResizePlain.Spread(source, From(columns, x), spread + x);
}

template <typename Simd>
VOSTEL_INLINE void StoreBlend(float* target, typename Simd::Doubles top, typename Simd::Doubles bottom,
                              typename Simd::Doubles upper, typename Simd::Doubles lower)
{
    Simd::StoreNarrow(target, Simd::Add(Simd::Mul(top, upper), Simd::Mul(bottom, lower)));
}

template <typename Simd>
void Blend(const double* top, const double* bottom, float fraction, float* target, int count)
{
    constexpr int                Half = Simd::Lanes / 2;
    const typename Simd::Doubles lower = Simd::Set(static_cast<double>(fraction));
    const typename Simd::Doubles upper = Simd::Sub(Simd::Set(1.0), lower);
    int                          x = 0;
    for (; x + Simd::Lanes <= count; x += Simd::Lanes) {
        StoreBlend<Simd>(target + x, Simd::Load(top + x), Simd::Load(bottom + x), upper, lower);
        StoreBlend<Simd>(target + x + Half, Simd::Load(top + x + Half), Simd::Load(bottom + x + Half), upper,
                         lower);
    }
    ResizePlain.Blend(top + x, bottom + x, fraction, target + x, count - x);
}

// Every second sample, with no fractions either way. The last loads end on the right sample of the last
// column.
template <typename Simd>
int PickEverySecond(const float* topSource, const float* bottomSource, float* target, int count)
{
    int x = 0;
    for (; x + Simd::Lanes <= count; x += Simd::Lanes) {
        typename Simd::Floats topEven, topOdd, bottomEven, bottomOdd;
        Simd::Part(topSource + 2 * x, topEven, topOdd);
        Simd::Part(bottomSource + 2 * x, bottomEven, bottomOdd);
        const typename Simd::Floats zero = Simd::Set(0.0f);
        const typename Simd::Floats top = Simd::Add(topEven, Simd::Mul(zero, topOdd));
        const typename Simd::Floats bottom = Simd::Add(bottomEven, Simd::Mul(zero, bottomOdd));
        Simd::StoreParted(target + x, Simd::Add(top, Simd::Mul(zero, bottom)));
    }
    return x;
}

template <typename Simd>
void SpreadAndBlend(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                    float fraction, float* target)
{
    const typename Simd::Doubles lower = Simd::Set(static_cast<double>(fraction));
    const typename Simd::Doubles upper = Simd::Sub(Simd::Set(1.0), lower);
    int                          x = 0;
    if (columns.WholeStep == 2 && fraction == 0.0f)
        x = PickEverySecond<Simd>(topSource, bottomSource, target, columns.Count);
    for (; x + Simd::Lanes <= columns.Count; x += Simd::Lanes) {
        const Fetch<Simd>           fetch = FetchOf<Simd>(columns, x);
        const typename Simd::Floats across = Simd::Load(columns.Fraction + x);
        typename Simd::Doubles      topLow, topHigh, bottomLow, bottomHigh;
        Between<Simd>(topSource, fetch, across, topLow, topHigh);
        Between<Simd>(bottomSource, fetch, across, bottomLow, bottomHigh);
        StoreBlend<Simd>(target + x, topLow, bottomLow, upper, lower);
        StoreBlend<Simd>(target + x + Simd::Lanes / 2, topHigh, bottomHigh, upper, lower);
    }
    ResizePlain.SpreadAndBlend(topSource, bottomSource, From(columns, x), fraction, target + x);
}

}

}
