#include "instruments/VostelLineProfile.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "canvas/view/ImageValues.h"
#include "geometry/ProfileSampling.h"
#include "geometry/Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vostel {

namespace {

constexpr float ShortestLine = 10.0f;    // image px; below it there is no plot

}

VostelLineProfile::VostelLineProfile()
{
    TypeCode = OverlayLineProfile;
    MaxPoints = 2;
    ClickPerPoint = 0;
    DrawBody = false;
}

void VostelLineProfile::OnLButtonDown(unsigned int flags, CPoint point)
{
    if (OpenMade)
        PlacePlot();
    if (!PlotHit)
        VostelSingleLine::OnLButtonDown(flags, point);
    ProfilePlot.OnLButtonDown(flags, point);
}

void VostelLineProfile::OnLButtonUp(unsigned int flags, CPoint point)
{
    if (!PlotHit)
        VostelSingleLine::OnLButtonUp(flags, point);
    ProfilePlot.OnLButtonUp(flags, point);
}

void VostelLineProfile::OnMouseMove(unsigned int flags, CPoint point)
{
    if (!PlotHit)
        VostelSingleLine::OnMouseMove(flags, point);
    ProfilePlot.OnMouseMove(flags, point);
    PlotSamples();
}

void VostelLineProfile::SetCanvasView(CanvasView* view)
{
    VostelSingleLine::SetCanvasView(view);
    ProfilePlot.OpenMade = OpenMade;
    ProfilePlot.SetCanvasView(view);
}

bool VostelLineProfile::Covers(CPoint point) const
{
    return PtInRect(&MidRect, point) || HitRectList(HandleRects, point) != -1 || ProfilePlot.Hits(point);
}

bool VostelLineProfile::HitTest(CPoint point)
{
    PlotHit = ProfilePlot.Hits(point);
    return VostelSingleLine::HitTest(point);
}

void VostelLineProfile::SetPlacement(float x, float y, float w, float h)
{
    ProfilePlot.SetPlacement(x, y, w, h);
}

void VostelLineProfile::OnDraw(HDC dc)
{
    if (OpenMade)
        PlotSamples();
    VostelSingleLine::OnDraw(dc);
    if (ShowsCaptions() && OwnerImage && OwnerImage->ShownType() != FileTypeNone)
        ProfilePlot.OnDraw(dc);
}

void VostelLineProfile::DerivePainted()
{
    VostelSingleLine::DerivePainted();
    PlotSamples();
}

bool VostelLineProfile::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    PlacePlot();
    return VostelSingleLine::TakePoints(points);
}

CString VostelLineProfile::CaptionText() const
{
    if (!OpenMade)
        return ProfilePlot.CaptionText();
    const ValueStatistics values = StatisticsOf(ExactSamples());
    return ProfilePlot.RangeText(values.Min, values.Max);
}

void VostelLineProfile::Persist(StateArchive& archive)
{
    VostelSingleLine::Persist(archive);
    ProfilePlot.Persist(archive);
}

// No samples empty the plot, so that a line that has become too short shows no stale curve.
void VostelLineProfile::PlotSamples()
{
    ClassData2DIO<float> samples = OpenMade ? PlottedSamples() : Samples();
    ProfilePlot.SetData(samples);
    if (OpenMade)
        ProfilePlot.Caption = CaptionText();
}

// One sample a pixel of the length, as profiles are measured.
std::vector<double> VostelLineProfile::ExactSamples() const
{
    constexpr std::int64_t MostSamples = 10'000'000;    // a longer line is no measurement
    if (ImagePoints.size() != 2 || !OwnerImage)
        return {};
    const PlaneView   plane = OwnerImage->ShownPlane();
    const ProfileLine line(ImagePoints[0], ImagePoints[1]);
    if (!plane.Data || line.Count > MostSamples)
        return {};
    std::vector<double> samples(static_cast<std::size_t>(line.Count));
    SampleProfile(plane, 0, line, 1, samples);
    return samples;
}

// The same for the plot, which has no place for what is not finite.
ClassData2DIO<float> VostelLineProfile::PlottedSamples() const
{
    const std::vector<double> exact = ExactSamples();
    ClassData2DIO<float>      samples;
    if (exact.empty())
        return samples;
    samples.Allocate(static_cast<int>(exact.size()), 1);
    std::transform(exact.begin(), exact.end(), samples.Ptr1D,
                   [](double v) { return std::isfinite(v) ? static_cast<float>(v) : 0.0f; });
    return samples;
}

void VostelLineProfile::PlacePlot()
{
    if (ProfilePlot.PlotWidth == 0)
        ProfilePlot.SetPlacement(static_cast<float>(Scaled(30)), static_cast<float>(Scaled(30)),
                                 static_cast<float>(Scaled(512)), static_cast<float>(Scaled(150)));
}

ClassData2DIO<float> VostelLineProfile::Samples() const
{
    ClassData2DIO<float> samples;
    if (ImagePoints.size() != 2 || !OwnerImage || OwnerImage->ShownType() == FileTypeNone)
        return samples;
    const PointTemplateBase<double>& from = ImagePoints[0];
    const PointTemplateBase<double>& to = ImagePoints[1];
    const float                      length =
        static_cast<float>(std::sqrt((from.x - to.x) * (from.x - to.x) + (from.y - to.y) * (from.y - to.y)));
    // Longer than any image: not a measurement. The clamp keeps real lines inside.
    if (!(length >= ShortestLine) || length > 1e7f)
        return samples;
    const int    count = TruncToInt(std::floor(length));
    const double dx = (to.x - from.x) / static_cast<double>(length);
    const double dy = (to.y - from.y) / static_cast<double>(length);
    const bool   raw = OwnerImage->ShownType() != FileTypeByte;
    const int    width = OwnerImage->ShownWidth();
    const int    height = OwnerImage->ShownHeight();
    samples.Allocate(count, 1);
    for (int i = 0; i < count; ++i) {
        const int x = TruncToInt(static_cast<double>(i) * dx + from.x);
        const int y = TruncToInt(static_cast<double>(i) * dy + from.y);
        // Ends that a smaller image has left outside come back in with the next move of the line alone.
        const bool inside = x >= 0 && x < width && y >= 0 && y < height;
        samples.Ptr1D[i] = !inside ? 0.0f
                           : raw   ? OwnerImage->OriginalAt(x, y)
                                   : static_cast<float>(OwnerImage->SurfacePixelAt(x, height - y - 1) & 0xFF);
    }
    return samples;
}

}
