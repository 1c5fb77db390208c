#include "instruments/VostelTextRect.h"

#include "base/Truncate.h"
#include "instruments/TextExtent.h"
#include "overlay/StateArchive.h"

#include <algorithm>
#include <array>

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

void VostelTextRect::OnLButtonDown(unsigned int flags, CPoint point)
{
    if (OpenMade && View && ImagePoints.empty() && (flags & MK_SHIFT) != 0)
        PlaceCorner(ClientToImage(point), TextWidth, TextHeight);
    VostelSizeFixedRect::OnLButtonDown(flags, point);
}

void VostelTextRect::RefreshClientGeometry()
{
    VostelSizeFixedRect::RefreshClientGeometry();
    if (OpenMade && ClientPoints.size() == 2)
        InflateRect(&ClientBox, Scaled(3), Scaled(3));
}

void VostelTextRect::OnDraw(HDC dc)
{
    if (OpenMade && ImagePoints.empty())
        return;
    if (FittedHeight != 0 && FittedHeight != FontHeight())
        TakeText(CString(Text));
    VostelSizeFixedRect::OnDraw(dc);
    ApplyTextStyle();
    Kit.DrawTextBox(Text, ClientBox);
}

void VostelTextRect::SetTextAndFit(CString& text)
{
    Text = text;
    PlaceMeasured(Fit());
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
    const CRect extent = Fit();
    Anchor = at;
    PlaceMeasured(extent);
}

CString VostelTextRect::GetResultText()
{
    return Text;
}

// A paint leaves the box grown by the margin of its fill.
void VostelTextRect::DerivePainted()
{
    if (FittedHeight != 0 && FittedHeight != FontHeight())
        TakeText(CString(Text));
    VostelSizeFixedRect::DerivePainted();
    if (ClientPoints.size() == 2)
        InflateRect(&ClientBox, Scaled(3), Scaled(3));
}

std::vector<PointTemplateBase<double>> VostelTextRect::GivePoints() const
{
    if (ImagePoints.empty())
        return {};
    return {ImagePoints[0]};
}

bool VostelTextRect::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    if (points.size() != 1)
        return false;
    PlaceCorner(points[0], TextWidth, TextHeight);
    EndMove();
    return true;
}

std::optional<Outline> VostelTextRect::RegionOutline() const
{
    return std::nullopt;
}

CString VostelTextRect::CaptionText() const
{
    return Text;
}

bool VostelTextRect::TakeText(const CString& text)
{
    Text = text;
    const MeasuringContext context(Kit);
    const CRect            extent = Fit();
    TextWidth = extent.Width();
    TextHeight = extent.Height();
    if (!ImagePoints.empty())
        PlaceCorner(ImagePoints[0], TextWidth, TextHeight);
    return true;
}

// The style says only in part whether there is a frame and a background: what was set before stays.
void VostelTextRect::Persist(StateArchive& archive)
{
    VostelSizeFixedRect::Persist(archive);
    archive(Text, Anchor, TextWidth, TextHeight, DrawBody, Kit.BkMode, PlainHeight, FittedHeight);
}

void VostelTextRect::PlaceCaption(const CString& text, CPoint at, int height)
{
    OpenMade = true;
    TakePoints(std::array{ClientToImage(at)});
    ShowCaption(text, height);
    if (!View)
        return;
    const CRect& client = View->ClientRect;
    const int    across = WrapSub(ClientBox.right, ClientBox.left);
    const int    down = WrapSub(ClientBox.bottom, ClientBox.top);
    const LONG   left =
        std::max<LONG>(client.left, std::min<LONG>(ClientBox.left, WrapSub(client.right, across)));
    const LONG top = std::max<LONG>(client.top, std::min<LONG>(ClientBox.top, WrapSub(client.bottom, down)));
    MoveBy((static_cast<double>(left) - ClientBox.left) / View->Scale,
           (static_cast<double>(top) - ClientBox.top) / View->Scale);
}

void VostelTextRect::ShowCaption(const CString& text, int height)
{
    PlainHeight = height > 0 ? height : 18;
    if (text != Text || FittedHeight != FontHeight())
        TakeText(text);
}

void VostelTextRect::PersistCaption(StateArchive& archive, bool follows)
{
    if (!follows) {
        Persist(archive);
        return;
    }
    std::vector<PointTemplateBase<double>> corner = GivePoints();
    archive(corner);
    if (!archive.IsLoading() || corner.empty())
        return;
    OpenMade = true;
    PlaceCorner(corner[0], TextWidth, TextHeight);
}

int VostelTextRect::FontHeight() const
{
    switch (StyleFontType) {
    case FontPlain18:
        return Scaled(PlainHeight);
    case FontPlain24:
        return Scaled(24);
    case FontRed22:
    case FontRed22Framed:
        return Scaled(22);
    case FontCustom:
        return Scaled(StyleHeight);
    default:
        return FittedHeight;
    }
}

void VostelTextRect::ApplyTextStyle()
{
    switch (StyleFontType) {
    case FontPlain18:
        Kit.TextBoxBack = true;
        Kit.SelectTextStyle(FontHeight(), Kit.BkMode, Black);
        break;
    case FontPlain24:
        Kit.TextBoxBack = Kit.BkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(FontHeight(), Kit.BkMode, Black);
        break;
    case FontRed22:
        Kit.TextBoxBack = Kit.BkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(FontHeight(), Kit.BkMode, Red);
        break;
    case FontRed22Framed:
        Kit.TextBoxBack = true;
        DrawBody = true;
        Kit.SelectTextStyle(FontHeight(), Kit.BkMode, Red);
        break;
    case FontCustom:
        Kit.BkMode = StyleBkMode;
        Kit.TextColor = StyleColor;
        Kit.FontHeight = StyleHeight;
        Kit.TextBoxBack = StyleBkMode == OPAQUE;
        DrawBody = false;
        Kit.SelectTextStyle(FontHeight(), StyleBkMode, StyleColor);
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

void VostelTextRect::MoveBy(double dx, double dy)
{
    if (!ImagePoints.empty())
        PlaceCorner({ImagePoints[0].x + dx, ImagePoints[0].y + dy}, TextWidth, TextHeight);
}

void VostelTextRect::PlaceCorner(PointTemplateBase<double> corner, int width, int height)
{
    TextWidth = width;
    TextHeight = height;
    ImagePoints.assign({corner, {corner.x + width, corner.y + height}});
    if (!View)
        return;
    Anchor = View->ImageToClient(corner);
    DerivePainted();
}

CRect VostelTextRect::Fit()
{
    ApplyTextStyle();
    FittedHeight = FontHeight();
    return TextExtent(Kit.Dc, Text);
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
        InflateRect(&ClientBox, Scaled(3), Scaled(3));
    }
}

}
