#include "document/ObjectMeasures.h"

#include "document/KindRules.h"
#include "geometry/Calipers.h"
#include "geometry/Lengths.h"
#include "geometry/ProfileSampling.h"
#include "geometry/ShapeMeasures.h"
#include "geometry/Statistics.h"

#include <cmath>
#include <span>

namespace vostel {

const std::array<MeasureField, 21> MeasureFields = {{
    {"pixels", VOSTEL_HAS_PIXELS, &VostelMeasures::pixels},
    {"not_finite", VOSTEL_HAS_PIXELS, &VostelMeasures::not_finite},
    {"area", VOSTEL_HAS_AREA, &VostelMeasures::area},
    {"perimeter", VOSTEL_HAS_AREA, &VostelMeasures::perimeter},
    {"length", VOSTEL_HAS_LENGTH, &VostelMeasures::length},
    {"angle", VOSTEL_HAS_ANGLE, &VostelMeasures::angle},
    {"centroid_x", VOSTEL_HAS_SHAPE, &VostelMeasures::centroid_x},
    {"centroid_y", VOSTEL_HAS_SHAPE, &VostelMeasures::centroid_y},
    {"left", VOSTEL_HAS_SHAPE, &VostelMeasures::left},
    {"top", VOSTEL_HAS_SHAPE, &VostelMeasures::top},
    {"right", VOSTEL_HAS_SHAPE, &VostelMeasures::right},
    {"bottom", VOSTEL_HAS_SHAPE, &VostelMeasures::bottom},
    {"mean", VOSTEL_HAS_VALUES, &VostelMeasures::mean},
    {"sd", VOSTEL_HAS_VALUES, &VostelMeasures::sd},
    {"min", VOSTEL_HAS_VALUES, &VostelMeasures::min},
    {"max", VOSTEL_HAS_VALUES, &VostelMeasures::max},
    {"sum", VOSTEL_HAS_VALUES, &VostelMeasures::sum},
    {"median", VOSTEL_HAS_VALUES, &VostelMeasures::median},
    {"feret_max", VOSTEL_HAS_SHAPE, &VostelMeasures::feret_max},
    {"feret_min", VOSTEL_HAS_SHAPE, &VostelMeasures::feret_min},
    {"circularity", VOSTEL_HAS_AREA, &VostelMeasures::circularity},
}};

namespace {

class Measuring {
public:
    Measuring(const PlaneView& plane, int channel, double unitsPerPixel)
        : Plane(plane), Channel(channel), Units(unitsPerPixel)
    {
    }

    void TakeRegion(const Outline& outline)
    {
        const ShapeMeasures shape = MeasureShape(outline);
        Result.valid |= VOSTEL_HAS_AREA;
        Result.area = shape.Area * Units * Units;
        Result.perimeter = shape.Perimeter * Units;
        Result.circularity = shape.Circularity;
        TakeShape(shape.Centroid, shape.Box, {shape.FeretMost, shape.FeretLeast});
        if (!Plane.Data)
            return;
        const std::vector<PixelRun> runs = CoverageOf(outline, Plane.Width, Plane.Height);
        TakePixels(CountPixels(runs));
        TakeValues(StatisticsOf(Plane, Channel, runs));
    }

    void TakeLine(std::span<const ImagePoint> points)
    {
        Result.valid |= VOSTEL_HAS_LENGTH;
        Result.length = LengthOf(points) * Units;
        TakeOpenShape(points, CentroidOfLine(points));
    }

    void TakeProfile(std::span<const ImagePoint> points)
    {
        TakeLine(points);
        const ProfileLine line(points.front(), points.back());
        if (!Plane.Data || line.Count > MostSamples)
            return;
        std::vector<double> samples(static_cast<std::size_t>(line.Count));
        SampleProfile(Plane, Channel, line, 1, samples);
        TakeValues(StatisticsOf(samples));
    }

    void TakeAngle(std::span<const ImagePoint> points)
    {
        TakeDegrees(AngleBetween(points[1], points[0], points[1], points[2]));
        TakeOpenShape(points, CentroidOfLine(points));
    }

    void TakeAngleOfLines(std::span<const ImagePoint> points)
    {
        TakeDegrees(AngleBetween(points[0], points[1], points[2], points[3]));
        const double     first = LengthOf(points.first(2));
        const double     both = first + LengthOf(points.last(2));
        const double     share = both > 0.0 ? first / both : 0.5;
        const ImagePoint a = CentroidOfLine(points.first(2));
        const ImagePoint b = CentroidOfLine(points.last(2));
        TakeOpenShape(points, {a.x * share + b.x * (1.0 - share), a.y * share + b.y * (1.0 - share)});
    }

    void TakeMarks(std::span<const ImagePoint> points)
    {
        TakePixels(static_cast<std::int64_t>(points.size()));
        TakeOpenShape(points, CentroidOfPoints(points));
        if (!Plane.Data)
            return;
        std::vector<PixelRun> runs;
        for (const ImagePoint& point : points) {
            if (point.x >= 0.0 && point.x < Plane.Width && point.y >= 0.0 && point.y < Plane.Height) {
                const int x = static_cast<int>(point.x);
                runs.push_back({static_cast<int>(point.y), x, x + 1});
            }
        }
        TakeValues(StatisticsOf(Plane, Channel, runs));
    }

    void TakeStrokes(std::span<const ImagePoint> points) { TakeOpenShape(points, CentroidOfPoints(points)); }

    VostelMeasures Result = {};

private:
    const PlaneView& Plane;
    int              Channel;
    double           Units;

    void TakePixels(std::int64_t count)
    {
        Result.valid |= VOSTEL_HAS_PIXELS;
        Result.pixels = count;
    }
    void TakeDegrees(double degrees)
    {
        Result.valid |= VOSTEL_HAS_ANGLE;
        Result.angle = degrees;
    }
    void TakeOpenShape(std::span<const ImagePoint> points, ImagePoint centroid)
    {
        TakeShape(centroid, BoundsOf(points), CalipersOf(points));
    }
    void TakeShape(ImagePoint centroid, const Bounds& box, const CaliperWidths& widths)
    {
        Result.valid |= VOSTEL_HAS_SHAPE;
        Result.centroid_x = centroid.x;
        Result.centroid_y = centroid.y;
        Result.left = box.Left;
        Result.top = box.Top;
        Result.right = box.Right;
        Result.bottom = box.Bottom;
        Result.feret_max = widths.Most * Units;
        Result.feret_min = widths.Least * Units;
    }
    void TakeValues(const ValueStatistics& values)
    {
        Result.not_finite = values.NotFinite;
        if (values.Count == 0)
            return;
        Result.valid |= VOSTEL_HAS_VALUES;
        Result.mean = values.Mean;
        Result.sd = values.Sd;
        Result.min = values.Min;
        Result.max = values.Max;
        Result.sum = values.Sum;
        Result.median = values.Median;
    }
};

}

VostelMeasures MeasureObject(const VostelObj& object, const PlaneView& plane, int channel,
                             double unitsPerPixel)
{
    Measuring measuring(plane, channel, unitsPerPixel);
    if (const std::optional<Outline> outline = object.RegionOutline()) {
        measuring.TakeRegion(*outline);
        return measuring.Result;
    }
    const std::vector<ImagePoint> points = object.GivePoints();
    const PointCounts             counts = PointCountsOf(object.TypeCode);
    // One that a gesture has not finished yet has nothing to say.
    if (points.size() < counts.Least || points.size() > counts.Most)
        return measuring.Result;
    switch (object.TypeCode) {
    case OverlayMStroke:
        measuring.TakeStrokes(points);
        break;
    case OverlayMeasureLine:
    case OverlayPolyline:
    case OverlayArrow:
        measuring.TakeLine(points);
        break;
    case OverlayLineProfile:
        measuring.TakeProfile(points);
        break;
    case OverlayAngle3Pts:
        measuring.TakeAngle(points);
        break;
    case OverlayAngle4Pts:
        measuring.TakeAngleOfLines(points);
        break;
    case OverlayPoints:
        measuring.TakeMarks(points);
        break;
    default:
        break;
    }
    return measuring.Result;
}

std::vector<PixelRun> RunsOfRegion(const VostelObj& region, int width, int height)
{
    const std::optional<Outline> outline = region.RegionOutline();
    return outline ? CoverageOf(*outline, width, height) : std::vector<PixelRun>();
}

bool IsLine(int kind)
{
    return kind == OverlayMeasureLine || kind == OverlayPolyline || kind == OverlayArrow ||
           kind == OverlayLineProfile;
}

}
