#include "base/Utf8.h"
#include "document/KindRules.h"
#include "open/OpenCall.h"

#include <cmath>

using namespace vostel;
using namespace vostel::open;

namespace {

constexpr double WidestLine = 100.0;    // px
constexpr double HighestText = 1000.0;
constexpr int    PlainHeight = 18;
constexpr int    PanelHeight = 20;

// 0xRRGGBB of a color of the drawing context and back.
std::uint32_t Rgb(COLORREF color)
{
    return static_cast<std::uint32_t>(GetRValue(color)) << 16 |
           static_cast<std::uint32_t>(GetGValue(color)) << 8 | GetBValue(color);
}

COLORREF ColorOf(std::uint32_t rgb)
{
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

// px; 0 of captions stands for the plain style.
int TextHeightOf(const VostelObj& object)
{
    const bool panel = object.TypeCode == VOSTEL_PANEL || object.TypeCode == VOSTEL_NEIGHBOURS;
    switch (object.TypeCode == VOSTEL_TEXT ? object.StyleFontType : FontCustom) {
    case FontPlain24:
        return 24;
    case FontRed22:
    case FontRed22Framed:
        return 22;
    case FontCustom:
        return object.StyleHeight > 0 ? object.StyleHeight : panel ? PanelHeight : PlainHeight;
    default:
        return PlainHeight;
    }
}

VostelStyle StyleOf(const VostelObj& object)
{
    VostelStyle style = {};
    style.line_color = Rgb(object.LineColorIdle);
    style.selected_color = Rgb(object.LineColorSel);
    style.handle_color = Rgb(object.HandleColorIdle);
    style.fill_color = object.FillColor;
    style.line_width = object.LineWidth;
    style.text_height = TextHeightOf(object);
    return style;
}

void NeedColor(std::uint32_t color, const char* name)
{
    NeedRange(color, 0, 0xFFFFFF, name);
}

}

VostelStatus vostel_object_name(int32_t canvas, VostelObject object, char* buffer, size_t capacity,
                                size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        GiveText(notes.NotesOf(ObjectOf(notes, object)).Name, buffer, capacity, length);
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
        const CString text = ObjectOf(notes, object).CaptionText();
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
        GiveRecord(style, StyleOf(ObjectOf(notes, object)), "style");
    });
}

VostelStatus vostel_object_set_style(int32_t canvas, VostelObject object, const VostelStyle* style)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj&        found = ObjectOf(notes, object);
        const VostelStyle set = RecordFrom(style, StyleOf(found), "style");
        NeedColor(set.line_color, "line_color");
        NeedColor(set.selected_color, "selected_color");
        NeedColor(set.handle_color, "handle_color");
        NeedPositive(set.line_width, "line_width");
        NeedPositive(set.text_height, "text_height");
        if (set.text_height < 1.0)
            Fail(VOSTEL_INVALID_ARGUMENT, "text_height lies below 1 px");
        if (set.line_width > WidestLine || set.text_height > HighestText)
            Fail(VOSTEL_INVALID_ARGUMENT, "line_width lies beyond 100 px or text_height beyond 1000 px");
        notes.Prepare(found);
        found.LineColorIdle = ColorOf(set.line_color);
        found.LineColorSel = ColorOf(set.selected_color);
        found.HandleColorIdle = ColorOf(set.handle_color);
        found.FillColor = set.fill_color;
        found.LineWidth = set.line_width;
        found.StyleHeight = static_cast<int>(std::lround(set.text_height));
        if (found.TypeCode == VOSTEL_TEXT) {
            found.StyleFontType = FontCustom;
            found.StyleColor = found.LineColorIdle;
            found.StyleBkMode = TRANSPARENT;
        }
        notes.Settle(found);
    });
}

VostelStatus vostel_object_set_label(int32_t canvas, VostelObject object, int32_t label)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        VostelObj& found = ObjectOf(notes, object);
        NeedRange(label, 1, INT32_MAX, "label");
        if (!IsRegion(found.TypeCode))
            Fail(VOSTEL_INVALID_ARGUMENT, "the object is not a region");
        notes.Prepare(found);
        notes.SetLabel(found, label);
    });
}
