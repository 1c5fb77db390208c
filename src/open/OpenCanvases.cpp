#include "foundation/Limits.h"
#include "open/OpenCall.h"

#include <algorithm>
#include <utility>

using namespace vostel;
using namespace vostel::open;

namespace {

void NeedArea(int32_t width, int32_t height)
{
    const Limits limits = LimitsInForce();
    NeedRange(width, 1, INT32_MAX, "width");
    NeedRange(height, 1, INT32_MAX, "height");
    if (std::max(width, height) > limits.MaxSide)
        Fail(VOSTEL_TOO_LARGE, "a side of the area has more than " + std::to_string(limits.MaxSide) + " px");
    if (static_cast<std::int64_t>(width) * height > limits.MaxPixels)
        Fail(VOSTEL_TOO_LARGE, "the area has more than " + std::to_string(limits.MaxPixels) + " px");
}

// Changes what holds for all that is drawn on a canvas.
template <typename Setting>
void ChangeSetting(VostelImage& image, Document& notes, Setting& setting, Setting value)
{
    if (setting == value)
        return;
    const Setting before = std::exchange(setting, value);
    try {
        image.ViewMoved();
    } catch (...) {
        // Objects that have the new one already find their places again with the next paint or move.
        setting = before;
        throw;
    }
    notes.PictureChanged();
}

}

VostelStatus vostel_canvas_create(int32_t width, int32_t height, int32_t* canvas)
{
    return Run([&] {
        NeedPointer(canvas, "canvas");
        NeedArea(width, height);
        Give<int32_t>(canvas, CreateCanvas(width, height));
    });
}

VostelStatus vostel_canvas_destroy(int32_t canvas)
{
    return Run([&] {
        if (canvas >= 0 && canvas < CanvasCount)
            Fail(VOSTEL_INVALID_ARGUMENT, "canvas " + std::to_string(canvas) + " always stands");
        if (!DestroyCanvas(canvas))
            FailNoCanvas(canvas);
    });
}

VostelStatus vostel_canvas_resize(int32_t canvas, int32_t width, int32_t height)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        NeedArea(width, height);
        if (image.HasOwnArea(width, height))
            return;
        image.UseOwnArea(width, height);
        notes.PictureChanged();
    });
}

VostelStatus vostel_canvas_set_pixel_ratio(int32_t canvas, double ratio)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        NeedPositive(ratio, "ratio");
        if (ratio < 0.25 || ratio > 16.0)
            Fail(VOSTEL_INVALID_ARGUMENT, "ratio is not 0.25 to 16");
        ChangeSetting(image, notes, image.View.Settings.PixelRatio, ratio);
    });
}

VostelStatus vostel_canvas_set_language(int32_t canvas, const char* language)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string name = TextFrom(language, "language");
        if (name != "zh" && name != "en")
            Fail(VOSTEL_NOT_FOUND, "there is no language \"" + name + "\", but \"zh\" and \"en\"");
        ChangeSetting(image, notes, image.View.Settings.English, name == "en");
    });
}

VostelStatus vostel_canvas_get(int32_t canvas, VostelCanvasInfo* info)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        VostelCanvasInfo given = {};
        given.width = image.View.ClientRect.Width();
        given.height = image.View.ClientRect.Height();
        given.smooth = image.CanvasSurface.StretchMode == HALFTONE ? 1 : 0;
        given.pixel_ratio = image.View.Settings.PixelRatio;
        GiveRecord(info, given, "info");
    });
}

VostelStatus vostel_canvas_language(int32_t canvas, char* buffer, size_t capacity, size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        GiveText(image.View.Settings.English ? "en" : "zh", buffer, capacity, length);
    });
}
