#include "instruments/VostelMeasureLine.h"

#include "support/OverlayScene.h"

#include <cmath>
#include <limits>

using namespace vostel;

namespace {

// A line drawn as a user does: the window is painted while the button is down.
VostelMeasureLine& Draw(OverlayScene& scene, CPoint from, CPoint to)
{
    gCVSAddMeasureLine(0, 0.0);
    scene.Move(from.x, from.y);
    scene.Press(from.x, from.y, DrawFlags);
    scene.Paint();
    scene.Move(to.x, to.y, DrawFlags);
    scene.Paint();
    scene.Release(to.x, to.y);
    scene.Paint();
    return scene.Last<VostelMeasureLine>();
}

struct MeasureScene : OverlayScene {
    MeasureScene() { gCVSSetMeasureScale(0, 1.0); }
    ~MeasureScene() { gCVSSetMeasureScale(0, 1.0); }
};

}

TEST_CASE("a new length measure is the selected index, and its flag is not set")
{
    MeasureScene scene;
    gCVSAddPoly(0);
    gCVSAddMeasureLine(0, 7.5);
    VostelMeasureLine& line = scene.Last<VostelMeasureLine>();
    CHECK(scene.Canvas().SelIndex == 1);
    CHECK_FALSE(line.Selected);
    CHECK(scene.Canvas().Elements[0]->Selected);    // nobody took the polygon's
    CHECK(line.TypeCode == 8);
    CHECK(line.SerialNo == 1);
    CHECK(line.TypeSerial == 0);
    CHECK(line.MaxPoints == 2);
    CHECK(line.ClickPerPoint == 0);
    CHECK_FALSE(line.ClampToImage);
    CHECK_FALSE(line.DrawBody);
    CHECK_FALSE(line.MeasureArmed);
    CHECK(line.LabelUnplaced);
    CHECK(line.MeasureScale == 1.0);    // the double of the call counts for nothing
    gCVSAddMeasureLine(0, 0.0);
    CHECK(scene.Last<VostelMeasureLine>().TypeSerial == 1);
}

TEST_CASE("a drawn line shows its length with three decimals, live and after the release")
{
    MeasureScene scene;
    gCVSAddMeasureLine(0, 0.0);
    VostelMeasureLine& line = scene.Last<VostelMeasureLine>();
    CHECK(line.GetResultText() == L"");
    scene.Move(50, 200);
    scene.Press(50, 200, DrawFlags);
    CHECK(line.MeasureArmed);
    CHECK(line.GetResultText() == L"");
    scene.Paint();
    // The caption is formed after the line's move.
    scene.Move(80, 240, DrawFlags);
    CHECK(line.GetResultText() == L"长度 = 50.000 mm");
    scene.Move(60, 201, DrawFlags);
    CHECK(line.GetResultText() == L"长度 = 10.050 mm");
    scene.Release(60, 201);
    CHECK(line.GetResultText() == L"长度 = 10.050 mm");
    CHECK_FALSE(line.LabelUnplaced);
}

TEST_CASE("the caption is placed 100 right of the middle and 100 above it, at the size of its text")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 210));
    CHECK(line.MidPoint == CPoint(80, 205));
    const CRect size = gCVSGetTextRectOL(0, L"长度 = 60.828 mm", 0, 0, FontPlain18, 1, 0, 0);
    CHECK(line.Label.Text == L"长度 = 60.828 mm");
    CHECK(line.Label.ClientBox == CRect(177, 102, 180 + size.Width() + 3, 105 + size.Height() + 3));
    CHECK(scene.Count(CRect(177, 102, 180 + size.Width() + 3, 105), 0xFFFFFF) == (size.Width() + 6) * 3);
}

TEST_CASE("the line is drawn with its handles, and a dotted black connector leads to the nearest corner")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    CHECK(line.Selected);
    for (int x = 60; x < 74; ++x)
        CHECK(scene.Pixel(x, 200) == 0xFF0000);
    CHECK(scene.Pixel(50, 196) == 0xFF0000);    // top of an end handle
    CHECK(scene.Pixel(80, 196) == 0xFF0000);    // and of the middle one
    const CPoint corner = line.Label.NearestCorner(CPoint(80, 200));
    CHECK(corner == CPoint(line.Label.ClientBox.left, line.Label.ClientBox.bottom));
    const CRect between(85, corner.y + 2, corner.x, 195);
    const int   black = scene.Count(between, 0x000000);
    CHECK(black > 10);
    const int steps = std::max(between.Width(), between.Height());
    CHECK(black < steps);
    CHECK(scene.Count(between, 0x646464) + black == between.Width() * between.Height());
    scene.Press(390, 290);    // a press beside everything
    scene.Release(390, 290);
    scene.Paint();
    CHECK(scene.Pixel(65, 200) == 0x0000FF);
}

TEST_CASE("before the release there is no connector")
{
    MeasureScene scene;
    gCVSAddMeasureLine(0, 0.0);
    scene.Move(50, 200);
    scene.Press(50, 200, DrawFlags);
    scene.Move(110, 200, DrawFlags);
    scene.Paint();
    CHECK(scene.Count(CRect(0, 20, 400, 190), 0x000000) == 0);
    scene.Release(110, 200);
    scene.Paint();
    CHECK(scene.Count(CRect(0, 20, 400, 190), 0x000000) > 10);
}

TEST_CASE("a click alone measures zero")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(50, 200));
    CHECK(line.Label.Text == L"长度 = 0.000 mm");
}

TEST_CASE("the scale of the canvas counts for lines made later, and leaves older ones alone")
{
    MeasureScene       scene;
    VostelMeasureLine& old = Draw(scene, CPoint(50, 200), CPoint(80, 240));
    gCVSSetMeasureScale(0, 2.5);
    VostelMeasureLine& young = Draw(scene, CPoint(150, 200), CPoint(180, 240));
    CHECK(young.Label.Text == L"长度 = 125.000 mm");
    CHECK(old.Label.Text == L"长度 = 50.000 mm");
    CHECK(old.MeasureScale == 1.0);
    // Also when the old one is dragged again.
    scene.Move(80, 240);
    scene.Drag(CPoint(80, 240), CPoint(80, 250));
    CHECK(old.Label.Text == L"长度 = 58.310 mm");
}

TEST_CASE("the scale's dialog is asked under its section, and its text read as a number")
{
    MeasureScene  scene;
    CString       asked;
    CString       answer;
    bool          accept = true;
    TessikDialogs dialogs;
    dialogs.ImaGeneralPara = [&](tagZEKImaGeneralPara& para, CString& section, CString& file) {
        asked = section + L"|" + file;
        para.Value = answer;
        return accept;
    };
    const TestDialogs installed(dialogs);
    const struct {
        const wchar_t* Text;
        double         Scale;
    } answers[] = {{L"0.25", 0.25}, {L" -3e2x", -300.0}, {L"none", 0.0}, {L"", 0.0}, {L"12,5", 12.0}};
    for (const auto& row : answers) {
        answer = row.Text;
        gCVSSetMeasureScale(0, 9.0);
        gCVSSetMeasureScale(0);
        CHECK(asked == L"MeasureScaleInfo|MeasureScale.ini");
        gCVSAddMeasureLine(0, 0.0);
        CHECK(scene.Last<VostelMeasureLine>().MeasureScale == row.Scale);
    }
    gCVSSetMeasureScale(0, 9.0);
    accept = false;
    answer = L"5";
    gCVSSetMeasureScale(0);
    CHECK(scene.Canvas().MeasureScale == 9.0);
    asked = L"";
    gCVSSetMeasureScale(-1);
    gCVSSetMeasureScale(5, 3.0);
    CHECK(asked == L"");
}

TEST_CASE("a caption is dragged as a box: the line stays, and the connector follows")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    const CRect        box = line.Label.ClientBox;
    scene.Drag(CPoint(box.left + 10, box.top + 10), CPoint(box.left - 20, box.top + 150));
    scene.Paint();
    CHECK(line.LabelHit);
    CHECK(line.Selected);
    CHECK(line.Label.ClientBox == CRect(box.left - 30, box.top + 140, box.right - 30, box.bottom + 140));
    CHECK(line.ClientPoints[0] == CPoint(50, 200));
    CHECK(line.ClientPoints[1] == CPoint(110, 200));
    // The caption's place is the user's: another drag of the line leaves it there.
    const CRect placed = line.Label.ClientBox;
    scene.Drag(CPoint(110, 200), CPoint(120, 190));
    scene.Paint();
    CHECK(line.ClientPoints[1] == CPoint(120, 190));
    CHECK(line.Label.ClientBox == placed);
    CHECK(line.Label.Text == L"长度 = 70.711 mm");
}

TEST_CASE("a caption that sits over a handle takes the drag")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    const CRect        box = line.Label.ClientBox;
    scene.Drag(CPoint(box.left + 10, box.top + 10), CPoint(110, 200));    // over the second end
    scene.Paint();
    const CRect over = line.Label.ClientBox;
    REQUIRE(PtInRect(&over, CPoint(110, 200)));
    scene.Drag(CPoint(110, 200), CPoint(150, 250));
    scene.Paint();
    CHECK(line.ClientPoints[1] == CPoint(110, 200));
    CHECK(line.Label.ClientBox.left == over.left + 40);
    CHECK(line.Label.ClientBox.top == over.top + 50);
}

TEST_CASE("the middle handle moves the line, an end handle stretches it")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    scene.Drag(CPoint(81, 199), CPoint(91, 219));
    scene.Paint();
    CHECK(line.ClientPoints[0] == CPoint(60, 220));
    CHECK(line.ClientPoints[1] == CPoint(120, 220));
    CHECK(line.Label.Text == L"长度 = 60.000 mm");
    scene.Drag(CPoint(60, 220), CPoint(40, 220));
    CHECK(line.Label.Text == L"长度 = 80.000 mm");
}

TEST_CASE("lengths count image pixels at any zoom, and ends outside the image")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(100, 100), CPoint(450, 100));
    CHECK(line.ImagePoints[1].x == 450.0);    // beyond the image's 400 columns
    CHECK(line.Label.Text == L"长度 = 350.000 mm");
    scene.Zoom(2);
    scene.Move(5, 5);
    CHECK(line.Label.Text == L"长度 = 350.000 mm");
}

TEST_CASE("a further Shift press restarts the line and leaves the caption where it is")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    const CRect        box = line.Label.ClientBox;
    scene.Drag(CPoint(200, 250), CPoint(203, 254), DrawFlags);
    scene.Paint();
    CHECK(line.ImagePoints[0].x == 200.0);
    CHECK(line.Label.Text == L"长度 = 5.000 mm");
    CHECK(line.Label.ClientBox == box);
}

TEST_CASE("a release before the line was ever painted measures the caption as nothing")
{
    MeasureScene scene;
    gCVSAddMeasureLine(0, 0.0);
    scene.Move(50, 200);
    scene.Drag(CPoint(50, 200), CPoint(80, 240), DrawFlags);
    VostelMeasureLine& line = scene.Last<VostelMeasureLine>();
    CHECK(line.Label.TextWidth == 0);
    CHECK(line.Label.ClientBox == CRect(97, -103, 103, -97));    // from a middle of 0, 0
    CHECK(line.Label.Text == L"长度 = 50.000 mm");
    scene.Paint();
    CHECK(scene.Messages().empty());
}

TEST_CASE("a release before the line has its points places no caption")
{
    MeasureScene scene;
    gCVSAddMeasureLine(0, 0.0);
    scene.Move(50, 200);
    scene.Release(50, 200);
    VostelMeasureLine& line = scene.Last<VostelMeasureLine>();
    CHECK(line.LabelUnplaced);
    CHECK(line.Label.Text.IsEmpty());
    scene.Drag(CPoint(50, 200), CPoint(80, 240), DrawFlags);
    CHECK_FALSE(line.LabelUnplaced);
    CHECK(line.Label.Text == L"长度 = 50.000 mm");
}

TEST_CASE("a press before any mouse move reports that the view is missing and starts at 0, 0")
{
    MeasureScene scene;
    gCVSAddMeasureLine(0, 0.0);
    scene.Press(50, 200, DrawFlags);
    VostelMeasureLine& line = scene.Last<VostelMeasureLine>();
    REQUIRE_FALSE(scene.Messages().empty());
    for (const CString& message : scene.Messages())
        CHECK(message == NoView);
    REQUIRE(line.ImagePoints.size() == 2);
    CHECK(line.ImagePoints[0].x == 0.0);
    CHECK(line.ImagePoints[1].y == 0.0);
    scene.Release(50, 200);
    scene.Paint();
}

TEST_CASE("scales that are not numbers print without a sign, and infinite ones as such")
{
    MeasureScene scene;
    gCVSSetMeasureScale(0, -std::numeric_limits<double>::quiet_NaN());
    CHECK(Draw(scene, CPoint(50, 200), CPoint(80, 240)).Label.Text == L"长度 =  nan mm");
    gCVSSetMeasureScale(0, -std::numeric_limits<double>::infinity());
    CHECK(Draw(scene, CPoint(50, 200), CPoint(80, 240)).Label.Text == L"长度 = -inf mm");
    gCVSSetMeasureScale(0, 1e300);
    CHECK(Draw(scene, CPoint(50, 200), CPoint(80, 240)).Label.Text.GetLength() == 5 + 302 + 4 + 3);
}

TEST_CASE("a hit is asked of the caption first, then of the middle, the ends and the caption again")
{
    MeasureScene       scene;
    VostelMeasureLine& line = Draw(scene, CPoint(50, 200), CPoint(110, 200));
    CHECK(line.HitTest(CPoint(80, 200)));
    CHECK_FALSE(line.LabelHit);
    CHECK(line.HitTest(CPoint(50, 200)));
    CHECK(line.HitTest(CPoint(line.Label.ClientBox.left, line.Label.ClientBox.top)));
    CHECK(line.LabelHit);
    CHECK(line.Selected);
    CHECK_FALSE(line.HitTest(CPoint(65, 200)));    // on the line between its handles
    CHECK_FALSE(line.LabelHit);
    CHECK_FALSE(line.Selected);
}
