#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "open/OpenCall.h"

#include <algorithm>
#include <memory>

using namespace vostel;
using namespace vostel::open;

namespace {

std::vector<VostelPoint> ToPoints(const std::vector<PointTemplateBase<double>>& points)
{
    std::vector<VostelPoint> given;
    given.reserve(points.size());
    for (const PointTemplateBase<double>& point : points)
        given.push_back({point.x, point.y});
    return given;
}

}

VostelStatus vostel_object_add(int32_t canvas, VostelKind kind, const VostelPoint* points, size_t count,
                               VostelObject* object)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        NeedPointer(object, "object");
        std::unique_ptr<VostelObj> made = MakeOpenObject(image, kind);
        CheckPointCount(kind, count);
        if (!made->TakePoints(PointsFrom(points, count)))
            Fail(VOSTEL_INVALID_ARGUMENT, "points is not what the kind takes");
        notes.Settle(*made);
        VostelObj* const selected = image.SelectedElement();
        const int        index = image.SelIndex;
        VostelObj&       added = notes.Add(std::move(made));
        added.Selected = false;    // what is selected stays so
        image.SelIndex = selected ? index : -1;
        Give(object, added.Identity);
    });
}

VostelStatus vostel_draw_next(int32_t canvas, VostelKind kind, VostelObject* object)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        NeedPointer(object, "object");
        std::unique_ptr<VostelObj> made = MakeOpenObject(image, kind);
        if (kind == VOSTEL_PANEL || kind == VOSTEL_NEIGHBOURS)
            made->SetPlacement(30.0f, 30.0f, 512.0f, 150.0f);
        VostelObj& added = notes.Add(std::move(made));
        image.Elements.Deselect();
        added.Selected = true;
        Give(object, added.Identity);
    });
}

VostelStatus vostel_object_remove(int32_t canvas, VostelObject object)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) { notes.Remove(ObjectOf(notes, object)); });
}

VostelStatus vostel_object_list(int32_t canvas, VostelObject* list, size_t capacity, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        std::vector<VostelObject> all;
        all.reserve(image.Elements.size());
        for (const VostelObj* const element : image.Elements.AsTheyLie())
            all.push_back(element->Identity);
        GiveList<VostelObject>(all, list, capacity, count);
    });
}

VostelStatus vostel_object_get(int32_t canvas, VostelObject object, VostelObjectInfo* info)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const VostelObj& found = ObjectToRead(notes, object);
        const Bounds     bounds = BoundsOfObject(found);
        VostelObjectInfo all = {};
        all.kind = found.TypeCode;
        all.flags = FlagsOf(found, notes.NotesOf(found));
        all.label = notes.NotesOf(found).Label;
        all.selected = found.Selected ? 1 : 0;
        all.index = notes.IndexOf(found);
        all.point_count = found.GivePoints().size();
        all.left = bounds.Left;
        all.top = bounds.Top;
        all.right = bounds.Right;
        all.bottom = bounds.Bottom;
        GiveRecord(info, all, "info");
    });
}

VostelStatus vostel_object_set_flags(int32_t canvas, VostelObject object, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj& found = ObjectOf(notes, object);
        CheckFlags(found, flags);
        notes.Prepare(found);
        TakeFlags(found, notes.NotesToChange(found), flags);
        notes.Settle(found);
    });
}

VostelStatus vostel_object_points(int32_t canvas, VostelObject object, VostelPoint* points, size_t capacity,
                                  size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveList<VostelPoint>(ToPoints(ObjectToRead(notes, object).GivePoints()), points, capacity, count);
    });
}

VostelStatus vostel_object_set_points(int32_t canvas, VostelObject object, const VostelPoint* points,
                                      size_t count)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj& found = ObjectOf(notes, object);
        CheckPointCount(found.TypeCode, count);
        const std::vector<PointTemplateBase<double>> taken = PointsFrom(points, count);
        notes.Prepare(found);
        if (!found.TakePoints(taken))
            Fail(VOSTEL_INVALID_ARGUMENT, "points is not what the kind takes");
        notes.Settle(found);
    });
}

VostelStatus vostel_object_outline(int32_t canvas, VostelObject object, VostelPoint* points, size_t capacity,
                                   size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const std::optional<Outline> outline = ObjectToRead(notes, object).RegionOutline();
        if (!outline)
            Fail(VOSTEL_INVALID_ARGUMENT, "the object is not a region with points enough");
        std::vector<VostelPoint> given;
        for (const ImagePoint& point : outline->Flattened(OutlineTolerance))
            given.push_back({point.x, point.y});
        GiveList<VostelPoint>(given, points, capacity, count);
    });
}

VostelStatus vostel_object_move_to(int32_t canvas, VostelObject object, size_t index)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        VostelObj& found = ObjectOf(notes, object);
        if (index >= image.Elements.size())
            Fail(VOSTEL_INVALID_ARGUMENT, "index lies behind the last object");
        notes.Reorder(found, index);
    });
}
