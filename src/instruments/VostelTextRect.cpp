#include "instruments/VostelTextRect.h"

#include "base/Truncate.h"
#include "instruments/TextExtent.h"

namespace vostel {

VostelTextRect::VostelTextRect()
{
    TypeCode = OverlayTextRect;
    ClickPerPoint = 0;
    MaxPoints = 2;
    DrawBody = true;
    FixedSize = true;
    StyleFontType = FontPlain18;
}

void VostelTextRect::SetPlacement(float x, float y, float w, float h)
{
    Anchor = CPoint(TruncToInt(x), TruncToInt(y));
    const PointTemplateBase<double> at = ClientToImage(Anchor);
    VostelSizeFixedRect::SetPlacement(static_cast<float>(at.x), static_cast<float>(at.y), w, h);
}

void VostelTextRect::OnDraw(HDC dc)
{
    VostelSizeFixedRect::OnDraw(dc);
    ApplyTextStyle();
    Kit.DrawTextBox(Text, ClientBox);
}

void VostelTextRect::SetTextAndFit(CString& text)
{
    Text = text;
    ApplyTextStyle();
    PlaceMeasured(TextExtent(Kit.Dc, Text));
}

void VostelTextRect::SetText(CString& text)
{
    Text = text;
}

CRect VostelTextRect::MeasureText(CString& text)
{
    ApplyTextStyle();
    return TextExtent(Kit.Dc, text);
}

void VostelTextRect::SetTextAt(CString& text, CPoint at)
{
    Text = text;
    ApplyTextStyle();
    const CRect extent = TextExtent(Kit.Dc, Text);
    Anchor = at;
    PlaceMeasured(extent);
}

CString VostelTextRect::GetResultText()
{
    return Text;
}

void VostelTextRect::ApplyTextStyle()
{
    switch (StyleFontType) {
    case FontPlain18:
        Kit.TextBoxBack = true;
        Kit.SelectTextStyle(18, Kit.BkMode, Black);
        break;
    case FontPlain24:
        Kit.TextBoxBack = Kit.BkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(24, Kit.BkMode, Black);
        break;
    case FontRed22:
        Kit.TextBoxBack = Kit.BkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(22, Kit.BkMode, Red);
        break;
    case FontRed22Framed:
        Kit.TextBoxBack = true;
        DrawBody = true;
        Kit.SelectTextStyle(22, Kit.BkMode, Red);
        break;
    case FontCustom:
        Kit.BkMode = StyleBkMode;
        Kit.TextColor = StyleColor;
        Kit.FontHeight = StyleHeight;
        Kit.TextBoxBack = StyleBkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(StyleHeight, StyleBkMode, StyleColor);
        break;
    default:
        break;
    }
}

CPoint VostelTextRect::NearestCorner(CPoint p) const
{
    const CPoint corners[4] = {CPoint(ClientBox.left, ClientBox.top), CPoint(ClientBox.right, ClientBox.top),
                               CPoint(ClientBox.left, ClientBox.bottom),
                               CPoint(ClientBox.right, ClientBox.bottom)};
    double       distances[4];
    for (int i = 0; i < 4; ++i) {
        const double dx = static_cast<double>(p.x) - corners[i].x;
        const double dy = static_cast<double>(p.y) - corners[i].y;
        distances[i] = dx * dx + dy * dy;
    }
    for (int i = 0; i < 3; ++i) {
        bool closest = true;
        for (int other = 0; other < 4; ++other)
            closest = closest && (other == i || distances[i] < distances[other]);
        if (closest)
            return corners[i];
    }
    return corners[3];
}

void VostelTextRect::PlaceMeasured(const CRect& extent)
{
    TextWidth = extent.Width();
    TextHeight = extent.Height();
    const PointTemplateBase<double> at = ClientToImage(Anchor);
    VostelSizeFixedRect::SetPlacement(static_cast<float>(at.x), static_cast<float>(at.y),
                                      static_cast<float>(TextWidth), static_cast<float>(TextHeight));
    RefreshClientGeometry();
    if (ClientPoints.size() == 2) {
        ClientBox = NormalisedBox(ClientPoints[0], ClientPoints[1]);
        InflateRect(&ClientBox, 3, 3);
    }
}

}
