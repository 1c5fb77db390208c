#include "canvas/view/CanvasView.h"

#include "base/Truncate.h"

namespace vostel {

namespace {

// A zoom limit that acts on both ends: visible image rows when zooming in, displayed pixels when zooming
// out.
constexpr int SmallestExtent = 4;

int Middle(LONG low, LONG high)
{
    return static_cast<int>((static_cast<long long>(low) + high) / 2);
}

// Differences of client coordinates need 33 bits: far zoomed views come close to the limits.
long long Extent(LONG low, LONG high)
{
    return static_cast<long long>(high) - low;
}

// The quotient is rounded to float, then widened; the next resize depends on it. Without an extent
// the anchor stays.
void RefreshAnchor(double& anchor, int centre, LONG low, LONG high)
{
    const long long extent = Extent(low, high);
    if (extent == 0)
        return;
    const float fraction = static_cast<float>(Extent(Middle(low, high), centre)) / static_cast<float>(extent);
    anchor = static_cast<double>(fraction);
}

}

void CanvasView::SetClientRect(CRect rect)
{
    ClientRect = rect;
    const int middleX = Middle(rect.left, rect.right);
    const int middleY = Middle(rect.top, rect.bottom);
    if (FirstClient) {
        CentreX = middleX;
        CentreY = middleY;
        FirstClient = false;
    } else {
        CentreX = TruncToInt(static_cast<double>(Extent(rect.left, rect.right)) * AnchorX + middleX);
        CentreY = TruncToInt(static_cast<double>(Extent(rect.top, rect.bottom)) * AnchorY + middleY);
    }
    SourceRect.left = WrapSub(CentreX, ImageWidth / 2);
    SourceRect.right = WrapAdd(SourceRect.left, ImageWidth);
    SourceRect.top = WrapSub(CentreY, ImageHeight / 2);
    SourceRect.bottom = WrapAdd(SourceRect.top, ImageHeight);
    RefreshDisplayRect();
}

void CanvasView::PlaceCentre(double scale, int centreX, int centreY)
{
    AnyScale = true;
    Scale = scale;
    CentreX = centreX;
    CentreY = centreY;
    RefreshDisplayRect();
    RefreshAnchors();
}

void CanvasView::OnViewMouseMove(unsigned int flags, CPoint p)
{
    if (LeftDown && (flags & MK_CONTROL) != 0) {
        if (MoveMode != DisplayFixed) {
            CentreX = WrapAdd(CentreX, WrapSub(p.x, LastPoint.x));
            CentreY = WrapAdd(CentreY, WrapSub(p.y, LastPoint.y));
        }
        // Only while Control is down: pressing it in the middle of a drag jumps by the distance from the
        // press, which is intended.
        LastPoint = p;
        RefreshDisplayRect();
    }
    RefreshAnchors();
}

int CanvasView::OnViewMouseWheel(unsigned int flags, short delta, CPoint p)
{
    if ((flags & MK_CONTROL) == 0)
        return 0;
    const double old = Scale;
    if (MoveMode != DisplayFixed) {
        // The two limits look at different things: zooming in at the rows that the last blit showed,
        // zooming out at the whole image on the screen.
        if (delta > 0 && Extent(SourceRect.top, SourceRect.bottom) > SmallestExtent)
            Scale = Scale * ZoomFactor;
        if (delta < 0 && Extent(DisplayRect.left, DisplayRect.right) > SmallestExtent &&
            Extent(DisplayRect.top, DisplayRect.bottom) > SmallestExtent)
            Scale = Scale / ZoomFactor;
    }
    if (MoveMode == DisplayZoomCursor) {
        CentreX = TruncToInt(p.x - static_cast<double>(Extent(CentreX, p.x)) * Scale / old);
        CentreY = TruncToInt(p.y - static_cast<double>(Extent(CentreY, p.y)) * Scale / old);
    }
    RefreshDisplayRect();
    RefreshAnchors();
    return 1;
}

PointTemplateBase<double> CanvasView::ClientToImage(CPoint p) const
{
    return PointTemplateBase<double>(static_cast<double>(Extent(DisplayRect.left, p.x)) / Scale,
                                     static_cast<double>(Extent(DisplayRect.top, p.y)) / Scale);
}

CPoint CanvasView::ImageToClient(PointTemplateBase<double> q) const
{
    return CPoint(TruncToInt(q.x * Scale + DisplayRect.left), TruncToInt(q.y * Scale + DisplayRect.top));
}

// The sums are taken in double before truncating, so that right minus left may differ from the truncated
// width by one.
void CanvasView::RefreshDisplayRect()
{
    const double width = ImageWidth * Scale;
    const double height = ImageHeight * Scale;
    const double left = CentreX - width * 0.5;
    const double top = CentreY - height * 0.5;
    DisplayRect.left = TruncToInt(left);
    DisplayRect.top = TruncToInt(top);
    DisplayRect.right = TruncToInt(left + width);
    DisplayRect.bottom = TruncToInt(top + height);
}

void CanvasView::RefreshAnchors()
{
    RefreshAnchor(AnchorX, CentreX, ClientRect.left, ClientRect.right);
    RefreshAnchor(AnchorY, CentreY, ClientRect.top, ClientRect.bottom);
}

}
