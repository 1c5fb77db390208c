#include "canvas/view/PaintKit.h"

#include "canvas/view/Colors.h"
#include "canvas/view/SelectedObject.h"
#include "canvas/view/VectorDrawing.h"
#include "platform/HostServices.h"
#include "platform/Polylines.h"

#include <algorithm>
#include <span>
#include <type_traits>

namespace vostel {

namespace {

constexpr COLORREF BackgroundColor = RGB(119, 136, 153);
constexpr COLORREF HatchColor = RGB(128, 128, 128);
constexpr UINT     TextBoxFormat =
    DT_CENTER | DT_VCENTER | DT_WORDBREAK | DT_SINGLELINE | DT_EXTERNALLEADING | DT_EDITCONTROL;
static_assert(TextBoxFormat == 8757);

// The parts of r outside covered, as up to four bands.
void ForEachUncovered(const CRect& r, const CRect& covered, auto&& fill)
{
    CRect hole(covered.left > r.left ? covered.left : r.left, covered.top > r.top ? covered.top : r.top,
               covered.right < r.right ? covered.right : r.right,
               covered.bottom < r.bottom ? covered.bottom : r.bottom);
    if (hole.IsRectEmpty()) {
        fill(r);
        return;
    }
    fill(CRect(r.left, r.top, r.right, hole.top));
    fill(CRect(r.left, hole.bottom, r.right, r.bottom));
    fill(CRect(r.left, hole.top, hole.left, hole.bottom));
    fill(CRect(hole.right, hole.top, r.right, hole.bottom));
}

template <typename Point>
std::vector<ImagePoint> ExactPoints(std::span<const Point> points)
{
    std::vector<ImagePoint> exact;
    for (const Point& point : points)
        exact.emplace_back(point.x, point.y);
    return exact;
}

void RecordSegments(VectorDrawing& recorder, std::span<const CPoint> points, std::span<const int> starts,
                    int penWidth, COLORREF color)
{
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const auto begin = static_cast<std::size_t>(starts[i]);
        const auto end = i + 1 < starts.size() ? static_cast<std::size_t>(starts[i + 1]) : points.size();
        if (begin < end && end <= points.size())
            recorder.AddPolyline(ExactPoints(points.subspan(begin, end - begin)), false, penWidth, color);
    }
}

}

HFONT CreateCaptionFont(int height)
{
    return CreateFontW(height, 0, 0, 0, FW_NORMAL, 0, 0, 0, GB2312_CHARSET, 8, 1, 0, 48, L"微软雅黑");
}

PaintKit::~PaintKit()
{
    SelectObject(Dc, GetStockObject(BLACK_PEN));
    SelectObject(Dc, GetStockObject(WHITE_BRUSH));
    SelectObject(Dc, GetStockObject(DEFAULT_GUI_FONT));
    if (Pen)
        DeleteObject(Pen);
    if (Brush)
        DeleteObject(Brush);
    if (Font)
        DeleteObject(Font);
}

void PaintKit::DrawLine(const CPoint& a, const CPoint& b, int, COLORREF color, int penStyle)
{
    if (Recorder) {
        if (penStyle == PS_SOLID)
            Recorder->AddLine(a, b, PenWidth, color);
        else
            Recorder->AddDottedLine(a, b, color);
        return;
    }
    const SelectedObject pen(Dc, CreatePen(penStyle, penStyle == PS_SOLID ? PenWidth : 1, color));
    MoveToEx(Dc, a.x, a.y, nullptr);
    LineTo(Dc, b.x, b.y);
}

void PaintKit::DrawTextBox(const CString& text, CRect& r)
{
    InflateRect(&r, TextMargin, TextMargin);
    if (TextBoxBack)
        FillSolid(r, White);
    ApplyBkMode(TRANSPARENT);
    if (Recorder) {
        Recorder->AddTextInBox(Dc, text, r);
        return;
    }
    CRect place = r;
    DrawTextW(Dc, text, text.GetLength(), &place, TextBoxFormat);
}

void PaintKit::DrawLabel(const CString& text, int x, int y)
{
    ApplyBkMode(TRANSPARENT);
    SetBkColor(Dc, White);
    ApplyTextColor(Blue);
    if (Recorder)
        Recorder->AddText(Dc, text, x, y);
    else
        TextOutW(Dc, x, y, text, text.GetLength());
}

void PaintKit::DrawShadowedText(const CString& text, int x, int y, int shadow, COLORREF color)
{
    if (Recorder) {
        Recorder->AddShadowedText(Dc, text, x, y, shadow, color);
        return;
    }
    ApplyTextColor(Black);
    TextOutW(Dc, x + shadow, y + shadow, text, text.GetLength());
    ApplyTextColor(color);
    TextOutW(Dc, x, y, text, text.GetLength());
}

void PaintKit::SelectTextStyle(int height, int bkMode, COLORREF color)
{
    SelectObject(Dc, GetStockObject(DEFAULT_GUI_FONT));
    if (Font)
        DeleteObject(Font);
    Font = CreateCaptionFont(height);
    SelectObject(Dc, Font);
    ApplyTextColor(color);
    ApplyBkMode(bkMode);
}

void PaintKit::DrawEllipseOutline(const CRect& r, COLORREF color)
{
    if (Recorder) {
        Recorder->AddEllipse(r, PenWidth, color);
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, PenWidth, color));
    SelectObject(Dc, GetStockObject(NULL_BRUSH));
    Ellipse(Dc, r.left, r.top, r.right, r.bottom);
    SelectObject(Dc, GetStockObject(WHITE_BRUSH));
}

void PaintKit::DrawRectOutline(const CRect& r, COLORREF color)
{
    if (Recorder) {
        Recorder->AddRectangle(r, PenWidth, color);
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, PenWidth, color));
    SelectObject(Dc, GetStockObject(NULL_BRUSH));
    Rectangle(Dc, r.left, r.top, r.right, r.bottom);
    SelectObject(Dc, GetStockObject(WHITE_BRUSH));
}

void PaintKit::DrawCurve(StructData2D<unsigned short>& data, int x0, int y0)
{
    if (!data.Ptr1D || data.Width < 1 || data.Height < 1)
        return;
    SetViewportOrgEx(Dc, x0, y0, nullptr);
    {
        const SelectedObject  pen(Dc, CreatePen(PS_SOLID, HandlePenWidth, Red));
        const unsigned short* row = data.Ptr1D;
        MoveToEx(Dc, 0, -row[0], nullptr);
        for (int i = 1; i < data.Width; ++i)
            LineTo(Dc, i, -row[i]);
    }
    SetViewportOrgEx(Dc, 0, 0, nullptr);
}

void PaintKit::DrawHatchBackground(const CRect& r, const CRect& covered)
{
    // Opaque hatching lays ground and lines in one pass.
    const HBRUSH hatch = CreateHatchBrush(HS_DIAGCROSS, HatchColor);
    MissedDrawings += hatch == nullptr;
    const COLORREF groundBefore = SetBkColor(Dc, BackgroundColor);
    ::SetBkMode(Dc, OPAQUE);
    ForEachUncovered(r, covered, [&](const CRect& band) {
        if (!band.IsRectEmpty())
            FillRect(Dc, &band, hatch);
    });
    SetBkColor(Dc, groundBefore);
    DeleteObject(hatch);
    {
        const SelectedObject pen(Dc, CreatePen(PS_SOLID, 1, HatchColor));
        SelectObject(Dc, GetStockObject(NULL_BRUSH));
        Rectangle(Dc, r.left, r.top, r.right, r.bottom);
    }
    SelectStock();
}

void PaintKit::SelectStock()
{
    ::SetBkMode(Dc, TRANSPARENT);
    SelectObject(Dc, GetStockObject(BLACK_PEN));
    SelectObject(Dc, GetStockObject(WHITE_BRUSH));
    SelectObject(Dc, GetStockObject(DEFAULT_GUI_FONT));
}

void PaintKit::BindSurface(unsigned int* pixels)
{
    PixelPtr = pixels;
    if (Recorder) {
        BmpWidth = Recorder->Width;
        BmpHeight = Recorder->Height;
        return;
    }
    const HGDIOBJ bitmap = GetCurrentObject(Dc, OBJ_BITMAP);
    if (!bitmap) {
        ShowMessage(L"No bmp");
        return;
    }
    BITMAP facts = {};
    GetObjectW(bitmap, sizeof facts, &facts);
    BmpWidth = facts.bmWidth;
    BmpHeight = facts.bmHeight;
}

template <typename Point>
void PaintKit::DrawClosedPolyline(const std::vector<Point>& points, COLORREF color)
{
    if (points.size() < 2)
        return;
    if (Recorder) {
        Recorder->AddPolyline(ExactPoints(std::span<const Point>(points)), true, PenWidth, color);
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, PenWidth, color));
    if constexpr (std::is_same_v<Point, CPoint>) {
        DrawPolyline(Dc, points, true);
    } else {
        std::vector<CPoint> clientPoints;
        clientPoints.reserve(points.size());
        for (const Point& point : points)
            clientPoints.emplace_back(point.x, point.y);
        DrawPolyline(Dc, clientPoints, true);
    }
}

template void PaintKit::DrawClosedPolyline(const std::vector<CPoint>&, COLORREF);
template void PaintKit::DrawClosedPolyline(const std::vector<PointTemplateBase<int>>&, COLORREF);

void PaintKit::DrawOpenPolyline(const std::vector<CPoint>& points, COLORREF color)
{
    DrawSegments(points, {0}, PenWidth, color);
}

void PaintKit::DrawSegments(const std::vector<CPoint>& points, const std::vector<int>& starts, int penWidth,
                            COLORREF color)
{
    if (points.size() < 2 || starts.empty())
        return;
    if (Recorder) {
        RecordSegments(*Recorder, points, starts, penWidth, color);
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, penWidth, color));
    std::size_t          stroke = 0;
    for (std::size_t i = 0; i < points.size();) {
        if (static_cast<int>(i) != starts[stroke]) {
            LineTo(Dc, points[i].x, points[i].y);
            ++i;
            continue;
        }
        std::size_t end = points.size();
        if (stroke + 1 < starts.size() && starts[++stroke] > static_cast<int>(i))
            end = std::min(end, static_cast<std::size_t>(starts[stroke]));
        DrawPolyline(Dc, std::span(points).subspan(i, end - i), false);
        i = end;
    }
}

void PaintKit::DrawCrosses(const std::vector<CPoint>& points, int arm, COLORREF color)
{
    if (Recorder) {
        for (const CPoint& at : points) {
            Recorder->AddLine(CPoint(at.x - arm, at.y), CPoint(at.x + arm + 1, at.y), PenWidth, color);
            Recorder->AddLine(CPoint(at.x, at.y - arm), CPoint(at.x, at.y + arm + 1), PenWidth, color);
        }
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, PenWidth, color));
    for (const CPoint& at : points) {
        // LineTo's end point is left out.
        MoveToEx(Dc, at.x - arm, at.y, nullptr);
        LineTo(Dc, at.x + arm + 1, at.y);
        MoveToEx(Dc, at.x, at.y - arm, nullptr);
        LineTo(Dc, at.x, at.y + arm + 1);
    }
}

void PaintKit::DrawHandles(const std::vector<CRect>& rects, COLORREF color, int shape)
{
    if (!HandlesOn || (shape != RoundHandles && shape != SquareHandles))
        return;
    if (Recorder) {
        for (const CRect& r : rects) {
            if (shape == SquareHandles)
                Recorder->AddRectangle(r, HandlePenWidth, color);
            else
                Recorder->AddEllipse(r, HandlePenWidth, color);
        }
        return;
    }
    const SelectedObject pen(Dc, CreatePen(PS_SOLID, HandlePenWidth, color));
    SelectObject(Dc, GetStockObject(NULL_BRUSH));
    for (const CRect& r : rects) {
        if (shape == SquareHandles)
            Rectangle(Dc, r.left, r.top, r.right, r.bottom);
        else
            Ellipse(Dc, r.left, r.top, r.right, r.bottom);
    }
    SelectObject(Dc, GetStockObject(WHITE_BRUSH));
}

void PaintKit::FillSolid(const CRect& r, COLORREF color)
{
    if (Recorder) {
        Recorder->AddFilledBox(r, color);
        return;
    }
    const HBRUSH brush = CreateSolidBrush(color);
    MissedDrawings += brush == nullptr;
    FillRect(Dc, &r, brush);
    DeleteObject(brush);
}

void PaintKit::ApplyBkMode(int mode)
{
    ::SetBkMode(Dc, mode);
    if (Recorder)
        Recorder->SetBackgroundMode(mode);
}

void PaintKit::ApplyTextColor(COLORREF color)
{
    ::SetTextColor(Dc, color);
    if (Recorder)
        Recorder->SetTextColor(color);
}

}
