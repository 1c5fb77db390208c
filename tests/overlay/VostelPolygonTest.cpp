#include "overlay/VostelPolygon.h"

#include "support/OverlayCanvas.h"

using namespace vostel;

TEST_CASE("a polygon's outline closes from the last node to the first, red while selected and blue otherwise")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddPoly, {CPoint(20, 20), CPoint(60, 20), CPoint(60, 50), CPoint(20, 50)});
    host.Paint();
    for (const CPoint at : {host.At(40, 20), host.At(60, 35), host.At(40, 50), host.At(20, 35)})
        CHECK(host.Pixel(at.x, at.y) == RedPixel);
    CHECK(host.Pixel(host.At(40, 35).x, host.At(40, 35).y) == 0x404040);
    host.Press(2, 2);
    host.Release(2, 2);
    host.Paint();
    for (const CPoint at : {host.At(40, 20), host.At(60, 35), host.At(40, 50), host.At(20, 35)})
        CHECK(host.Pixel(at.x, at.y) == BluePixel);
}

TEST_CASE("two nodes show as one line, one node as a handle alone")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddPoly, {CPoint(20, 20)});
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    polygon.HandleColorSel = 0x00FF00;
    CHECK(host.CountPixels(RedPixel) == 0);
    CHECK(host.CountPixels(0x00FF00) > 10);
    host.Node(60, 20);
    polygon.ShowHandles = false;
    CHECK(host.CountPixels(RedPixel) == 41);
}

TEST_CASE("a polygon's region follows its image points")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddPoly, {CPoint(20, 20), CPoint(60, 20), CPoint(60, 50), CPoint(20, 50)});
    CHECK(host.CountLabels(1) == 41 * 31);
    host.DragOf(CPoint(40, 35), CPoint(42, 36));
    CHECK(host.CountLabels(1) == 41 * 31);
    // Rows of the plane count from the bottom.
    CHECK(gCVSGetLabelImaPtr2D(host.Number)[79 - 21][22] == 1);
    CHECK(gCVSGetLabelImaPtr2D(host.Number)[79 - 20][22] == 0);
    host.DragOf(CPoint(22, 21), CPoint(12, 21));
    CHECK(host.CountLabels(1) > 41 * 31);
}

TEST_CASE("a polygon has no result text, with nodes or without")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    CHECK(host.Last().GetResultText() == L"NULL");
    host.Hover();
    host.Node(20, 20);
    host.Node(60, 20);
    host.Node(60, 50);
    CHECK(host.Last().GetResultText() == L"NULL");
}
