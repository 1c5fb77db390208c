#include "base/Utf8.h"
#include "document/ObjectLooks.h"
#include "open/OpenCall.h"

using namespace vostel;
using namespace vostel::open;

VostelStatus vostel_object_name(int32_t canvas, VostelObject object, char* buffer, size_t capacity,
                                size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveText(notes.NotesOf(ObjectToRead(notes, object)).Name, buffer, capacity, length);
    });
}

VostelStatus vostel_object_set_name(int32_t canvas, VostelObject object, const char* name)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj&  found = ObjectOf(notes, object);
        std::string text = TextFrom(name, "name");
        notes.Prepare(found);
        notes.NotesToChange(found).Name = std::move(text);
    });
}

VostelStatus vostel_object_text(int32_t canvas, VostelObject object, char* buffer, size_t capacity,
                                size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const CString text = ObjectToRead(notes, object).CaptionText();
        GiveText(Utf8Of(std::wstring_view(text, static_cast<std::size_t>(text.GetLength()))), buffer,
                 capacity, length);
    });
}

VostelStatus vostel_object_set_text(int32_t canvas, VostelObject object, const char* text)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj&    found = ObjectOf(notes, object);
        const CString wide = WideFrom(text, "text");
        notes.Prepare(found);
        if (!found.TakeText(wide))
            Fail(VOSTEL_NOT_SUPPORTED, "the object is not a text");
        notes.Settle(found);
    });
}

VostelStatus vostel_object_style(int32_t canvas, VostelObject object, VostelStyle* style)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveRecord(style, StyleOf(ObjectToRead(notes, object)), "style");
    });
}

VostelStatus vostel_object_set_style(int32_t canvas, VostelObject object, const VostelStyle* style)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj&        found = ObjectOf(notes, object);
        const VostelStyle set = RecordFrom(style, StyleOf(found), "style");
        CheckStyle(set);
        notes.Prepare(found);
        TakeStyle(found, set);
        notes.Settle(found);
    });
}

VostelStatus vostel_object_set_label(int32_t canvas, VostelObject object, int32_t label)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj& found = RegionOf(notes, object);
        NeedRange(label, 1, INT32_MAX, "label");
        notes.Prepare(found);
        notes.SetLabel(found, label);
    });
}
