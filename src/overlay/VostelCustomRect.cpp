#include "overlay/VostelCustomRect.h"

#include "base/Truncate.h"

namespace vostel {

VostelCustomRect::VostelCustomRect()
{
    TypeCode = OverlayCustomRect;
    DrawBody = true;
}

void VostelCustomRect::OnLButtonDown(unsigned int, CPoint point)
{
    ButtonDown = true;
    LastPoint = point;
    Selected = ExactInterior(point).value_or(PtInRect(&ClientBox, point) != 0);
    if (Selected) {
        BeginMove();
    } else {
        EndMove();
    }
    RefreshClientGeometry();
}

void VostelCustomRect::OnMouseMove(unsigned int flags, CPoint point)
{
    if (IsMoving() && (flags & MK_LBUTTON) != 0 && (flags & MK_CONTROL) == 0) {
        MoveShape(point);
        RefreshClientGeometry();
    }
    LastPoint = point;
}

void VostelCustomRect::SetPlacement(float x, float y, float w, float h)
{
    ImagePoints.clear();
    ImagePoints.emplace_back(TruncToInt(x), TruncToInt(y));
    ImagePoints.emplace_back(TruncToInt(x + w), TruncToInt(y + h));
}

void VostelCustomRect::OnDraw(HDC dc)
{
    Kit.Dc = dc;
    SetPens();
    VostelCustomRect::DerivePainted();
    FillRegion();
    if (DrawBody && (!OpenMade || ClientPoints.size() == 2))
        DrawBox(LineColor());
}

void VostelCustomRect::DerivePainted()
{
    RefreshClientGeometry();
    if (ClientPoints.size() == 2)
        ClientBox = NormalisedBox(ClientPoints[0], ClientPoints[1]);
}

}
