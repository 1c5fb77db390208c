#include "instruments/VostelFixedRect.h"

#include "base/Truncate.h"
#include "overlay/StateArchive.h"

namespace vostel {

namespace {

constexpr unsigned int ToggleKey = VK_TAB;
constexpr unsigned int RecallKey = 'X';    // brings a control that was placed out of sight back

}

VostelFixedRect::VostelFixedRect()
{
    FixedSize = true;
}

void VostelFixedRect::OnMouseMove(unsigned int, CPoint) {}

void VostelFixedRect::OnKeyDown(unsigned int key, unsigned int, unsigned int)
{
    if (key == ToggleKey)
        ControlOn = !ControlOn;
    else if (key == RecallKey)
        SetPlacement(20.0f, 20.0f, 400.0f, 30.0f);
}

// The refresh comes before the new rectangle on purpose: inner rectangles of a control lag one refresh behind
// a change of client size.
void VostelFixedRect::SetCanvasView(CanvasView* view)
{
    View = view;
    RefreshClientGeometry();
    UpdateAnchoredRect();
}

void VostelFixedRect::RefreshClientGeometry() {}

bool VostelFixedRect::Covers(CPoint point) const
{
    return PtInRect(&ClientBox, point) != 0;
}

void VostelFixedRect::SetPlacement(float x, float y, float w, float h)
{
    LeftMargin = TruncToInt(x);
    BottomMargin = TruncToInt(y);
    FixedWidth = TruncToInt(w);
    FixedHeight = TruncToInt(h);
    UpdateAnchoredRect();
    RefreshClientGeometry();
}

void VostelFixedRect::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.FillSolid(ClientBox, ControlFace);
}

void VostelFixedRect::Persist(StateArchive& archive)
{
    VostelObj::Persist(archive);
    archive(LeftMargin, BottomMargin, FixedWidth, FixedHeight);
}

void VostelFixedRect::UpdateAnchoredRect()
{
    if (!View)
        return;
    const CRect& client = View->ClientRect;
    ClientBox.left = Scaled(LeftMargin);
    ClientBox.right = WrapAdd(ClientBox.left, Scaled(FixedWidth));
    ClientBox.bottom = WrapSub(WrapSub(WrapSub(client.bottom, Scaled(BottomMargin)), client.top), 1);
    ClientBox.top = WrapSub(ClientBox.bottom, Scaled(FixedHeight));
}

}
