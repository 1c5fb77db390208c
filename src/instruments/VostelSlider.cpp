#include "instruments/VostelSlider.h"

#include "base/Truncate.h"
#include "overlay/StateArchive.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr COLORREF EdgeColor = RGB(150, 150, 150);
constexpr COLORREF LowThumbColor = RGB(80, 80, 80);
constexpr COLORREF HighThumbColor = RGB(220, 220, 220);
constexpr wchar_t  ChineseCaption[] = L"阈值";    // until a host sets another
constexpr int      CaptionHeight = 16;            // px
constexpr UINT     CaptionFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;

// 32-bit quotient; a track without travel gives infinities; the clamps below bound them.
float Fraction(int pixels, int travel)
{
    return static_cast<float>(pixels) / static_cast<float>(travel);
}

}

VostelSlider::VostelSlider()
{
    SetCaption(ChineseCaption);
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
    ActiveNode = NoNode;
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
    EndMove();
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
        const float nearest = Fraction(Scaled(ThumbWidth), Travel) + Low;
        High = std::max(std::max(nearest, 0.0f), std::min(High, 1.0f));
        LastPoint = point;
    }
    if (DragLow) {
        Low += Fraction(WrapSub(point.x, LastPoint.x), Travel);
        RefreshClientGeometry();
        const float nearest = High - Fraction(Scaled(ThumbWidth), Travel);
        Low = std::max(0.0f, std::min(Low, std::min(nearest, 1.0f)));
        LastPoint = point;
    }
}

void VostelSlider::RefreshClientGeometry()
{
    const int inset = Scaled(Inset);
    CaptionRect = TrackRect = ClientBox;
    CaptionRect.right = WrapAdd(ClientBox.left, Scaled(CaptionWidth));
    TrackRect.left = WrapAdd(WrapAdd(ClientBox.left, Scaled(CaptionWidth)), Scaled(TrackGap));
    InflateRect(&CaptionRect, inset, inset);
    InflateRect(&TrackRect, inset, inset);
    TrackWidth = WrapSub(TrackRect.right, TrackRect.left);
    Travel = WrapSub(TrackWidth, Scaled(ThumbWidth));
    LowThumbRect = ThumbRect(Low);
    HighThumbRect = ThumbRect(High);
}

CRect VostelSlider::ThumbRect(float position) const
{
    const int width = Scaled(ThumbWidth);
    const int half = width / 2;
    CRect     thumb = ClientBox;
    thumb.left = TruncToInt(static_cast<float>(Travel) * position +
                            static_cast<float>(WrapAdd(TrackRect.left, half)) - static_cast<float>(half));
    thumb.right = WrapAdd(thumb.left, width);
    InflateRect(&thumb, 0, Scaled(Inset));
    return thumb;
}

void VostelSlider::OnDraw(HDC dc)
{
    if (!ControlOn)
        return;
    VostelFixedRect::OnDraw(dc);

    if (PixelRatio() != 1.0)    // else the font that the context holds
        Kit.SelectTextStyle(Scaled(CaptionHeight), OPAQUE, Black);
    SetBkColor(dc, ControlFace);
    SetTextColor(dc, Black);
    SetBkMode(dc, OPAQUE);
    CRect         place = CaptionRect;
    const bool    english = Settings() && Settings()->English && Caption == ChineseCaption;
    const CString caption = english ? CString(L"Window") : Caption;
    DrawTextW(dc, caption, caption.GetLength(), &place, CaptionFormat);
    Kit.DrawRectOutline(CaptionRect, EdgeColor);

    Kit.FillSolid(TrackRect, ControlFace);
    Kit.DrawRectOutline(TrackRect, EdgeColor);
    Kit.FillSolid(LowThumbRect, LowThumbColor);
    if (!SingleThumb)
        Kit.FillSolid(HighThumbRect, HighThumbColor);
}

void VostelSlider::Persist(StateArchive& archive)
{
    VostelFixedRect::Persist(archive);
    archive(Low, High, Caption, SingleThumb, CaptionWidth, ThumbWidth, TrackGap, Inset);
}

}
