#include "platform/portable/StretchAxis.h"

#include "platform/portable/WideIntegers.h"

#include <algorithm>
#include <cstdlib>

namespace vostel::gdi {
namespace {

using Wide = std::int64_t;
using WideUnsigned = std::uint64_t;

Wide Length(int extent)
{
    return std::abs(static_cast<Wide>(extent));
}

// Positions 0..length-1 from start in the direction of extent that lie in 0..size-1: first and last.
struct Positions {
    Wide First = 0;
    Wide Last = -1;
};

Positions Inside(Wide start, int extent, int size)
{
    const Wide length = Length(extent);
    const Wide first = extent > 0 ? -start : start - (size - 1);
    const Wide last = extent > 0 ? size - 1 - start : start;
    return {std::max<Wide>(first, 0), std::min(last, length - 1)};
}

// floor((factor * i + offset) / divisor) for i, i + 1, ...: one division, then steps.
class SteppedQuotient {
public:
    SteppedQuotient(WideUnsigned numerator, WideUnsigned step, WideUnsigned divisor)
        : Quotient(numerator / divisor), Rest(numerator % divisor), StepQuotient(step / divisor),
          StepRest(step % divisor), Divisor(divisor)
    {
    }

    Wide Value() const { return static_cast<Wide>(Quotient); }
    void Step()
    {
        Quotient += StepQuotient;
        Rest += StepRest;
        if (Rest >= Divisor) {
            Rest -= Divisor;
            ++Quotient;
        }
    }

private:
    WideUnsigned Quotient, Rest, StepQuotient, StepRest, Divisor;
};

int Coordinate(Wide start, int extent, Wide position)
{
    return static_cast<int>(extent > 0 ? start + position : start - position);
}

// The taps of one target pixel in walking order.
struct TapRun {
    Wide First = 0;
    Wide Last = 0;

    int Count() const { return static_cast<int>(Last - First + 1); }
};

// An axis of the smooth stretch by positions, which count from the start of each extent.
class SmoothAxis {
public:
    SmoothAxis(const StretchAxis& axis, const Positions& source)
        : Source(source), TargetLength(Length(axis.TargetExtent)), SourceLength(Length(axis.SourceExtent))
    {
    }

    // The part of some target positions whose centres lie on a source pixel of the bitmap: those are drawn.
    Positions Drawn(Positions target) const
    {
        while (target.First <= target.Last && UnderCentre(target.First) < Source.First)
            ++target.First;
        while (target.First <= target.Last && UnderCentre(target.Last) > Source.Last)
            --target.Last;
        return target;
    }

    TapRun RunOf(Wide i) const
    {
        TapRun run;
        if (Shrinks()) {
            run.First = i * SourceLength / TargetLength;
            run.Last = ((i + 1) * SourceLength - 1) / TargetLength;
        } else if (SourceLength == TargetLength) {
            run.First = run.Last = i;
        } else {
            run.First = FloorDivide((2 * i + 1) * SourceLength - TargetLength, 2 * TargetLength);
            run.Last = run.First + 1;
        }
        run.First = std::clamp(run.First, Source.First, Source.Last);
        run.Last = std::clamp(run.Last, Source.First, Source.Last);
        return run;
    }

    // One per tap of RunOf(i).
    void Weigh(Wide i, const TapRun& run, std::int16_t* weights) const
    {
        if (run.First == run.Last)
            weights[0] = AxisTaps::One;
        else if (Shrinks())
            WeighByArea(i, run, weights);
        else
            WeighByDistance(i, run, weights);
    }

private:
    bool Shrinks() const { return SourceLength > TargetLength; }

    // The source position under the centre of a target position.
    Wide UnderCentre(Wide i) const
    {
        const WideUnsigned twice =
            static_cast<WideUnsigned>(2 * i + 1) * static_cast<WideUnsigned>(SourceLength);
        return static_cast<Wide>(twice / static_cast<WideUnsigned>(2 * TargetLength));
    }

    // The share of target position i up to the near border of source position j, out of One.
    int ShareBefore(Wide i, Wide j) const
    {
        const Wide covered = std::clamp<Wide>(j * TargetLength - i * SourceLength, 0, SourceLength);
        return static_cast<int>((covered * (2 * AxisTaps::One) + SourceLength) / (2 * SourceLength));
    }

    void WeighByArea(Wide i, const TapRun& run, std::int16_t* weights) const
    {
        int before = 0;
        for (Wide j = run.First; j <= run.Last; ++j) {
            const int after = j == run.Last ? AxisTaps::One : ShareBefore(i, j + 1);
            weights[j - run.First] = static_cast<std::int16_t>(after - before);
            before = after;
        }
    }

    void WeighByDistance(Wide i, const TapRun& run, std::int16_t* weights) const
    {
        const Wide rest = (2 * i + 1) * SourceLength - TargetLength - run.First * 2 * TargetLength;
        const int  second = static_cast<int>((rest * AxisTaps::One + TargetLength) / (2 * TargetLength));
        weights[0] = static_cast<std::int16_t>(AxisTaps::One - second);
        weights[1] = static_cast<std::int16_t>(second);
    }

    Positions Source;    // of the bitmap
    Wide      TargetLength;
    Wide      SourceLength;
};

}

bool StretchAxis::KeepsSize() const
{
    return Length(TargetExtent) == Length(SourceExtent);
}

void AxisRuns::Find(const StretchAxis& axis)
{
    Count = 0;
    Near.clear();
    Far.clear();
    const Positions    target = Inside(axis.TargetStart, axis.TargetExtent, axis.TargetSize);
    const Positions    source = Inside(axis.SourceStart, axis.SourceExtent, axis.SourceSize);
    const WideUnsigned targetLength = static_cast<WideUnsigned>(Length(axis.TargetExtent));
    const WideUnsigned sourceLength = static_cast<WideUnsigned>(Length(axis.SourceExtent));
    if (target.First > target.Last || source.First > source.Last)
        return;

    const bool         shrinks = sourceLength > targetLength;
    const WideUnsigned first = static_cast<WideUnsigned>(target.First);
    // Shrinking: the last source pixel whose centre is not beyond the end of the target pixel. Enlarging:
    // the source pixel that holds the target pixel's centre, on a border the one before it.
    SteppedQuotient last(shrinks ? 2 * (first + 1) * sourceLength - targetLength
                                 : (2 * first + 1) * sourceLength - 1,
                         2 * sourceLength, 2 * targetLength);
    Wide next = 0;    // first source pixel of the run when shrinking
    if (shrinks && first > 0)
        next = static_cast<Wide>((2 * first * sourceLength - targetLength) / (2 * targetLength)) + 1;
    Wide firstDrawn = -1;
    for (Wide i = target.First; i <= target.Last; ++i, last.Step()) {
        Wide runLast = last.Value();
        // GDI leaves the last column or row out when everything falls on one pixel. It does so for positive
        // extents only.
        if (axis.TargetExtent == 1 && axis.SourceExtent > 1)
            runLast = axis.SourceExtent - 2;
        const Wide near = std::max(shrinks ? next : runLast, source.First);
        const Wide far = std::min(runLast, source.Last);
        next = runLast + 1;
        if (near > far) {
            if (firstDrawn >= 0)
                break;
            continue;
        }
        if (firstDrawn < 0)
            firstDrawn = i;
        Near.push_back(Coordinate(axis.SourceStart, axis.SourceExtent, near));
        Far.push_back(Coordinate(axis.SourceStart, axis.SourceExtent, far));
    }
    if (firstDrawn < 0)
        return;
    Count = static_cast<int>(Near.size());
    Target = Coordinate(axis.TargetStart, axis.TargetExtent, firstDrawn);
    if (axis.TargetExtent < 0) {
        Target -= Count - 1;
        std::reverse(Near.begin(), Near.end());
        std::reverse(Far.begin(), Far.end());
    }
}

void AxisTaps::Find(const StretchAxis& axis)
{
    Count = 0;
    Each = 0;
    First.clear();
    Weights.clear();
    const Positions inside = Inside(axis.TargetStart, axis.TargetExtent, axis.TargetSize);
    const Positions source = Inside(axis.SourceStart, axis.SourceExtent, axis.SourceSize);
    if (inside.First > inside.Last || source.First > source.Last)
        return;
    const SmoothAxis smooth(axis, source);
    const Positions  target = smooth.Drawn(inside);
    if (target.First > target.Last)
        return;
    Count = static_cast<int>(target.Last - target.First + 1);
    for (Wide i = target.First; i <= target.Last; ++i)
        Each = std::max(Each, smooth.RunOf(i).Count());
    Each += Each % 2;
    First.resize(static_cast<std::size_t>(Count));
    Weights.assign(static_cast<std::size_t>(Count) * static_cast<std::size_t>(Each), 0);
    for (Wide i = target.First; i <= target.Last; ++i) {
        const TapRun  run = smooth.RunOf(i);
        const Wide    place = axis.TargetExtent > 0 ? i - target.First : target.Last - i;
        std::int16_t* weights = Weights.data() + place * Each;
        First[static_cast<std::size_t>(place)] =
            std::min(Coordinate(axis.SourceStart, axis.SourceExtent, run.First),
                     Coordinate(axis.SourceStart, axis.SourceExtent, run.Last));
        smooth.Weigh(i, run, weights);
        if (axis.SourceExtent < 0)
            std::reverse(weights, weights + run.Count());
    }
    Target =
        Coordinate(axis.TargetStart, axis.TargetExtent, axis.TargetExtent > 0 ? target.First : target.Last);
}

}
