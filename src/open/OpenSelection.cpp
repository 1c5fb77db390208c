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
        if (count > 0)
            NeedPointer(objects, "objects");
        if (count > image.Elements.size())
            Fail(VOSTEL_INVALID_ARGUMENT, "count is larger than the number of objects");
        std::vector<VostelObj*> chosen;
        for (std::size_t i = 0; i < count; ++i) {
            VostelObject identity = 0;
            std::memcpy(&identity, reinterpret_cast<const char*>(objects) + i * sizeof identity,
                        sizeof identity);
            chosen.push_back(&ObjectOf(notes, identity));
        }
        notes.Select(chosen);
    });
}

VostelStatus vostel_selection(int32_t canvas, VostelObject* list, size_t capacity, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveList<VostelObject>(notes.SelectedNow(), list, capacity, count);
    });
}
