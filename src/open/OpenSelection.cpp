#include "open/OpenCall.h"

#include <algorithm>

using namespace vostel;
using namespace vostel::open;

VostelStatus vostel_object_at(int32_t canvas, double client_x, double client_y, VostelObject* object)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPointer(object, "object");
        NeedFinite(client_x, "client_x");
        NeedFinite(client_y, "client_y");
        const auto   within = [](double v) { return std::clamp(v, -1e9, 1e9); };
        const CPoint point = DevicePoint(within(client_x), within(client_y));
        const auto&  all = image.Elements.NearPoint(point);
        const auto   hit = std::find_if(all.rbegin(), all.rend(), [&](VostelObj* element) {
            return !element->Hidden && !element->Locked && image.Elements.Settle(*element).Hits(point);
        });
        Give<VostelObject>(object, hit == all.rend() ? 0 : (*hit)->Identity);
    });
}

VostelStatus vostel_select(int32_t canvas, const VostelObject* objects, size_t count)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        notes.Select(ObjectsFrom(image, notes, objects, count));
    });
}

VostelStatus vostel_selection(int32_t canvas, VostelObject* list, size_t capacity, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveList<VostelObject>(notes.SelectedNow(), list, capacity, count);
    });
}
