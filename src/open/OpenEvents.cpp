#include "open/OpenCall.h"

#include <algorithm>
#include <cmath>
#include <new>

using namespace vostel;
using namespace vostel::open;

namespace {

constexpr std::uint32_t KnownFlags = VOSTEL_LEFT_BUTTON | VOSTEL_SHIFT | VOSTEL_CONTROL;

// What was done stands, also where there is no memory to show it: a paint derives it again.
void DeriveIfItCan(VostelObj& object)
{
    try {
        object.DerivePainted();
    } catch (const std::bad_alloc&) {
    }
}

template <typename Handler>
VostelStatus RouteMouse(int32_t canvas, double x, double y, uint32_t flags, Handler handler)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const CPoint point = DevicePoint(x, y);
        NeedFlags(flags, KnownFlags);
        handler(image, point);
        // As a paint would leave it, for hosts that draw a frame only now and then.
        if (VostelObj* const selected = image.SelectedElement())
            DeriveIfItCan(*selected);
    });
}

}

VostelStatus vostel_event_press(int32_t canvas, double x, double y, uint32_t flags)
{
    return RouteMouse(canvas, x, y, flags,
                      [&](VostelImage& image, CPoint point) { image.OnLButtonDown(flags, point); });
}

VostelStatus vostel_event_release(int32_t canvas, double x, double y, uint32_t flags)
{
    return RouteMouse(canvas, x, y, flags,
                      [&](VostelImage& image, CPoint point) { image.OnLButtonUp(flags, point); });
}

VostelStatus vostel_event_move(int32_t canvas, double x, double y, uint32_t flags)
{
    return RouteMouse(canvas, x, y, flags,
                      [&](VostelImage& image, CPoint point) { image.OnMouseMove(flags, point); });
}

VostelStatus vostel_event_wheel(int32_t canvas, double x, double y, double steps, uint32_t flags)
{
    constexpr double MostSteps = 1000.0;
    return RouteMouse(canvas, x, y, flags, [&](VostelImage& image, CPoint point) {
        NeedFinite(steps, "steps");
        if (std::fabs(steps) > MostSteps)
            Fail(VOSTEL_INVALID_ARGUMENT, "steps lies beyond 1000");
        // A wheel tells whole steps; parts of one turn it as a whole one does.
        const int turns = static_cast<int>(std::ceil(std::fabs(steps)));
        for (int i = 0; i < turns; ++i)
            image.OnMouseWheel(flags, static_cast<short>(steps > 0.0 ? WHEEL_DELTA : -WHEEL_DELTA), point);
    });
}

VostelStatus vostel_event_key(int32_t canvas, uint32_t key, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedFlags(flags, KnownFlags);
        image.OnKeyDown(key, 1, 0);
        for (VostelObj* const element : image.Elements)
            DeriveIfItCan(*element);
    });
}

VostelStatus vostel_event_keys(int32_t canvas, const char* letters)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        std::string chosen = TextFrom(letters, "letters");
        for (const char letter : chosen) {
            if (letter < 'A' || letter > 'Z')
                Fail(VOSTEL_INVALID_ARGUMENT, "letters has others than A to Z");
        }
        image.KeyLetters = std::move(chosen);
    });
}
