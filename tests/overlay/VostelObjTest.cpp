#include "overlay/VostelObj.h"

#include "support/HostCanvas.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstring>

using namespace vostel;

namespace {

void GivePoints(VostelObj& object)
{
    object.ClientPoints.assign(100, CPoint(1, 2));
    object.ImagePoints.assign(100, PointTemplateBase<double>(1.0, 2.0));
    object.HandleRects.assign(100, CRect(1, 2, 3, 4));
    object.StrokeStarts.assign(100, 5);
}

class RefreshCounter : public VostelObj {
public:
    int         Refreshes = 0;
    CanvasView* SeenView = nullptr;

    void RefreshClientGeometry() override
    {
        ++Refreshes;
        SeenView = View;
    }
};

}

TEST_CASE("a fresh object is idle, empty, unselected and has the family's colors")
{
    const VostelObj object;
    CHECK(object.StyleFontType == FontPlain18);
    CHECK(object.StyleColor == 0);
    CHECK(object.StyleBkMode == 0);
    CHECK(object.StyleHeight == 0);
    CHECK(object.ClientPoints.empty());
    CHECK(object.ImagePoints.empty());
    CHECK(object.HandleRects.empty());
    CHECK(object.StrokeStarts.empty());
    CHECK(object.ClientCount == 0);
    CHECK(object.StrokeBounds == CRect());
    CHECK(object.Kit.TextBoxBack);
    CHECK(object.Kit.DashPeriod == 14);
    CHECK(object.Kit.DashPhase == 0);
    CHECK(object.SurfacePixels == nullptr);
    CHECK(object.View == nullptr);
    CHECK(object.HandleShape == 0);
    CHECK(object.HandleColorSel == 255);
    CHECK(object.HandleColorIdle == 0xff0000);
    CHECK(object.HandleColorAlt == 65535);
    CHECK(object.ShowHandles);
    CHECK(object.LineColorIdle == 0xff0000);
    CHECK(object.LineColorSel == 255);
    CHECK(object.Spare == 0);
    CHECK(object.HandleRadius == 4);
    CHECK(object.LastPoint == CPoint());
    CHECK_FALSE(object.ButtonDown);
    CHECK(object.MoveState == 2);
    CHECK(object.ActiveNode == -1);
    CHECK(object.LastDeltaX == 0.0);
    CHECK(object.LastDeltaY == 0.0);
    CHECK(object.ClickPerPoint == 1);
    CHECK(object.MaxPoints == 10000);
    CHECK_FALSE(object.EllipseMode);
    CHECK(object.ClientBox == CRect());
    CHECK(object.ImageBox == CRect());
    CHECK(object.DrawBody);
    CHECK_FALSE(object.FixedSize);
    CHECK(object.ControlOn);
    CHECK_FALSE(object.MeasureArmed);
    CHECK(object.StrokeWidth == 1);
    CHECK_FALSE(object.Selected);
    CHECK(object.TypeSerial == 0);
    CHECK(object.SerialNo == 0);
    CHECK(object.ClampToImage);
    CHECK(object.OwnerImage == nullptr);
    CHECK(object.HoverPoint == CPoint());
    CHECK(object.Data.Ptr1D == nullptr);
    CHECK(object.Data.OwnPtr1D);
    CHECK(object.Data.OwnPtr2D);
    CHECK(object.MeasureScale == 1.0);
}

TEST_CASE("a press notes its point and no node, a release ends every drag")
{
    VostelObj object;
    object.ActiveNode = 7;
    object.MoveState = 0;
    object.OnLButtonDown(MK_LBUTTON | MK_SHIFT, CPoint(11, -12));
    CHECK(object.ButtonDown);
    CHECK(object.LastPoint == CPoint(11, -12));
    CHECK(object.ActiveNode == -1);
    CHECK(object.MoveState == 0);    // only a release ends it
    object.ActiveNode = 3;
    object.OnLButtonUp(0, CPoint(99, 99));
    CHECK_FALSE(object.ButtonDown);
    CHECK(object.MoveState == 2);
    CHECK(object.ActiveNode == -1);
    CHECK(object.LastPoint == CPoint(11, -12));
}

TEST_CASE("moves and keys do nothing to the base")
{
    VostelObj object;
    GivePoints(object);
    object.OnMouseMove(MK_LBUTTON | MK_SHIFT, CPoint(50, 50));
    object.OnKeyDown('C', 1, 0);
    object.OnKeyDown(VK_TAB, 1, 0);
    CHECK(object.ImagePoints.size() == 100);
    CHECK(object.LastPoint == CPoint());
    CHECK(object.HoverPoint == CPoint());
    CHECK(object.ControlOn);
}

TEST_CASE("ticks of timer 1 run the dash phase through even steps and fall back to 2")
{
    VostelObj object;
    for (int round = 0; round < 3; ++round) {
        for (int phase = 2; phase <= 14; phase += 2) {
            object.OnTimer(1);
            CHECK(object.Kit.DashPhase == phase);
        }
    }
    object.OnTimer(1);
    CHECK(object.Kit.DashPhase == 2);
}

TEST_CASE("a tick of another timer changes nothing")
{
    VostelObj object;
    object.Kit.DashPhase = 6;
    for (const std::uint64_t id :
         {std::uint64_t(0), std::uint64_t(2), std::uint64_t(0x100000001), ~std::uint64_t(0)})
        object.OnTimer(id);
    CHECK(object.Kit.DashPhase == 6);
    object.OnTimer(1);
    CHECK(object.Kit.DashPhase == 8);
}

TEST_CASE("a dash period of 0 does no harm")
{
    VostelObj object;
    object.Kit.DashPeriod = 0;
    object.OnTimer(1);
    CHECK(object.Kit.DashPhase == 0);
}

TEST_CASE("a view is stored before the geometry is refreshed")
{
    RefreshCounter object;
    CanvasView     view;
    object.SetCanvasView(&view);
    CHECK(object.View == &view);
    CHECK(object.Refreshes == 1);
    CHECK(object.SeenView == &view);
    object.SetCanvasView(nullptr);
    CHECK(object.View == nullptr);
    CHECK(object.Refreshes == 2);
}

TEST_CASE("the base is never hit and leaves the selection alone")
{
    VostelObj object;
    object.ClientBox = CRect(0, 0, 100, 100);
    CHECK_FALSE(object.HitTest(CPoint(50, 50)));
    CHECK_FALSE(object.Selected);
    object.Selected = true;
    CHECK_FALSE(object.HitTest(CPoint(50, 50)));
    CHECK(object.Selected);
}

TEST_CASE("the base draws nothing but binds its kit to the target")
{
    TestDesktop  desktop;
    MemoryWindow window(30, 20);
    window.Fill(0x335577);
    VostelObj    object;
    unsigned int pixel = 0;
    GivePoints(object);
    object.ClientBox = CRect(2, 2, 20, 15);
    object.Selected = true;
    object.SurfacePixels = &pixel;
    object.OnDraw(window.Dc);
    CHECK(object.Kit.Dc == window.Dc);
    CHECK(object.Kit.PixelPtr == &pixel);
    CHECK(object.Kit.BmpWidth == 30);
    CHECK(object.Kit.BmpHeight == 20);
    CHECK(FrameDifference(window.Capture(), Frame(30, 20, 0x335577)) == "");
    CHECK(desktop.Messages.empty());
    object.OnDraw(nullptr);
    CHECK(desktop.Messages == std::vector<CString>{L"No bmp"});
    CHECK(object.Kit.BmpWidth == 30);
}

TEST_CASE("setters store their values, and those of descendants do nothing here")
{
    VostelObj object;
    object.SetHandleColors(0x111111, 0x222222);
    CHECK(object.HandleColorSel == 0x111111);
    CHECK(object.HandleColorAlt == 0x222222);
    CHECK(object.HandleColorIdle == 0xff0000);
    object.SetHandleShape(1);
    CHECK(object.HandleShape == 1);
    object.SetHandleRadius(9);
    CHECK(object.HandleRadius == 9);
    object.SetClickPerPoint(0);
    CHECK(object.ClickPerPoint == 1);
    object.SetMaxPoints(3);
    CHECK(object.MaxPoints == 10000);
    object.SetPlacement(1.0f, 2.0f, 3.0f, 4.0f);
    CHECK(object.ClientBox == CRect());
    object.ReservedOp();
    CHECK(object.ReservedCheck());
    int owner = 0;
    object.SetOwnerImage(reinterpret_cast<ImageValues*>(&owner));
    CHECK(object.OwnerImage == reinterpret_cast<ImageValues*>(&owner));
}

TEST_CASE("text operations of the base change no text and measure nothing")
{
    VostelObj            object;
    CString              text = L"abc";
    std::vector<CString> lines = {L"one", L"two"};
    object.SetTextAndFit(text);
    object.SetText(text);
    object.SetTextAt(text, CPoint(3, 4));
    object.SetTextLines(lines);
    object.AddTextLine(text);
    CHECK(object.MeasureText(text) == CRect());
    CHECK(text == L"abc");
    CHECK(lines.size() == 2);
    CHECK(object.GetResultText() == L"NULL");
}

TEST_CASE("a move begins with the whole shape as the active node and lasts until a release")
{
    VostelObj object;
    CHECK_FALSE(object.IsMoving());
    object.BeginMove();
    CHECK(object.IsMoving());
    CHECK(object.MoveState == 0);
    CHECK(object.ActiveNode == -2);
    object.OnLButtonUp(0, CPoint());
    CHECK_FALSE(object.IsMoving());
}

TEST_CASE("outlines of the base are true and leave the vector alone")
{
    VostelObj                           object;
    std::vector<PointTemplateBase<int>> out(2, PointTemplateBase<int>(7, 8));
    GivePoints(object);
    CHECK(object.GetLabelOutline(out));
    CHECK(object.GetImagePoints(out));
    CHECK(object.GetImagePolygon(out));
    REQUIRE(out.size() == 2);
    CHECK(out[1].x == 7);
    CHECK(out[1].y == 8);
}

TEST_CASE("cleared point lists keep no storage")
{
    VostelObj object;
    GivePoints(object);
    object.ClearPoints();
    CHECK(object.ClientPoints.empty());
    CHECK(object.ImagePoints.empty());
    CHECK(object.HandleRects.empty());
    CHECK(object.StrokeStarts.empty());
    CHECK(object.ClientPoints.capacity() == 0);
    CHECK(object.ImagePoints.capacity() == 0);
    CHECK(object.HandleRects.capacity() == 0);
    CHECK(object.StrokeStarts.capacity() == 0);
    object.ClearPoints();
    CHECK(object.ImagePoints.empty());
}

TEST_CASE("data is copied into the object's own plane")
{
    VostelObj            object;
    ClassData2DIO<float> plane;
    plane.Allocate(3, 2);
    for (int i = 0; i < 6; ++i)
        plane.Ptr1D[i] = static_cast<float>(i);
    object.SetData(plane);
    CHECK(object.Data.Width == 3);
    CHECK(object.Data.Height == 2);
    CHECK(object.Data.Ptr1D != plane.Ptr1D);
    CHECK(object.Data.Ptr2D[1][2] == 5.0f);
    object.SetData(object.Data);
    CHECK(object.Data.Ptr2D[1][2] == 5.0f);
}

TEST_CASE("data of 0 by 0 leaves the plane allocated at that size")
{
    VostelObj            object;
    ClassData2DIO<float> empty;
    empty.Allocate(0, 0);
    object.SetData(empty);
    CHECK(object.Data.Width == 0);
    CHECK(object.Data.Height == 0);
    CHECK(object.Data.Ptr1D != nullptr);
    ClassData2DIO<float> fresh;
    object.SetData(fresh);
    CHECK(object.Data.Width == 0);
    CHECK(object.Data.Ptr1D != nullptr);
}

TEST_CASE("conversions are those of the view")
{
    TestDesktop desktop;
    CanvasView  view;
    view.Scale = 2.5;
    view.DisplayRect = CRect(-3, 7, 100, 100);
    VostelObj object;
    object.SetCanvasView(&view);
    CHECK(object.ClientToImage(CPoint(1, 6)).x == 4 / 2.5);
    CHECK(object.ClientToImage(CPoint(1, 6)).y == -1 / 2.5);
    CHECK(object.ImageToClient({1.9, 0.5}) == CPoint(1, 8));
    CHECK(object.ImageToClient({1.0, -4.0}) == CPoint(0, -3));
    CHECK(desktop.Messages.empty());
}

TEST_CASE("a conversion without a view says so and goes on with 0, 0")
{
    TestDesktop desktop;
    VostelObj   object;
    CHECK(object.ClientToImage(CPoint(5, 6)).x == 0.0);
    CHECK(desktop.Messages == std::vector<CString>{L"显示信息未提供"});
    CHECK(object.ClientToImage(CPoint(5, 6)).y == 0.0);
    CHECK(object.ImageToClient({5.0, 6.0}) == CPoint(0, 0));
    CHECK(desktop.Messages.size() == 3);
}

TEST_CASE("an object deleted through its base frees what it holds")
{
    MemoryWindow window(10, 10);
    TestDesktop  desktop;
    const DWORD  before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    VostelObj*   object = new RefreshCounter;
    GivePoints(*object);
    ClassData2DIO<float> plane;
    plane.Allocate(50, 50);
    std::memset(plane.Ptr1D, 0, 50 * 50 * sizeof(float));
    object->SetData(plane);
    object->OnDraw(window.Dc);
    object->Kit.SelectTextStyle(18, 1, 0);
    delete object;
    CHECK(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS) == before);
    CHECK(GetCurrentObject(window.Dc, OBJ_FONT) == GetStockObject(DEFAULT_GUI_FONT));
}
