#include "vostel/Resize.h"

#include "base/Truncate.h"
#include "foundation/RowThreads.h"
#include "imaging/PlaneRows.h"
#include "imaging/ResizeRows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

using namespace vostel;

namespace {

// One axis: where target positions lie in the source. Positions ascend, so those with both samples in the
// source come first.
struct Axis {
    std::vector<int>   Index;
    std::vector<float> Fraction;

    Axis(int sourceExtent, int targetExtent)
    {
        const float scale = static_cast<float>(sourceExtent) / static_cast<float>(targetExtent);
        Index.reserve(static_cast<std::size_t>(targetExtent));
        Fraction.reserve(static_cast<std::size_t>(targetExtent));
        for (int position = 0; position < targetExtent; ++position) {
            const float at = static_cast<float>(position) * scale;
            const int   index = TruncToInt(std::floor(at));
            if (index < 0 || index > sourceExtent - 2)
                break;
            Index.push_back(index);
            Fraction.push_back(at - static_cast<float>(index));
        }
    }
    int Count() const { return static_cast<int>(Index.size()); }

    // The distance of the positions, if all of them are just on samples.
    int WholeStep() const
    {
        const int step = Index.size() > 1 ? Index[1] : 0;
        for (std::size_t i = 0; i < Index.size(); ++i)
            if (Fraction[i] != 0.0f || Index[i] != static_cast<std::int64_t>(i) * step)
                return 0;
        return step;
    }
};

class Scaling {
public:
    Scaling(const ClassData2DIO<float>& source, ClassData2DIO<float>& target)
        : Source(source), Target(target), Across(CountOf(source) > 0 ? source.Width : 0, target.Width),
          Down(CountOf(source) > 0 ? source.Height : 0, target.Height), StepAcross(Across.WholeStep()),
          Variant(ActiveResizeVariant())
    {
    }

    void DoRows(RowRun run) const
    {
        const int           count = Across.Count();
        const ResizeColumns columns{Across.Index.data(), Across.Fraction.data(), count, Source.Width,
                                    StepAcross};
        std::vector<double> memory(2 * static_cast<std::size_t>(count));
        double*             spread = memory.data();                            // of source row kept
        double*             nextSpread = memory.data() + memory.size() / 2;    // of the one after it
        int                 kept = -1;
        int                 keptNext = -1;
        for (int y = run.First; y < run.End; ++y) {
            float* const target = RowOf(Target, y);
            if (y >= Down.Count() || count == 0) {
                std::fill_n(target, Target.Width, 0.0f);
                continue;
            }
            const int   row = Down.Index[static_cast<std::size_t>(y)];
            const float fraction = Down.Fraction[static_cast<std::size_t>(y)];
            const bool  nextReuses = y + 1 < run.End && y + 1 < Down.Count() &&
                                    Down.Index[static_cast<std::size_t>(y) + 1] <= row + 1;
            if (kept != row && keptNext == row) {
                std::swap(spread, nextSpread);
                std::swap(kept, keptNext);
            }
            if (kept != row && !nextReuses) {
                Variant.SpreadAndBlend(RowOf(Source, row), RowOf(Source, row + 1), columns, fraction, target);
            } else {
                if (kept != row) {
                    Variant.Spread(RowOf(Source, row), columns, spread);
                    kept = row;
                }
                if (keptNext != row + 1) {
                    Variant.Spread(RowOf(Source, row + 1), columns, nextSpread);
                    keptNext = row + 1;
                }
                Variant.Blend(spread, nextSpread, fraction, target, count);
            }
            std::fill(target + count, target + Target.Width, 0.0f);
        }
    }

private:
    const ClassData2DIO<float>& Source;
    ClassData2DIO<float>&       Target;
    Axis                        Across;
    Axis                        Down;
    int                         StepAcross;
    const ResizeVariant&        Variant;
};

template <typename DoAllRows>
void Scale(const ClassData2DIO<float>* source, ClassData2DIO<float>* target, DoAllRows doAllRows)
{
    if (!source || !target || CountOf(*target) == 0)
        return;
    if (source->Ptr1D != target->Ptr1D) {
        doAllRows(Scaling(*source, *target));
        return;
    }
    // No row may be read after it was written.
    const ClassData2DIO<float> unchanged(*source);
    doAllRows(Scaling(unchanged, *target));
}

}

void ResizeMC(ClassData2DIO<float>* source, ClassData2DIO<float>* target)
{
    Scale(source, target, [&](const Scaling& scaling) {
        ForEachRowRun(target->Height, [&](RowRun run) { scaling.DoRows(run); });
    });
}

void ResizeSC(ClassData2DIO<float>* source, ClassData2DIO<float>* target)
{
    Scale(source, target, [&](const Scaling& scaling) { scaling.DoRows({0, target->Height}); });
}

void Resize(ClassData2DIO<float>& image, int width, int height)
{
    ClassData2DIO<float> scaled;
    scaled.Allocate(width, height);
    ResizeMC(&image, &scaled);
    TakeBuffers(image, scaled);
}

void Resize(ClassData2DIO<unsigned short>& image, int width, int height)
{
    ClassData2DIO<float> copy, scaled;
    if (CountOf(image) > 0)
        copy.ConvertFrom(image, 0.0f);
    scaled.Allocate(width, height);
    ResizeMC(&copy, &scaled);
    ClassData2DIO<unsigned short> result;
    result.ConvertFrom(scaled, 0.0f);
    // Not a leak: as after image.ConvertFrom(scaled), the previous buffers are left to whoever made them. The
    // image may have borrowed them from its host.
    image.Ptr1D = std::exchange(result.Ptr1D, nullptr);
    image.Ptr2D = std::exchange(result.Ptr2D, nullptr);
    image.Width = result.Width;
    image.Height = result.Height;
}
