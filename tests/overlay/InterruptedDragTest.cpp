// Every kind of object with something in the middle of its drags that takes the ground from under it. What
// has to hold is mild; the test means most under the sanitizers.

#include "overlay/VostelMPoint.h"
#include "support/OverlayCanvas.h"
#include "support/RegionAnswer.h"
#include "support/TempFolder.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

using namespace vostel;

namespace {

using Action = std::pair<std::string, std::function<void(OverlayCanvas&)>>;

std::vector<Action> Kinds()
{
    return {
        {"rectangle", [](OverlayCanvas& host) { gCVSAddMRectangle(host.Number); }},
        {"custom rectangle", [](OverlayCanvas& host) { gCVSAddCustomRectangle(host.Number); }},
        {"polygon", [](OverlayCanvas& host) { gCVSAddPoly(host.Number); }},
        {"spline", [](OverlayCanvas& host) { gCVSAddSpline(host.Number); }},
        {"free region", [](OverlayCanvas& host) { gCVSAddFreeRegion(host.Number); }},
        {"strokes", [](OverlayCanvas& host) { gCVSAddFreeStroke(host.Number); }},
        {"text",
         [](OverlayCanvas& host) { gCVSAddTextOL(host.Number, L"text", 70, 60, FontPlain18, 1, 0, 0); }},
        {"empty text",
         [](OverlayCanvas& host) { gCVSAddTextOLV2(host.Number, L"", 20, 20, FontCustom, 2, 0, 12); }},
        {"lines",
         [](OverlayCanvas& host) {
             std::vector<CString> lines = {L"a", L"", L"c"};
             gCVSAddTextML(host.Number, lines, 70, 60);
         }},
        {"length", [](OverlayCanvas& host) { gCVSAddMeasureLine(host.Number, 1.0); }},
        {"angle of three", [](OverlayCanvas& host) { gCVSAddMeasureAngle3Pts(host.Number); }},
        {"angle of four", [](OverlayCanvas& host) { gCVSAddMeasureAngle4Pts(host.Number); }},
        {"read-out", [](OverlayCanvas& host) { gCVSAddInfoWin(host.Number); }},
        {"profile", [](OverlayCanvas& host) { gCVSAddLineProfile(host.Number); }},
        {"grid", [](OverlayCanvas& host) { gCVSAddNeighborPV(host.Number); }},
    };
}

void ShowOnePixel(OverlayCanvas& host, bool clearObjects)
{
    host.ShowGray(
        1, 1, [](int, int) { return 9; }, clearObjects);
}

std::vector<Action> Interruptions()
{
    return {
        {"nothing", [](OverlayCanvas&) {}},
        {"delete selected", [](OverlayCanvas& host) { gCVSDelSelElement(host.Number); }},
        {"delete selected twice",
         [](OverlayCanvas& host) {
             host.Key('R');
             host.Key('R');
         }},
        {"delete all", [](OverlayCanvas& host) { gCVSDelAllElement(host.Number); }},
        {"key C", [](OverlayCanvas& host) { host.Key('C'); }},
        {"delete all, then another",
         [](OverlayCanvas& host) {
             gCVSDelAllElement(host.Number);
             gCVSAddPoly(host.Number);
         }},
        {"smaller image", [](OverlayCanvas& host) { ShowOnePixel(host, false); }},
        {"image that clears", [](OverlayCanvas& host) { ShowOnePixel(host, true); }},
        {"float image that is not kept",
         [](OverlayCanvas& host) {
             host.ShowFloat(
                 7, 5, [](int x, int y) { return static_cast<float>(x - y); }, false, false);
         }},
        {"no image", [](OverlayCanvas& host) { gCVSSetFileType(host.Number, FileTypeNone); }},
        {"raw without planes", [](OverlayCanvas& host) { gCVSSetFileType(host.Number, FileTypeRaw); }},
        {"released plane", [](OverlayCanvas& host) { gCVSGetRawOri(host.Number).Release(); }},
        {"window without size", [](OverlayCanvas& host) { host.SetClient(0, 0); }},
        {"window of one row", [](OverlayCanvas& host) { host.Resize(200, 1); }},
        {"window inside out", [](OverlayCanvas& host) { host.SetClient(-30, -20); }},
        {"canvas without size", [](OverlayCanvas& host) { gCVSPrepareCanvas(host.Number, 0, 0); }},
        {"keys",
         [](OverlayCanvas& host) {
             for (const unsigned int key : {'E', 'I', 'T', 'A', 'D', 'X'})
                 host.Key(key);
         }},
        {"pan", [](OverlayCanvas& host) { host.Move(INT32_MAX, INT32_MIN, MK_LBUTTON | MK_CONTROL); }},
        {"slider",
         [](OverlayCanvas& host) {
             gCVSShowContrastCtrl(host.Number, true);
             gCVSSetContrastCtrlRectPos(host.Number, 0, 0, 200, 150);
         }},
        {"label image", [](OverlayCanvas& host) { gCVSGenerateLabel(host.Number, true); }},
        {"saves",
         [](OverlayCanvas& host) {
             for (const auto save : {gCVSSaveClient, gCVSSaveImaWithOverlap, gCVSSaveNowShowIma, gCVSSave8bit,
                                     gCVSSaveRaw, gCVSSaveLabel})
                 save(host.Number);
         }},
    };
}

// Two shapes and the object between them, so that there is something left to be taken for it.
void Interrupted(const Action& kind, const Action& interruption, unsigned int held, bool painted)
{
    OverlayCanvas     host(0);
    const TempFolder  folder;
    const TestDialogs dialogs(RegionAnswer(20, 20, 60, 60));
    host.Desktop.ChooseFiles = [&](const VostelFileRequest& request, std::vector<CString>& paths) {
        paths = {folder.WidePath(request.DefaultExtension == L"raw" ? "saved.raw" : "saved.bmp")};
        return true;
    };
    host.AddNodes(gCVSAddPoly, {CPoint(2, 2), CPoint(12, 2), CPoint(12, 12)});
    kind.second(host);
    host.Hover();
    for (const CPoint& node : {CPoint(20, 20), CPoint(60, 20), CPoint(60, 50)}) {
        host.PressAt(node.x, node.y, DrawFlags);
        host.MoveTo(node.x + 2, node.y + 3, DrawFlags);
        host.ReleaseAt(node.x + 2, node.y + 3, MK_SHIFT);
        if (painted)
            host.Paint();
    }
    REQUIRE(host.Canvas().Elements.size() == 2);

    host.PressAt(22, 23, held);
    host.MoveTo(26, 27, held);
    interruption.second(host);
    for (const CPoint& at : {CPoint(30, 31), CPoint(-500, 900), CPoint(40, 40)}) {
        host.MoveTo(at.x, at.y, held);
        if (painted)
            host.Paint();
    }
    host.ReleaseAt(40, 40);
    host.PressAt(22, 23, held);
    host.ReleaseAt(22, 23);
    gCVSGenerateLabel(host.Number, false);

    for (const VostelObj* object : host.Canvas().Elements) {
        CHECK(
            (object->ActiveNode == -1 || object->ActiveNode < static_cast<int>(object->ImagePoints.size())));
        if (dynamic_cast<const VostelMPoint*>(object))
            CHECK(object->ClientPoints.size() == object->HandleRects.size());
    }
    // The canvas works on.
    host.Canvas().View.AnchorX = host.Canvas().View.AnchorY = 0.0;    // from wherever a pan has thrown it
    host.SetClient(200, 160);
    gCVSDelAllElement(host.Number);
    host.ShowFlatGray(100, 80, 0x40);
    gCVSShowContrastCtrl(host.Number, false);
    host.AddNodes(gCVSAddPoly, {CPoint(10, 10), CPoint(30, 10), CPoint(30, 30)});
    CHECK(host.CountLabels(1) > 100);
}

}

TEST_CASE("whatever happens in the middle of a drag of any kind of object, the canvas works on")
{
    for (const Action& kind : Kinds()) {
        for (const Action& interruption : Interruptions()) {
            for (const unsigned int held : {static_cast<unsigned int>(MK_LBUTTON), DrawFlags}) {
                for (const bool painted : {true, false}) {
                    const std::string how = std::string(held == DrawFlags ? "with Shift" : "without Shift") +
                                            (painted ? ", painted" : "");
                    INFO(kind.first, ", ", interruption.first, ", ", how);
                    Interrupted(kind, interruption, held, painted);
                }
            }
        }
    }
}

TEST_CASE("a drag moves a polygon up to the moment at which all objects are deleted")
{
    OverlayCanvas host(0);
    host.AddNodes(gCVSAddPoly, {CPoint(20, 20), CPoint(60, 20), CPoint(60, 50)});
    host.PressAt(55, 25);
    host.MoveTo(58, 29);
    CHECK(IsAt(host.Last().ImagePoints[0], 23, 24));
    gCVSDelAllElement(host.Number);
    host.MoveTo(60, 35);
    host.ReleaseAt(60, 35);
    CHECK(host.Canvas().Elements.empty());
}
