#include "document/ObjectLooks.h"

#include "base/Failure.h"
#include "canvas/VostelImage.h"
#include "document/KindRules.h"

#include <cmath>
#include <string>

namespace vostel {

namespace {

constexpr std::uint32_t KnownFlags = VOSTEL_HIDDEN | VOSTEL_LOCKED | VOSTEL_ELLIPSE | VOSTEL_NO_LABEL;

constexpr double WidestLine = 100.0;    // px
constexpr double HighestText = 1000.0;
constexpr int    PlainHeight = 18;
constexpr int    PanelHeight = 20;

bool IsRectangle(const VostelObj& object)
{
    return object.TypeCode == OverlayRect || object.TypeCode == OverlayCustomRect;
}

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

void NeedColor(std::uint32_t color, const char* name)
{
    NeedRange(color, 0, 0xFFFFFF, name);
}

// px; 0 of captions stands for the plain style.
int TextHeightOf(const VostelObj& object)
{
    const bool panel = object.TypeCode == OverlayPanel || object.TypeCode == OverlayNeighbours;
    switch (object.TypeCode == OverlayTextRect ? object.StyleFontType : FontCustom) {
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

}

void CheckPointCount(int kind, std::size_t count)
{
    const PointCounts counts = PointCountsOf(kind);
    if (count < counts.Least || count > counts.Most)
        Fail(VOSTEL_INVALID_ARGUMENT, "count is not what the kind takes");
}

std::unique_ptr<VostelObj> MakeOpenObject(VostelImage& canvas, int kind)
{
    if (!IsKind(kind))
        Fail(VOSTEL_INVALID_ARGUMENT, "there is no kind " + std::to_string(kind));
    std::unique_ptr<VostelObj> made = MakeObject(AddedClass(kind));
    made->OpenMade = true;
    made->SetOwnerImage(&canvas);
    made->SetCanvasView(&canvas.View);
    made->Kit.Dc = canvas.ClientMemDC;
    return made;
}

std::uint32_t FlagsOf(const VostelObj& object, const ObjectNotes& notes)
{
    std::uint32_t flags = 0;
    if (object.Hidden)
        flags |= VOSTEL_HIDDEN;
    if (object.Locked)
        flags |= VOSTEL_LOCKED;
    if (IsRectangle(object) && object.EllipseMode)
        flags |= VOSTEL_ELLIPSE;
    if (notes.NoLabel)
        flags |= VOSTEL_NO_LABEL;
    return flags;
}

void CheckFlags(const VostelObj& object, std::uint32_t flags)
{
    if ((flags & ~KnownFlags) != 0)
        Fail(VOSTEL_INVALID_ARGUMENT, "flags has unknown bits");
    if ((flags & VOSTEL_ELLIPSE) != 0 && !IsRectangle(object))
        Fail(VOSTEL_INVALID_ARGUMENT, "VOSTEL_ELLIPSE is for rectangles");
    if ((flags & VOSTEL_NO_LABEL) != 0 && !IsRegion(object.TypeCode))
        Fail(VOSTEL_INVALID_ARGUMENT, "VOSTEL_NO_LABEL is for regions");
}

void TakeFlags(VostelObj& object, ObjectNotes& notes, std::uint32_t flags)
{
    object.Hidden = (flags & VOSTEL_HIDDEN) != 0;
    object.Locked = (flags & VOSTEL_LOCKED) != 0;
    if (IsRectangle(object))
        object.EllipseMode = (flags & VOSTEL_ELLIPSE) != 0;
    notes.NoLabel = (flags & VOSTEL_NO_LABEL) != 0;
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

void CheckStyle(const VostelStyle& style)
{
    NeedColor(style.line_color, "line_color");
    NeedColor(style.selected_color, "selected_color");
    NeedColor(style.handle_color, "handle_color");
    NeedPositive(style.line_width, "line_width");
    NeedPositive(style.text_height, "text_height");
    if (style.text_height < 1.0)
        Fail(VOSTEL_INVALID_ARGUMENT, "text_height lies below 1 px");
    if (style.line_width > WidestLine || style.text_height > HighestText)
        Fail(VOSTEL_INVALID_ARGUMENT, "line_width lies beyond 100 px or text_height beyond 1000 px");
}

void TakeStyle(VostelObj& object, const VostelStyle& style)
{
    object.LineColorIdle = ColorOf(style.line_color);
    object.LineColorSel = ColorOf(style.selected_color);
    if (style.handle_color != Rgb(object.HandleColorIdle)) {
        object.HandleColorIdle = ColorOf(style.handle_color);
        object.HandleColorSel = object.HandleColorIdle == Blue ? Red : object.HandleColorIdle;
    }
    object.FillColor = style.fill_color;
    object.LineWidth = style.line_width;
    object.StyleHeight = static_cast<int>(std::lround(style.text_height));
    if (object.TypeCode == OverlayTextRect) {
        object.StyleFontType = FontCustom;
        object.StyleColor = object.LineColorIdle;
        object.StyleBkMode = TRANSPARENT;
    }
}

}
