#include "instruments/VostelSlider.h"

#include "base/Truncate.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr COLORREF FaceColour = RGB(180, 180, 180);
constexpr COLORREF EdgeColour = RGB(150, 150, 150);
constexpr UINT     CaptionFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;

// 32-bit quotient; a track without travel gives infinities, which the limits below tame as far as they reach.
float Fraction(int pixels, int travel)
{
    return static_cast<float>(pixels) / static_cast<float>(travel);
}

}

VostelSlider::VostelSlider()
{
    SetCaption(L"阈值");
}

void VostelSlider::SetCaption(const CString& text)
{
    SingleThumb = false;
    Caption = text;
    Low = 0.0f;
    High = 1.0f;
}

void VostelSlider::OnLButtonDown(unsigned int, CPoint point)
{
    if (!ControlOn)
        return;
    ButtonDown = true;
    LastPoint = point;
    ActiveNode = -1;
    if (PtInRect(&LowThumbRect, point))
        DragLow = true;
    if (PtInRect(&HighThumbRect, point))
        DragHigh = true;
    ControlHit = PtInRect(&ClientBox, point) != 0;
}

void VostelSlider::OnLButtonUp(unsigned int, CPoint)
{
    if (!ControlOn)
        return;
    ButtonDown = false;
    MoveState = 2;
    ActiveNode = -1;
    DragLow = false;
    DragHigh = false;
}

// The thumbs are placed from the value before it is limited: one pushed past its limit is drawn past it until
// the next refresh.
void VostelSlider::OnMouseMove(unsigned int, CPoint point)
{
    if (!ControlOn)
        return;
    if (DragHigh) {
        High += Fraction(WrapSub(point.x, LastPoint.x), Travel);
        RefreshClientGeometry();
        const float nearest = Fraction(ThumbWidth, Travel) + Low;
        High = std::max(std::max(nearest, 0.0f), std::min(High, 1.0f));
        LastPoint = point;
    }
    if (DragLow) {
        Low += Fraction(WrapSub(point.x, LastPoint.x), Travel);
        RefreshClientGeometry();
        const float nearest = High - Fraction(ThumbWidth, Travel);
        Low = std::max(0.0f, std::min(Low, std::min(nearest, 1.0f)));
        LastPoint = point;
    }
}

void VostelSlider::RefreshClientGeometry()
{
    CaptionRect = TrackRect = ClientBox;
    CaptionRect.right = WrapAdd(ClientBox.left, CaptionWidth);
    TrackRect.left = WrapAdd(WrapAdd(ClientBox.left, CaptionWidth), TrackGap);
    InflateRect(&CaptionRect, Inset, Inset);
    InflateRect(&TrackRect, Inset, Inset);
    TrackWidth = WrapSub(TrackRect.right, TrackRect.left);
    Travel = WrapSub(TrackWidth, ThumbWidth);
    LowThumbRect = ThumbRect(Low);
    HighThumbRect = ThumbRect(High);
}

CRect VostelSlider::ThumbRect(float position) const
{
    const int half = ThumbWidth / 2;
    CRect     thumb = ClientBox;
    thumb.left = TruncToInt(static_cast<float>(Travel) * position +
                            static_cast<float>(WrapAdd(TrackRect.left, half)) - static_cast<float>(half));
    thumb.right = WrapAdd(thumb.left, ThumbWidth);
    InflateRect(&thumb, 0, Inset);
    return thumb;
}

void VostelSlider::OnDraw(HDC dc)
{
    if (!ControlOn)
        return;
    VostelFixedRect::OnDraw(dc);

    SetBkColor(dc, FaceColour);
    SetTextColor(dc, 0);
    SetBkMode(dc, OPAQUE);
    CRect place = CaptionRect;
    DrawTextW(dc, Caption, Caption.GetLength(), &place, CaptionFormat);
    Kit.DrawRectOutline(CaptionRect, EdgeColour);

    Kit.FillSolid(TrackRect, FaceColour);
    Kit.DrawRectOutline(TrackRect, EdgeColour);
    Kit.FillSolid(LowThumbRect, RGB(80, 80, 80));
    if (!SingleThumb)
        Kit.FillSolid(HighThumbRect, RGB(220, 220, 220));
}

}
