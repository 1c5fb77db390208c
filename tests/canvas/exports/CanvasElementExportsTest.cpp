#include "instruments/VostelImaInfo.h"
#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "instruments/VostelNeighborV.h"
#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"
#include "support/OverlayCanvas.h"

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

using namespace vostel;

namespace {

struct Command {
    const char*              Name;
    std::function<void(int)> Add;
    const std::type_info&    Class;
    int                      Kind;
    bool                     Region;
    int VostelDC::*Count;    // null: the kind has no counter
};

std::vector<Command> AllCommands()
{
    return {
        {"rectangle", gCVSAddMRectangle, typeid(VostelRect), 0, true, &VostelDC::RectCount},
        {"custom rectangle",
         [](int canvas) {
             TessikDialogs dialogs;
             dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
                 para.RoiRight = 20;
                 para.RoiBottom = 10;
                 return true;
             };
             const TestDialogs installed(dialogs);
             gCVSAddCustomRectangle(canvas);
         },
         typeid(VostelCustomRect), 1, true, &VostelDC::CustomRectCount},
        {"polygon", gCVSAddPoly, typeid(VostelPolygon), 3, true, &VostelDC::PolygonCount},
        {"spline", gCVSAddSpline, typeid(VostelSpline), 4, true, &VostelDC::SplineCount},
        {"free region", gCVSAddFreeRegion, typeid(VostelCrayonOneStroke), 5, true, &VostelDC::OneStrokeCount},
        {"text", [](int canvas) { gCVSAddTextOL(canvas, L"text", 20, 20, FontRed22Framed, 1, 0, 20); },
         typeid(VostelTextRect), 6, false, &VostelDC::TextCount},
        {"image text",
         [](int canvas) { gCVSAddTextOLV2(canvas, L"text", 20, 20, FontRed22Framed, 1, 0, 20); },
         typeid(VostelTextRect), 6, false, &VostelDC::TextCount},
        {"free stroke", gCVSAddFreeStroke, typeid(VostelCrayonMStroke), 7, false, &VostelDC::MStrokeCount},
        {"measure line", [](int canvas) { gCVSAddMeasureLine(canvas, 1.0); }, typeid(VostelMeasureLine), 8,
         false, &VostelDC::MeasureLineCount},
        {"angle of 3", gCVSAddMeasureAngle3Pts, typeid(VostelMeasureAngle3Pts), 9, false,
         &VostelDC::Angle3Count},
        {"angle of 4", gCVSAddMeasureAngle4Pts, typeid(VostelMeasureAngle4Pts), 10, false,
         &VostelDC::Angle4Count},
        {"text lines",
         [](int canvas) {
             std::vector<CString> lines = {L"one", L"two"};
             gCVSAddTextML(canvas, lines, 10, 10);
         },
         typeid(VostelTextML), 14, false, nullptr},
        {"read-out", gCVSAddInfoWin, typeid(VostelImaInfo), 14, false, nullptr},
        {"neighbours", gCVSAddNeighborPV, typeid(VostelNeighborV), 15, false, nullptr},
        {"profile", gCVSAddLineProfile, typeid(VostelLineProfile), 16, false, nullptr},
    };
}

}

TEST_CASE("every command puts an object of its class on top, numbered and selected")
{
    OverlayCanvas host;
    VostelImage&  canvas = host.Canvas();
    for (int round = 0; round < 2; ++round) {
        for (const Command& command : AllCommands()) {
            INFO(command.Name);
            const std::size_t before = canvas.Elements.size();
            const int         regions = canvas.RegionSerial;
            const int         elements = canvas.ElementSerial;
            const int         count = command.Count ? canvas.*command.Count : 0;
            command.Add(host.Number);
            REQUIRE(canvas.Elements.size() == before + 1);
            const VostelObj& made = *canvas.Elements.back();
            CHECK(typeid(made) == command.Class);
            CHECK(made.TypeCode == command.Kind);
            CHECK(made.SerialNo == (command.Region ? regions : elements));
            CHECK(canvas.RegionSerial == regions + (command.Region ? 1 : 0));
            CHECK(canvas.ElementSerial == elements + 1);
            CHECK(made.TypeSerial == count);
            if (command.Count)
                CHECK(canvas.*command.Count == count + 1);
            CHECK(canvas.SelIndex == static_cast<int>(before));
            CHECK(made.Selected == (command.Kind != OverlayMeasureLine));
        }
    }
}

TEST_CASE("a rectangle after three texts gets serial number 0, and the element serial is 4")
{
    OverlayCanvas host;
    for (int i = 0; i < 3; ++i)
        gCVSAddTextOL(host.Number, L"text", 20, 20, FontRed22Framed, 1, 0, 20);
    CHECK(host.Last().SerialNo == 2);
    gCVSAddMRectangle(host.Number);
    CHECK(host.Last().SerialNo == 0);
    CHECK(host.Canvas().ElementSerial == 4);
    CHECK(host.Canvas().RegionSerial == 1);
    gCVSAddFreeStroke(host.Number);
    CHECK(host.Last().SerialNo == 4);
    gCVSAddPoly(host.Number);
    CHECK(host.Last().SerialNo == 1);
    CHECK(host.Last().TypeSerial == 0);
}

TEST_CASE("shapes wait for their view, text and read-outs have it at once")
{
    OverlayCanvas host;
    for (const Command& command : AllCommands()) {
        INFO(command.Name);
        command.Add(host.Number);
        const int  kind = host.Last().TypeCode;
        const bool atOnce = kind == OverlayTextRect || kind >= OverlayPanel;
        CHECK((host.Last().View != nullptr) == atOnce);
        host.Hover();
        CHECK(host.Last().View == &host.Canvas().View);
    }
}

TEST_CASE("wheel and client size hand the view over as a move does")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    CHECK(host.Last().View == nullptr);
    host.SetClient(200, 160);
    CHECK(host.Last().View == &host.Canvas().View);
    gCVSAddPoly(host.Number);
    host.Wheel(10, 10, 120, 0);
    CHECK(host.Last().View == &host.Canvas().View);
}

TEST_CASE("read-outs take their place and the image at once")
{
    OverlayCanvas host;
    for (const auto add : {gCVSAddInfoWin, gCVSAddLineProfile, gCVSAddNeighborPV}) {
        add(host.Number);
        CHECK(host.Last().OwnerImage == &host.Canvas());
        CHECK(host.Last().View == &host.Canvas().View);
    }
    gCVSAddPoly(host.Number);
    CHECK(host.Last().OwnerImage == nullptr);
}

TEST_CASE("a double line has no effect at all")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    gCVSAddDoubleLine(host.Number);
    CHECK(host.Canvas().Elements.size() == 1);
    CHECK(host.Canvas().ElementSerial == 1);
    CHECK(host.Canvas().SelIndex == 0);
    gCVSAddDoubleLine(-1);
}

TEST_CASE("commands to a canvas that does not exist add nothing anywhere and ask nobody")
{
    OverlayCanvas host;
    for (const int number : {-1, 5, INT32_MIN, INT32_MAX})
        for (const Command& command : AllCommands())
            command.Add(number);
    for (int number = 0; number < CanvasCount; ++number)
        CHECK(gCanvasTable[number].Elements.empty());
    CHECK(host.Desktop.Messages.empty());
    gCVSAddPoly(host.Number);
    CHECK(host.Canvas().Elements.size() == 1);
}

TEST_CASE("objects on a canvas that never had an image, a client area or a mouse move do no harm")
{
    // The canvas itself is new: the other canvases have seen hosts.
    VostelImage fresh;
    TestDesktop desktop;
    for (int kind = 0; kind < 2; ++kind) {
        auto* const polygon = new VostelPolygon;
        fresh.Elements.push_back(polygon);
        fresh.SelIndex = kind;
        fresh.OnLButtonDown(DrawFlags, CPoint(5, 5));
        CHECK_FALSE(desktop.Messages.empty());
        for (const CString& message : desktop.Messages)
            CHECK(message == L"显示信息未提供");
        desktop.Messages.clear();
    }
    fresh.OnMouseMove(MK_LBUTTON, CPoint(9, 9));
    fresh.OnMouseWheel(MK_CONTROL, 120, CPoint(9, 9));
    fresh.OnKeyDown('E', 1, 0);
    fresh.OnLButtonUp(0, CPoint(9, 9));
    CHECK(fresh.GenerateLabel(false) == 1);
    CHECK(fresh.GenerateLabel(true) == 1);
    fresh.PaintAll();
    fresh.DeleteSelected();
    CHECK(fresh.Elements.size() == 1);
    desktop.Messages.clear();
}

TEST_CASE("every kind can be added, pressed, painted and deleted on an empty canvas")
{
    HostCanvas host(4, 40, 30);
    for (const Command& command : AllCommands()) {
        INFO(command.Name);
        command.Add(host.Number);
        host.Press(5, 5, DrawFlags);
        host.Paint();
        host.Move(9, 9, DrawFlags);
        host.Release(9, 9);
        host.Key('E');
        host.Key('I');
        host.Key('T');
        host.Paint();
        gCVSGenerateLabel(host.Number, false);
        gCVSGenerateLabel(host.Number, true);
        for (const CString& message : host.Desktop.Messages)
            CHECK(message == L"显示信息未提供");
        host.Desktop.Messages.clear();
    }
    CHECK(gCanvasTable[4].Elements.size() == AllCommands().size());
    host.Key('C');
    CHECK(gCanvasTable[4].Elements.empty());
    CHECK(gCanvasTable[4].ElementSerial == 0);
}
