#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "document/ObjectMeasures.h"
#include "geometry/Histogram.h"
#include "open/OpenPlanes.h"
#include "output/ColorMaps.h"

#include <cmath>

using namespace vostel;
using namespace vostel::open;

namespace {

constexpr std::int32_t MostBins = 1 << 24;

// Changes the contrast of the image that a canvas shows.
template <typename Change>
VostelStatus ChangeContrast(std::int32_t canvas, Change change)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        ContrastState state = image.Contrast();
        change(state);
        NeedImage(image);
        image.ApplyContrast(state);
    });
}

void NeedWindow(double low, double high)
{
    NeedFinite(low, "low");
    NeedFinite(high, "high");
    if (low >= high)
        Fail(VOSTEL_INVALID_ARGUMENT, "low is not below high");
}

}

VostelStatus vostel_contrast_set(int32_t canvas, double low, double high)
{
    return ChangeContrast(canvas, [&](ContrastState& state) {
        NeedWindow(low, high);
        state.Low = low;
        state.High = high;
    });
}

VostelStatus vostel_contrast_get(int32_t canvas, double* low, double* high)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPointer(low, "low");
        NeedPointer(high, "high");
        NeedImage(image);
        const ContrastState state = image.Contrast();
        Give(low, state.Low);
        Give(high, state.High);
    });
}

VostelStatus vostel_contrast_percentiles(int32_t canvas, double low_percent, double high_percent)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedFinite(low_percent, "low_percent");
        NeedFinite(high_percent, "high_percent");
        if (low_percent < 0.0 || high_percent > 100.0 || low_percent >= high_percent)
            Fail(VOSTEL_INVALID_ARGUMENT, "the percents do not rise within 0 to 100");
        const PlaneView plane = NeedImage(image);
        const double    percents[] = {low_percent, high_percent};
        double          ends[2];
        if (!PercentilesOf(plane, 0, RunsOfPlane(plane.Width, plane.Height), percents, ends))
            Fail(VOSTEL_NOT_FOUND, "the image has no finite value");
        ContrastState state = image.Contrast();
        state.Low = ends[0];
        state.High = ends[1];
        image.ApplyContrast(state);
    });
}

VostelStatus vostel_contrast_gamma(int32_t canvas, double gamma)
{
    return ChangeContrast(canvas, [&](ContrastState& state) {
        NeedPositive(gamma, "gamma");
        state.Gamma = gamma;
    });
}

VostelStatus vostel_contrast_map(int32_t canvas, const char* name)
{
    return ChangeContrast(canvas, [&](ContrastState& state) {
        const std::string map = TextFrom(name, "name");
        if (!IsColorMap(map))
            Fail(VOSTEL_NOT_FOUND, "there is no color map \"" + map + "\"");
        state.Map = map;
    });
}

VostelStatus vostel_contrast_map_names(char* buffer, size_t capacity, size_t* length)
{
    return Run([&] {
        std::string names;
        for (const std::string_view name : ColorMapNames())
            names.append(names.empty() ? "" : "\n").append(name);
        GiveText(names, buffer, capacity, length);
    });
}

VostelStatus vostel_contrast_marks(int32_t canvas, uint32_t below, uint32_t above, uint32_t not_finite)
{
    return ChangeContrast(canvas, [&](ContrastState& state) {
        state.Below = below;
        state.Above = above;
        state.NotFinite = not_finite;
    });
}

VostelStatus vostel_contrast_of_object(int32_t canvas, VostelObject region, double low, double high)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj& object = RegionOf(notes, region);
        NeedFinite(low, "low");
        NeedFinite(high, "high");
        if (low > high)
            Fail(VOSTEL_INVALID_ARGUMENT, "low is above high");
        notes.SetWindow(object, low < high ? low : 0.0, low < high ? high : 0.0);
    });
}

VostelStatus vostel_contrast_info(int32_t canvas, VostelContrastInfo* contrast)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedRecord(contrast, "contrast");
        NeedImage(image);
        const ContrastState state = image.Contrast();
        VostelContrastInfo  given = {};
        given.below = state.Below;
        given.above = state.Above;
        given.not_finite = state.NotFinite;
        given.low = state.Low;
        given.high = state.High;
        given.gamma = state.Gamma;
        GiveRecord(contrast, given, "contrast");
    });
}

VostelStatus vostel_contrast_map_name(int32_t canvas, char* buffer, size_t capacity, size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedBuffer(buffer, capacity, "buffer");
        NeedImage(image);
        GiveText(image.Contrast().Map, buffer, capacity, length);
    });
}

VostelStatus vostel_contrast_window_of_object(int32_t canvas, VostelObject region, double* low, double* high)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const VostelObj& object = RegionToRead(notes, region);
        NeedPointer(low, "low");
        NeedPointer(high, "high");
        Give(low, object.WindowLow);
        Give(high, object.WindowHigh);
    });
}

VostelStatus vostel_histogram(int32_t canvas, VostelObject region_or_0, int32_t channel, double low,
                              double high, int32_t bins, uint64_t* counts)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const VostelObj* const region = region_or_0 != 0 ? &RegionToRead(notes, region_or_0) : nullptr;
        NeedPointer(counts, "counts");
        NeedWindow(low, high);
        NeedRange(bins, 1, MostBins, "bins");
        const PlaneView plane = NeedImage(image);
        NeedChannel(plane, channel);
        const std::vector<PixelRun> runs = region ? RunsOfRegion(*region, plane.Width, plane.Height)
                                                  : RunsOfPlane(plane.Width, plane.Height);
        std::vector<std::uint64_t>  found(static_cast<std::size_t>(bins));
        HistogramOf(plane, channel, runs, low, high, found);
        std::memcpy(static_cast<void*>(counts), found.data(), found.size() * sizeof found[0]);
    });
}
