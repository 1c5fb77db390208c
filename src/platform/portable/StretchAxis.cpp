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
    Positions       target = Inside(axis.TargetStart, axis.TargetExtent, axis.TargetSize);
    const Positions source = Inside(axis.SourceStart, axis.SourceExtent, axis.SourceSize);
    const Wide      targetLength = Length(axis.TargetExtent);
    const Wide      sourceLength = Length(axis.SourceExtent);
    if (target.First > target.Last || source.First > source.Last)
        return;

    // Drawn are the target pixels whose centre lies on a source pixel of the bitmap.
    const auto centre = [&](Wide i) {
        const WideUnsigned twice =
            static_cast<WideUnsigned>(2 * i + 1) * static_cast<WideUnsigned>(sourceLength);
        return static_cast<Wide>(twice / static_cast<WideUnsigned>(2 * targetLength));
    };
    while (target.First <= target.Last && centre(target.First) < source.First)
        ++target.First;
    while (target.First <= target.Last && centre(target.Last) > source.Last)
        --target.Last;
    if (target.First > target.Last)
        return;
    Count = static_cast<int>(target.Last - target.First + 1);

    const bool shrinks = sourceLength > targetLength;
    const auto runOf = [&](Wide i) {
        TapRun run;
        if (shrinks) {
            run.First = i * sourceLength / targetLength;
            run.Last = ((i + 1) * sourceLength - 1) / targetLength;
        } else if (sourceLength == targetLength) {
            run.First = run.Last = i;
        } else {
            run.First = FloorDivide((2 * i + 1) * sourceLength - targetLength, 2 * targetLength);
            run.Last = run.First + 1;
        }
        run.First = std::clamp(run.First, source.First, source.Last);
        run.Last = std::clamp(run.Last, source.First, source.Last);
        return run;
    };
    // The share of target pixel i up to the near border of source pixel j, out of One.
    const auto shareBefore = [&](Wide i, Wide j) {
        const Wide covered = std::clamp<Wide>(j * targetLength - i * sourceLength, 0, sourceLength);
        return static_cast<int>((covered * (2 * One) + sourceLength) / (2 * sourceLength));
    };

    for (Wide i = target.First; i <= target.Last; ++i) {
        const TapRun run = runOf(i);
        Each = std::max(Each, static_cast<int>(run.Last - run.First + 1));
    }
    Each += Each % 2;
    First.resize(static_cast<std::size_t>(Count));
    Weights.assign(static_cast<std::size_t>(Count) * static_cast<std::size_t>(Each), 0);
    for (Wide i = target.First; i <= target.Last; ++i) {
        const TapRun  run = runOf(i);
        const Wide    place = axis.TargetExtent > 0 ? i - target.First : target.Last - i;
        std::int16_t* weights = Weights.data() + place * Each;
        First[static_cast<std::size_t>(place)] =
            std::min(Coordinate(axis.SourceStart, axis.SourceExtent, run.First),
                     Coordinate(axis.SourceStart, axis.SourceExtent, run.Last));
        if (run.First == run.Last) {
            weights[0] = One;
        } else if (shrinks) {
            int before = 0;
            for (Wide j = run.First; j <= run.Last; ++j) {
                const int after = j == run.Last ? One : shareBefore(i, j + 1);
                weights[j - run.First] = static_cast<std::int16_t>(after - before);
                before = after;
            }
        } else {
            const Wide rest = (2 * i + 1) * sourceLength - targetLength - run.First * 2 * targetLength;
            const int  second = static_cast<int>((rest * One + targetLength) / (2 * targetLength));
            weights[0] = static_cast<std::int16_t>(One - second);
            weights[1] = static_cast<std::int16_t>(second);
        }
        if (axis.SourceExtent < 0)
            std::reverse(weights, weights + (run.Last - run.First + 1));
    }
    Target =
        Coordinate(axis.TargetStart, axis.TargetExtent, axis.TargetExtent > 0 ? target.First : target.Last);
}

}
