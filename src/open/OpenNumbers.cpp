#include "base/Utf8.h"
#include "document/KindRules.h"
#include "document/LabelImage.h"
#include "document/ObjectMeasures.h"
#include "geometry/ProfileSampling.h"
#include "geometry/Statistics.h"
#include "open/MeasureTable.h"
#include "open/OpenCall.h"
#include "open/OpenPlanes.h"

#include <cmath>
#include <limits>

using namespace vostel;
using namespace vostel::open;

namespace {

VostelProfile ProfileOf(const ProfileLine& line, std::span<const double> samples)
{
    constexpr double      none = std::numeric_limits<double>::quiet_NaN();
    const ValueStatistics values = StatisticsOf(samples);
    VostelProfile         profile = {0, line.Length, line.Spacing, none, none, none};
    if (values.Count > 0) {
        profile.min = values.Min;
        profile.max = values.Max;
        profile.mean = values.Mean;
    }
    return profile;
}

// Labels by rows of any alignment.
class LabelRows {
public:
    LabelRows(std::int32_t* labels, std::ptrdiff_t rowBytes, int width, int height)
        : First(reinterpret_cast<char*>(labels)), RowBytes(rowBytes)
    {
        for (int row = 0; row < height; ++row)
            std::memset(First + row * RowBytes, 0, static_cast<std::size_t>(width) * sizeof(std::int32_t));
    }

    void Write(std::span<const PixelRun> runs, std::int32_t label) const
    {
        if (reinterpret_cast<std::uintptr_t>(First) % alignof(std::int32_t) == 0 &&
            RowBytes % static_cast<std::ptrdiff_t>(alignof(std::int32_t)) == 0) {
            WriteLabel(runs, label, reinterpret_cast<std::int32_t*>(First), RowBytes);
            return;
        }
        for (const PixelRun& run : runs) {
            for (int x = run.Begin; x < run.End; ++x)
                std::memcpy(First + run.Row * RowBytes + x * static_cast<std::ptrdiff_t>(sizeof label),
                            &label, sizeof label);
        }
    }

private:
    char*          First;
    std::ptrdiff_t RowBytes;
};

std::vector<MeasureRow> RowsOfTable(const VostelImage& image, const Document& notes)
{
    const PlaneView         plane = image.ShownPlane();
    std::vector<MeasureRow> rows;
    for (const VostelObj* const object : image.Elements) {
        const ObjectNotes& kept = notes.NotesOf(*object);
        rows.push_back({object->Identity, kept.Name, KindName(object->TypeCode), kept.Label,
                        MeasureObject(*object, plane, 0, notes.Units().UnitsPerPixel)});
    }
    return rows;
}

}

VostelStatus vostel_set_scale(int32_t canvas, double units_per_pixel, const char* unit)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        NeedPositive(units_per_pixel, "units_per_pixel");
        notes.SetUnits({units_per_pixel, WideFrom(unit, "unit"), units_per_pixel});
    });
}

VostelStatus vostel_get_scale(int32_t canvas, double* units_per_pixel, char* unit, size_t capacity,
                              size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const MeasureUnits units = notes.Units();
        NeedBuffer(unit, capacity, "unit");
        if (units_per_pixel)
            Give(units_per_pixel, units.UnitsPerPixel);
        GiveText(Utf8Of(units.Unit.GetString()), unit, capacity, length);
    });
}

VostelStatus vostel_measure(int32_t canvas, VostelObject object, int32_t channel, VostelMeasures* measures)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const VostelObj& found = ObjectToRead(notes, object);
        NeedRecord(measures, "measures");
        const PlaneView plane = image.ShownPlane();
        NeedChannel(plane, channel);
        GiveRecord(measures, MeasureObject(found, plane, channel, notes.Units().UnitsPerPixel), "measures");
    });
}

VostelStatus vostel_profile(int32_t canvas, VostelObject line, int32_t channel, double width,
                            VostelProfile* profile, double* values, size_t capacity, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        constexpr double              Widest = 65536.0;
        const VostelObj&              found = ObjectToRead(notes, line);
        const std::vector<ImagePoint> points = found.GivePoints();
        if (!IsLine(found.TypeCode) || points.size() < 2)
            Fail(VOSTEL_INVALID_ARGUMENT, "the object is not a line of two points or more");
        NeedFinite(width, "width");
        if (width < 1.0 || width > Widest || width != std::floor(width))
            Fail(VOSTEL_INVALID_ARGUMENT, "width is not a whole number from 1 to 65536");
        NeedBuffer(values, capacity, "values");
        const PlaneView plane = NeedImage(image);
        NeedChannel(plane, channel);
        const ProfileLine sampled(points.front(), points.back());
        if (sampled.Count > MostSamples)
            Fail(VOSTEL_TOO_LARGE, "the profile has more than " + std::to_string(MostSamples) + " samples");
        std::vector<double> samples(static_cast<std::size_t>(sampled.Count));
        SampleProfile(plane, channel, sampled, static_cast<int>(width), samples);
        if (profile)
            GiveRecord(profile, ProfileOf(sampled, samples), "profile");
        GiveList<double>(samples, values, capacity, count);
    });
}

VostelStatus vostel_mask(int32_t canvas, VostelObject region, uint8_t* mask, ptrdiff_t row_bytes)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const VostelObj& found = RegionToRead(notes, region);
        NeedPointer(mask, "mask");
        const PlaneView      plane = NeedImage(image);
        const std::ptrdiff_t distance = RowDistance(row_bytes, plane.Width, 1);
        WriteMask(RunsOfRegion(found, plane.Width, plane.Height), plane.Width, plane.Height, mask, distance);
    });
}

VostelStatus vostel_labels(int32_t canvas, int32_t* labels, ptrdiff_t row_bytes)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        NeedPointer(labels, "labels");
        const PlaneView      plane = NeedImage(image);
        const std::ptrdiff_t distance = RowDistance(row_bytes, plane.Width, sizeof *labels);
        // All regions first: what is short of memory fails before a label is written.
        const std::vector<LabelledRegion> regions = LabelledRegions(image, notes, plane.Width, plane.Height);
        const LabelRows                   rows(labels, distance, plane.Width, plane.Height);
        for (const LabelledRegion& region : regions)
            rows.Write(region.Runs, region.Label);
    });
}

VostelStatus vostel_table(int32_t canvas, const char* format, char* buffer, size_t capacity, size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string name = TextFrom(format, "format");
        if (name != "csv" && name != "tsv" && name != "json")
            Fail(VOSTEL_NOT_SUPPORTED, "format is not \"csv\", \"tsv\" or \"json\"");
        NeedBuffer(buffer, capacity, "buffer");
        const CString     wide = notes.Units().Unit;
        const std::string unit = Utf8Of(std::wstring_view(wide, static_cast<std::size_t>(wide.GetLength())));
        const std::vector<MeasureRow> rows = RowsOfTable(image, notes);
        GiveText(name == "json" ? JsonOf(rows, unit) : CsvOf(rows, unit, name == "csv" ? ',' : '\t'), buffer,
                 capacity, length);
    });
}
