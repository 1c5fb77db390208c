#include "instruments/VostelMarking.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "geometry/Lengths.h"
#include "instruments/CaptionTexts.h"
#include "overlay/StateArchive.h"

#include <algorithm>
#include <cmath>

namespace vostel {

namespace {

const CPoint FirstLabelOffset(16, -40);    // px from the upper right corner of the points

}

VostelMarking::VostelMarking()
{
    OpenMade = true;
}

void VostelMarking::OnLButtonDown(unsigned int flags, CPoint point)
{
    const bool shift = (flags & MK_SHIFT) != 0;
    LabelHit = !shift && Label.Hits(point) && HitRectList(HandleRects, point) == -1;
    if (LabelHit) {
        Selected = ButtonDown = ShowHandles = true;
        LastPoint = point;
        EndMove();
        Label.OnLButtonDown(flags, point);
        return;
    }
    VostelMPoint::OnLButtonDown(flags, point);
    if (shift)
        PlaceLabelAgain();
}

void VostelMarking::OnMouseMove(unsigned int flags, CPoint point)
{
    if (LabelHit) {
        LabelDragged = LabelDragged || (Label.IsMoving() && point != LastPoint);
        VostelCaptioned::OnMouseMove(flags, point);
        return;
    }
    const ImagePoint before = CentroidOfPoints(ImagePoints);
    VostelMPoint::OnMouseMove(flags, point);
    if ((flags & MK_SHIFT) != 0 && ActiveNode >= 0) {
        PlaceLabelAgain();
    } else if (IsMoving() && IsLabelPlaced()) {
        const ImagePoint now = CentroidOfPoints(ImagePoints);
        Label.MoveBy(now.x - before.x, now.y - before.y);
    }
}

void VostelMarking::OnKeyDown(unsigned int, unsigned int, unsigned int) {}

bool VostelMarking::Covers(CPoint point) const
{
    return VostelCaptioned::Covers(point) || HitsMark(point);
}

void VostelMarking::OnDraw(HDC dc)
{
    BindKit(dc);
    if (ClientPoints.empty())
        return;
    DrawMark();
    VostelMPoint::OnDraw(dc);
    if (IsLabelPlaced())
        DrawLabel(dc, NearestToLabel());
}

void VostelMarking::Persist(StateArchive& archive)
{
    VostelCaptioned::Persist(archive);
    archive(LabelDragged);
}

CString VostelMarking::LengthText() const
{
    const double          length = LengthOf(ImagePoints);
    const CanvasSettings* settings = Settings();
    return settings ? LengthCaption(length * settings->UnitsPerPixel, settings->Unit, settings)
                    : LengthCaption(length, L"px", settings);
}

void VostelMarking::PlaceFirstLabel()
{
    CPoint corner = ClientPoints[0];
    for (const CPoint& point : ClientPoints)
        corner = CPoint(std::max(corner.x, point.x), std::min(corner.y, point.y));
    PlaceLabel(static_cast<float>(WrapAdd(corner.x, Scaled(FirstLabelOffset.x))),
               static_cast<float>(WrapAdd(corner.y, Scaled(FirstLabelOffset.y))), 0.0f, 0.0f);
}

void VostelMarking::PlaceLabelAgain()
{
    if (!LabelDragged && View && !ClientPoints.empty())
        PlaceFirstLabel();
}

CPoint VostelMarking::NearestToLabel() const
{
    const auto distance = [&](const CPoint& point) {
        const CPoint corner = Label.NearestCorner(point);
        return std::hypot(static_cast<double>(point.x) - corner.x, static_cast<double>(point.y) - corner.y);
    };
    return *std::min_element(ClientPoints.begin(), ClientPoints.end(),
                             [&](const CPoint& a, const CPoint& b) { return distance(a) < distance(b); });
}

}
