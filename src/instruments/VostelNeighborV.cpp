#include "instruments/VostelNeighborV.h"

#include "base/Truncate.h"
#include "canvas/view/ImageValues.h"
#include "foundation/FormatText.h"

namespace vostel {

VostelNeighborV::VostelNeighborV()
{
    TypeCode = OverlayNeighbours;
}

void VostelNeighborV::OnLButtonDown(unsigned int flags, CPoint point)
{
    Box.OnLButtonDown(flags, point);
}

void VostelNeighborV::OnLButtonUp(unsigned int flags, CPoint point)
{
    Box.OnLButtonUp(flags, point);
}

void VostelNeighborV::OnMouseMove(unsigned int flags, CPoint point)
{
    if (OwnerImage) {
        Box.ClearLines();
        for (int dy = -2; dy <= 2; ++dy) {
            double values[5];
            for (int k = -2; k <= 2; ++k)
                values[k + 2] = static_cast<double>(
                    OwnerImage->ReadPixelValue(CPoint(WrapAdd(point.x, k), WrapAdd(point.y, dy))));
            Box.AddTextLine(FormatText(L"%5.2f %5.2f %5.2f %5.2f %5.2f", values[0], values[1], values[2],
                                       values[3], values[4]));
        }
    }
    Box.OnMouseMove(flags, point);
}

void VostelNeighborV::SetCanvasView(CanvasView* view)
{
    VostelObj::SetCanvasView(view);
    Box.SetCanvasView(view);
}

bool VostelNeighborV::Covers(CPoint point) const
{
    return Box.Hits(point);
}

bool VostelNeighborV::HitTest(CPoint point)
{
    Box.HitTest(point);
    return Hits(point);
}

void VostelNeighborV::SetPlacement(float x, float y, float w, float h)
{
    Box.SetPlacement(x, y, w, h);
}

void VostelNeighborV::OnDraw(HDC dc)
{
    BindKit(dc);
    if (OwnerImage && OwnerImage->ShownType() != FileTypeNone)
        Box.OnDraw(dc);
}

void VostelNeighborV::DerivePainted()
{
    Box.DerivePainted();
}

std::vector<PointTemplateBase<double>> VostelNeighborV::GivePoints() const
{
    return Box.GivePoints();
}

bool VostelNeighborV::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    return Box.TakePoints(points);
}

CString VostelNeighborV::CaptionText() const
{
    return Box.CaptionText();
}

void VostelNeighborV::Persist(StateArchive& archive)
{
    VostelObj::Persist(archive);
    Box.VostelMovableRect::Persist(archive);
}

}
