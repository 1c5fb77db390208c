#include "support/GdiObjectCount.h"
#include "support/HostCanvas.h"
#include "support/OpenCanvas.h"

#include <functional>
#include <vector>

TEST_CASE("a thousand objects of every kind, drawn, painted and deleted, leave no GDI object behind")
{
    HostCanvas host(0, 60, 50);
    host.ShowGray(50, 40, [](int x, int y) { return x + y; });
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para.RoiRight = 20;
        para.RoiBottom = 10;
        return true;
    };
    dialogs.ImaGeneralPara = [](tagZEKImaGeneralPara& para, CString&, CString&) {
        para.Value = L"7";
        return true;
    };
    const TestDialogs                           installed(dialogs);
    const std::vector<std::function<void(int)>> adds = {
        gCVSAddMRectangle,
        gCVSAddCustomRectangle,
        gCVSAddPoly,
        gCVSAddSpline,
        gCVSAddFreeRegion,
        gCVSAddFreeStroke,
        [](int canvas) { gCVSAddTextOL(canvas); },
        [](int canvas) { gCVSAddTextOL(canvas, L"a", 20, 20, FontCustom, 2, 255, 12); },
        [](int canvas) { gCVSAddTextOLV2(canvas, L"b", 20, 20, FontRed22Framed, 1, 0, 12); },
        [](int canvas) {
            std::vector<CString> lines = {L"one", L"two"};
            gCVSAddTextML(canvas, lines, 5, 5);
        },
        [](int canvas) { gCVSAddMeasureLine(canvas, 1.0); },
        gCVSAddMeasureAngle3Pts,
        gCVSAddMeasureAngle4Pts,
        gCVSAddInfoWin,
        gCVSAddLineProfile,
        gCVSAddNeighborPV,
    };
    const auto round = [&](std::size_t kind, int count, bool bySelection) {
        for (int i = 0; i < count; ++i) {
            adds[kind](host.Number);
            host.Move(20, 20);
            for (int node = 0; node < 4; ++node) {
                host.Press(15 + 7 * node, 15 + 5 * (node % 2), MK_LBUTTON | MK_SHIFT);
                host.Move(17 + 7 * node, 17 + 5 * (node % 2), MK_LBUTTON | MK_SHIFT);
                host.Release(17 + 7 * node, 17 + 5 * (node % 2));
            }
            host.Paint();
            if (bySelection)
                gCVSDelSelElement(host.Number);
            gCVSDelAllElement(host.Number);
        }
    };
    for (std::size_t kind = 0; kind < adds.size(); ++kind)
        round(kind, 2, true);    // whatever is made once and kept
    for (std::size_t kind = 0; kind < adds.size(); ++kind) {
        const unsigned before = GdiObjectCount();
        round(kind, 500, false);
        round(kind, 500, true);
        CHECK_MESSAGE(GdiObjectCount() == before, "kind ", kind);
    }
    // While it lives, an object may hold a font: the count does see what is made.
    const unsigned before = GdiObjectCount();
    const HPEN     pen = CreatePen(PS_SOLID, 1, 0);
    CHECK(GdiObjectCount() == before + 1);
    DeleteObject(pen);
}

TEST_CASE("events of the open interface on selected objects with text leave no GDI object behind")
{
    const OpenCanvas canvas(80, 60);
    for (const VostelKind kind :
         {VOSTEL_TEXT, VOSTEL_LENGTH, VOSTEL_ANGLE, VOSTEL_PANEL, VOSTEL_NEIGHBOURS}) {
        CAPTURE(kind);
        VostelObject object = 0;
        VostelFrame  frame = {};
        frame.size = sizeof frame;
        REQUIRE(vostel_draw_next(canvas.Number, kind, &object) == VOSTEL_OK);
        REQUIRE(vostel_event_press(canvas.Number, 10, 10, VOSTEL_SHIFT) == VOSTEL_OK);
        REQUIRE(vostel_event_release(canvas.Number, 10, 10, 0) == VOSTEL_OK);
        REQUIRE(vostel_frame_render(canvas.Number, &frame) == VOSTEL_OK);
        const unsigned before = GdiObjectCount();
        for (int i = 0; i < 50; ++i) {
            REQUIRE(vostel_event_move(canvas.Number, i, 20, 0) == VOSTEL_OK);
            REQUIRE(vostel_frame_render(canvas.Number, &frame) == VOSTEL_OK);
        }
        CHECK(GdiObjectCount() == before);
    }
}
