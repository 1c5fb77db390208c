#include "canvas/view/VectorDrawing.h"

#include "canvas/view/Colors.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

namespace vostel {

namespace {

constexpr double Dot = 3.0;    // px of a dotted line along its longer axis, and of its gaps

VectorForm FormOf(const Outline& outline)
{
    switch (outline.Form) {
    case OutlineForm::Polygon:
        return VectorForm::Lines;
    case OutlineForm::Ellipse:
        return VectorForm::Ellipse;
    default:
        return VectorForm::Curve;
    }
}

// Where the middle of a pen runs that is put on pixel 0: of even widths the greater half lies above and left.
double MiddleOf(int width)
{
    return width % 2 != 0 ? 0.5 : 0.0;
}

// The middle of the body that GDI gives a line of a wide pen, from the line's own points. Across a line that
// is neither level nor upright the body grows to whole px, the odd one to the right.
ImagePoint BodyMiddle(double dx, double dy, int width)
{
    if (dx == 0.0 || dy == 0.0)
        return {MiddleOf(width), MiddleOf(width)};
    const double length = std::hypot(dx, dy);
    const int    acrossX = static_cast<int>(width * std::fabs(dy) / length) + 1;
    const int    acrossY = static_cast<int>(width * std::fabs(dx) / length) + 1;
    const double down = (dx > 0.0) == (dy > 0.0) ? -1.0 : 1.0;
    return {0.5 + MiddleOf(acrossX), 0.5 + down * MiddleOf(acrossY)};
}

// The one shift of joined lines that comes nearest to the bodies of all of them, by least squares across
// each, long ones counting more. Along the lines, where it matters less, it is that of level ones.
ImagePoint MiddleOfLines(const std::vector<ImagePoint>& points, bool closed, int width)
{
    const double usual = MiddleOf(width);
    if (width <= 1)
        return {usual, usual};
    double            xx = 0.0, xy = 0.0, yy = 0.0, x = 0.0, y = 0.0;
    const std::size_t count = closed ? points.size() : points.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const ImagePoint& from = points[i];
        const ImagePoint& to = points[(i + 1) % points.size()];
        const double      dx = to.x - from.x;
        const double      dy = to.y - from.y;
        const double      length = std::hypot(dx, dy);
        if (length == 0.0)
            continue;
        const ImagePoint across(-dy / length, dx / length);
        const ImagePoint middle = BodyMiddle(dx, dy, width);
        const double     shift = length * (across.x * (middle.x - usual) + across.y * (middle.y - usual));
        xx += length * across.x * across.x;
        xy += length * across.x * across.y;
        yy += length * across.y * across.y;
        x += shift * across.x;
        y += shift * across.y;
    }
    const double little = 1e-6 * (xx + yy) + 1e-9;    // keeps parallel lines solvable
    xx += little;
    yy += little;
    const double determinant = xx * yy - xy * xy;
    return {usual + (x * yy - y * xy) / determinant, usual + (y * xx - x * xy) / determinant};
}

// Px by which the end of a stroke of thin pens moves back along it: the first pixel is drawn whole and the
// last one is left out.
ImagePoint HalfStep(ImagePoint from, ImagePoint to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double longer = std::max(std::fabs(dx), std::fabs(dy));
    return {0.5 * dx / longer, 0.5 * dy / longer};
}

void MoveBack(std::vector<ImagePoint>& points)
{
    const std::size_t last = points.size() - 1;
    const ImagePoint  start = HalfStep(points[0], points[1]);
    const ImagePoint  end = HalfStep(points[last - 1], points[last]);
    points[0] = {points[0].x - start.x, points[0].y - start.y};
    points[last] = {points[last].x - end.x, points[last].y - end.y};
}

void DropRepeated(std::vector<ImagePoint>& points)
{
    points.erase(std::unique(points.begin(), points.end(), SamePlace), points.end());
}

CRect Normalised(const CRect& r)
{
    return CRect(std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right),
                 std::max(r.top, r.bottom));
}

double Extent(LONG low, LONG high)
{
    return static_cast<double>(high) - static_cast<double>(low);
}

std::vector<ImagePoint> CornersOf(const CRect& r, double shift, double less)
{
    return {ImagePoint(r.left + shift, r.top + shift),
            ImagePoint(r.right - less + shift, r.bottom - less + shift)};
}

// A text without its & marks, and the place of the character that the last of them underlines. A double mark
// stays as one, and so does one at the very end.
struct MarkedLine {
    std::wstring Line;
    std::size_t  Underlined = std::wstring::npos;
};

MarkedLine WithoutMarks(std::wstring_view text)
{
    MarkedLine marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) {
            if (text[i + 1] != L'&') {
                marked.Underlined = marked.Line.size();
                continue;
            }
            ++i;
        }
        marked.Line += text[i];
    }
    return marked;
}

// A blank where text is drawn on one line.
bool BreaksLines(wchar_t character)
{
    const auto code = static_cast<std::uint32_t>(character);
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

std::wstring_view ViewOf(const CString& text)
{
    return {static_cast<const wchar_t*>(text), static_cast<std::size_t>(text.GetLength())};
}

}

void VectorDrawing::BeginGroup(std::string name)
{
    Groups.push_back({std::move(name), {}});
}

void VectorDrawing::SetBackgroundMode(int mode)
{
    if (mode == OPAQUE || mode == TRANSPARENT)
        BackgroundMode = mode;
}

VectorShape& VectorDrawing::Add(VectorForm form, std::vector<ImagePoint> points)
{
    if (Groups.empty())
        Groups.emplace_back();
    VectorShape& shape = Groups.back().Shapes.emplace_back();
    shape.Form = form;
    shape.Points = std::move(points);
    return shape;
}

VectorShape& VectorDrawing::AddStroke(VectorForm form, std::vector<ImagePoint> points, int width,
                                      COLORREF color)
{
    VectorShape& shape = Add(form, std::move(points));
    shape.Stroke = OpaqueOf(color);
    shape.StrokeWidth = width;
    shape.RoundEnds = width > 1;
    return shape;
}

void VectorDrawing::AddLine(CPoint a, CPoint b, int width, COLORREF color)
{
    AddPolyline({ImagePoint(a.x, a.y), ImagePoint(b.x, b.y)}, false, width, color);
}

// Dots count pixels along the longer axis.
void VectorDrawing::AddDottedLine(CPoint a, CPoint b, COLORREF color)
{
    const double dx = Extent(a.x, b.x);
    const double dy = Extent(a.y, b.y);
    if (dx == 0.0 && dy == 0.0)
        return;
    const double dash = Dot * std::hypot(dx, dy) / std::max(std::fabs(dx), std::fabs(dy));
    if (BackgroundMode == OPAQUE)
        AddLine(a, b, 1, White);
    AddLine(a, b, 1, color);
    Groups.back().Shapes.back().Dash = dash;
}

void VectorDrawing::AddPolyline(std::vector<ImagePoint> points, bool closed, int width, COLORREF color)
{
    DropRepeated(points);
    if (closed && points.size() > 1 && SamePlace(points.front(), points.back()))
        points.pop_back();
    if (points.empty() || (width <= 1 && points.size() < 2))
        return;
    if (points.size() == 1)
        points.push_back(points[0]);    // the round ends of a wide pen alone
    closed = closed && points.size() > 2;
    const ImagePoint middle = MiddleOfLines(points, closed, width);
    for (ImagePoint& point : points)
        point = {point.x + middle.x, point.y + middle.y};
    if (width <= 1 && !closed)
        MoveBack(points);
    AddStroke(VectorForm::Lines, std::move(points), width, color).Closed = closed;
}

// One that is a single pixel wide or high is a line, and one of a single pixel nothing.
void VectorDrawing::AddRectangle(const CRect& r, int width, COLORREF color)
{
    const CRect  box = Normalised(r);
    const double across = Extent(box.left, box.right);
    const double down = Extent(box.top, box.bottom);
    if (across < 1.0 || down < 1.0 || (across == 1.0 && down == 1.0))
        return;
    std::vector<ImagePoint> corners = CornersOf(box, MiddleOf(width), 1.0);
    const bool              isLine = across == 1.0 || down == 1.0;
    if (isLine && width <= 1) {
        const ImagePoint half(down == 1.0 ? 0.5 : 0.0, down == 1.0 ? 0.0 : 0.5);
        corners[0] = {corners[0].x - half.x, corners[0].y - half.y};
        corners[1] = {corners[1].x + half.x, corners[1].y + half.y};
    }
    AddStroke(isLine ? VectorForm::Lines : VectorForm::Rectangle, std::move(corners), width, color);
}

void VectorDrawing::AddEllipse(const CRect& r, int width, COLORREF color)
{
    const CRect box = Normalised(r);
    if (Extent(box.left, box.right) <= 2.0 || Extent(box.top, box.bottom) <= 2.0)
        AddRectangle(box, width, color);
    else
        AddStroke(VectorForm::Ellipse, CornersOf(box, MiddleOf(width), 1.0), width, color);
}

void VectorDrawing::AddFilledBox(const CRect& r, COLORREF color)
{
    const CRect box = Normalised(r);
    if (box.left < box.right && box.top < box.bottom)
        Add(VectorForm::Rectangle, CornersOf(box, 0.0, 0.0)).Fill = OpaqueOf(color);
}

void VectorDrawing::AddOutline(const Outline& clientOutline, int width, COLORREF color)
{
    if (!clientOutline.Points.empty())
        AddStroke(FormOf(clientOutline), clientOutline.Points, width, color).Closed = true;
}

void VectorDrawing::AddInterior(const Outline& clientOutline, unsigned int color)
{
    if (color >> 24 == 0 || clientOutline.Points.empty())
        return;
    VectorShape& shape = Add(FormOf(clientOutline), clientOutline.Points);
    shape.Closed = true;
    shape.Fill = color;
}

VectorShape& VectorDrawing::AddTextLine(HDC dc, std::wstring line, double left, double top)
{
    std::replace_if(line.begin(), line.end(), BreaksLines, L' ');
    VectorShape& shape = Add(VectorForm::Text, {});
    shape.Sizes = SizesOfFont(dc);
    shape.Points = {ImagePoint(left, top + shape.Sizes.Ascent)};
    shape.TextWidth = WidthOfText(dc, line);
    shape.Fill = OpaqueOf(TextColor);
    if (WithGlyphs)
        shape.Glyphs = PathOfText(dc, line);
    shape.Line = std::move(line);
    return shape;
}

void VectorDrawing::AddText(HDC dc, const CString& text, int left, int top)
{
    if (!text.IsEmpty())
        AddTextLine(dc, std::wstring(ViewOf(text)), left, top);
}

void VectorDrawing::AddShadowedText(HDC dc, const CString& text, int left, int top, int shadow,
                                    COLORREF color)
{
    TextColor = Black;
    if (!text.IsEmpty())
        AddTextLine(dc, std::wstring(ViewOf(text)), left + shadow, top + shadow).IsShadow = true;
    TextColor = color;
    AddText(dc, text, left, top);
}

void VectorDrawing::AddTextInBox(HDC dc, const CString& text, const CRect& box)
{
    const MarkedLine marked = WithoutMarks(ViewOf(text));
    if (marked.Line.empty())
        return;
    const double height = SizesOfFont(dc).Height;
    const double width = WidthOfText(dc, marked.Line);
    const double left = std::trunc((static_cast<double>(box.left) + box.right - width) / 2);
    const double top = std::trunc((static_cast<double>(box.top) + box.bottom - height) / 2);
    VectorShape& shape = AddTextLine(dc, marked.Line, left, top);
    if (left < box.left || top < box.top || left + width > box.right || top + height > box.bottom)
        shape.Clip = Normalised(box);
    if (marked.Underlined == std::wstring::npos)
        return;
    const std::wstring_view line = marked.Line;
    const double            from = left + WidthOfText(dc, line.substr(0, marked.Underlined));
    const double            until = from + WidthOfText(dc, line.substr(marked.Underlined, 1)) - 1.0;
    const double            below = shape.Points[0].y + 1.0;
    Add(VectorForm::Rectangle, {ImagePoint(from, below), ImagePoint(until, below + 1.0)}).Fill =
        OpaqueOf(TextColor);
}

}
