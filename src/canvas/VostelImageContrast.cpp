#include "canvas/VostelImage.h"

#include "canvas/SamplePainter.h"
#include "foundation/Planes.h"
#include "geometry/Coverage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vostel {

namespace {

bool IsSame(const RegionWindow& a, const RegionWindow& b)
{
    const auto samePoint = [](ImagePoint p, ImagePoint q) { return p.x == q.x && p.y == q.y; };
    return a.Low == b.Low && a.High == b.High && a.Region.Form == b.Region.Form &&
           std::equal(a.Region.Points.begin(), a.Region.Points.end(), b.Region.Points.begin(),
                      b.Region.Points.end(), samePoint);
}

// The share of a range, exact at its ends.
double Within(double low, double high, double share)
{
    return share >= 1.0 ? high : low + (high - low) * share;
}

}

ContrastState VostelImage::Contrast() const
{
    return Window ? *Window : ContrastOfMap();
}

ContrastState VostelImage::ContrastOfMap() const
{
    ContrastState state;
    if (CurrentFileType == FileTypeNone || CurrentFileType == FileTypeByte)
        return state;
    double low = 0.0;
    double high = static_cast<double>(RawTop);
    if (Stretch.Active && IsPlaneOf(RawOri, CanvasWidth, CanvasHeight)) {
        low = static_cast<double>(DataRange.Low) + 0.0;
        high = static_cast<double>(DataRange.High) + 0.0;
        if (!std::isfinite(low) || !std::isfinite(high)) {
            const SampleRange range = ShownRange();
            low = range.Min;
            high = range.Max;
        }
    }
    state.Low = Within(low, high, Map.RangeLow / static_cast<double>(RawTop));
    state.High = Within(low, high, Map.RangeHigh / static_cast<double>(RawTop));
    return state;
}

void VostelImage::ApplyContrast(const ContrastState& state)
{
    if (!ShownPlane().Data)
        return;
    if (Observer)
        Observer->WillChangeContrast();
    if (Samples.IsEmpty() && CurrentFileType == FileTypeByte)
        TakeSurfaceAsSamples();
    if (Samples.IsEmpty() && Window && state == ContrastOfMap()) {
        // Back to what the classic calls draw.
        if (HasSurfacePixels() && IsPlaneOf(Raw, CanvasWidth, CanvasHeight))
            ContrastShowAll(ShownTable, Raw.Ptr1D, CanvasWidth, CanvasHeight, CanvasSurface.PixelsToChange(),
                            nullptr);
        Window.reset();
        DrawnRegions.clear();
        DrawnRuns.clear();
    } else {
        ContrastState taken = state;
        DrawSamples(ShownPlane(), taken);
        Window = std::move(taken);
    }
    RedrawRegions();
}

void VostelImage::DrawSamples(const PlaneView& plane, const ContrastState& state)
{
    const SamplePainter painter(plane.Type, state);
    if (HasSurfacePixels())
        painter.Draw(plane, CanvasSurface);
    DrawnRegions.clear();
    DrawnRuns.clear();
    LabelsAreOld = LabelsAreOld || IsDeep(plane.Type);
}

void VostelImage::SetWindowShares(float low, float high)
{
    double least = DataRange.Min;
    double most = DataRange.Max;
    if (Samples.IsEmpty()) {
        const SampleRange range = ShownRange();
        least = range.Min;
        most = range.Max;
    }
    ContrastState state = Contrast();
    state.Low = Within(least, most, std::max(static_cast<double>(low), 0.0));
    state.High = Within(least, most, std::min(static_cast<double>(high), 1.0));
    if (state.Low < state.High)
        ApplyContrast(state);
}

std::vector<RegionWindow> VostelImage::WantedRegions() const
{
    std::vector<RegionWindow> wanted;
    const auto                hasWindow = [](const VostelObj* element) {
        return !element->Hidden && element->WindowLow < element->WindowHigh;
    };
    for (const VostelObj* element : Elements.NotResting(hasWindow)) {
        if (std::optional<Outline> region = element->RegionOutline())
            wanted.push_back({std::move(*region), element->WindowLow, element->WindowHigh});
    }
    return wanted;
}

void VostelImage::RedrawRegions()
{
    std::vector<RegionWindow> wanted = WantedRegions();
    if (std::equal(wanted.begin(), wanted.end(), DrawnRegions.begin(), DrawnRegions.end(), IsSame) ||
        !ShownPlane().Data || !HasSurfacePixels())
        return;
    const ContrastState whole = Contrast();
    if (!Window) {
        if (Samples.IsEmpty() && CurrentFileType == FileTypeByte)
            TakeSurfaceAsSamples();
        DrawSamples(ShownPlane(), whole);
        Window = whole;
    }
    const PlaneView       plane = ShownPlane();
    std::vector<PixelRun> drawn;
    SamplePainter(plane.Type, whole).Draw(plane, DrawnRuns, CanvasSurface);
    for (const RegionWindow& region : wanted) {
        ContrastState inside = whole;
        inside.Low = region.Low;
        inside.High = region.High;
        const std::vector<PixelRun> runs = CoverageOf(region.Region, plane.Width, plane.Height);
        SamplePainter(plane.Type, inside).Draw(plane, runs, CanvasSurface);
        drawn.insert(drawn.end(), runs.begin(), runs.end());
    }
    DrawnRegions = std::move(wanted);
    DrawnRuns = std::move(drawn);
}

void VostelImage::PrepareSurface()
{
    RedrawRegions();
}

}
