#include "foundation/FormatText.h"
#include "geometry/Lengths.h"
#include "support/EveryObject.h"
#include "support/OverlayScene.h"

using namespace vostel;

namespace {

// An open-made object of a class at the points.
template <typename Measure>
struct Made {
    Measure Object;
    Made(CanvasView& view, const ImagePoints& points)
    {
        Object.OpenMade = true;
        Object.SetCanvasView(&view);
        REQUIRE(Object.TakePoints(points));
    }
};

}

TEST_CASE("open-made measures say their measure in the canvas's units at every zoom")
{
    const ImagePoints line = {{10.3, 20.7}, {60.9, 77.1}};
    const ImagePoints corner = {{50.0, 10.0}, {20.0, 15.0}, {25.0, 70.0}};
    const ImagePoints lines = {{10.0, 10.0}, {60.0, 15.0}, {70.0, 70.0}, {20.0, 40.0}};
    for (const double scale : {0.01, 0.3, 1.0, 7.7, 300.0}) {
        CAPTURE(scale);
        CanvasView view = SomeView(scale);
        view.Settings.UnitsPerPixel = 0.874;
        view.Settings.Unit = L"µm";
        Made<VostelMeasureLine> length(view, line);
        CHECK(length.Object.CaptionText() == FormatText(L"长度 = %.3f µm", LengthOf(line) * 0.874));
        CHECK(length.Object.Label.Text == length.Object.CaptionText());
        Made<VostelMeasureAngle3Pts> angle(view, corner);
        CHECK(angle.Object.CaptionText() ==
              FormatText(L"角度 = %.3f 度", AngleBetween(corner[1], corner[0], corner[1], corner[2])));
        Made<VostelMeasureAngle4Pts> crossing(view, lines);
        CHECK(crossing.Object.CaptionText() ==
              FormatText(L"角度 = %.3f 度", AngleBetween(lines[0], lines[1], lines[2], lines[3])));
        Made<VostelPolyline> polyline(view, lines);
        CHECK(polyline.Object.CaptionText() == FormatText(L"长度 = %.3f µm", LengthOf(lines) * 0.874));
    }
}

TEST_CASE("captions of an English canvas are English, and those shown follow a change of language or unit")
{
    CanvasView view = SomeView();
    view.Settings.English = true;
    Made<VostelMeasureLine> length(view, {{0.0, 0.0}, {30.0, 40.0}});
    CHECK(length.Object.Label.Text == L"Length = 50.000 px");
    view.Settings.Unit = L"mm";
    view.Settings.UnitsPerPixel = 2.0;
    length.Object.DerivePainted();
    CHECK(length.Object.Label.Text == L"Length = 100.000 mm");
    Made<VostelMeasureAngle3Pts> angle(view, {{0.0, 9.0}, {0.0, 0.0}, {9.0, 0.0}});
    CHECK(angle.Object.Label.Text == L"Angle = 90.000°");
    // The directions of two lines, 0 to 180: drawing the second one backwards gives the rest to 180.
    Made<VostelMeasureAngle4Pts> lines(view, {{0.0, 0.0}, {9.0, 0.0}, {0.0, 0.0}, {-9.0, 9.0}});
    CHECK(lines.Object.Label.Text == L"Angle = 135.000°");
    Made<VostelPoints> points(view, {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    CHECK(points.Object.Label.Text == L"Points = 3");
    Made<VostelArrow> arrow(view, {{0.0, 0.0}, {3.0, 4.0}});
    CHECK(arrow.Object.Label.Text == L"Length = 10.000 mm");
    view.Settings.English = false;
    angle.Object.DerivePainted();
    CHECK(angle.Object.Label.Text == L"角度 = 90.000 度");
}

TEST_CASE("classic measures keep unit and scale of their own, whatever the canvas's")
{
    CanvasView view = SomeView();
    view.Settings.UnitsPerPixel = 3.0;
    view.Settings.Unit = L"inch";
    VostelMeasureLine line;
    line.SetCanvasView(&view);
    line.MeasureScale = 0.5;
    REQUIRE(line.TakePoints(ImagePoints{{0.0, 0.0}, {30.0, 40.0}}));
    CHECK(line.CaptionText() == L"长度 = 25.000 mm");
    view.Settings.English = true;
    CHECK(line.CaptionText() == L"Length = 25.000 mm");
}

TEST_CASE("a caption's box fits its text without a paint, and holds it after the text has grown")
{
    CanvasView              view = SomeView();
    Made<VostelMeasureLine> line(view, {{40.0, 60.0}, {43.0, 64.0}});
    const CRect             small = line.Object.Label.ClientBox;
    CHECK(small.Width() > 40);
    REQUIRE(line.Object.TakePoints(ImagePoints{{40.0, 60.0}, {40.0, 1e9}}));
    CHECK(line.Object.Label.ClientBox.Width() > small.Width());
    CHECK(line.Object.Label.ClientBox.Height() == small.Height());
}

TEST_CASE("a caption that would lie outside the client area is placed inside")
{
    CanvasView view = SomeView(1.0);
    for (const ImagePoint& at : {ImagePoint(-500.0, 40.0), ImagePoint(95.0, -300.0), ImagePoint(2e3, 9e3)}) {
        Made<VostelPolyline> line(view, {at, {at.x + 5.0, at.y}});
        const CRect          box = line.Object.Label.ClientBox;
        CHECK(box.left >= view.ClientRect.left);
        CHECK(box.top >= view.ClientRect.top);
        CHECK(box.right <= view.ClientRect.right);
        CHECK(box.bottom <= view.ClientRect.bottom);
    }
}

TEST_CASE("unit and language of a canvas are no state of its objects")
{
    CanvasView view = SomeView();
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->OpenMade = true;
        object->SetCanvasView(&view);
        if (kind.Fewest > 0)
            REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
        const std::vector<unsigned char> state = object->SaveState();
        view.Settings.English = !view.Settings.English;
        view.Settings.Unit += L"m";
        object->DerivePainted();
        CHECK(object->SaveState() == state);
        CHECK(object->LoadState(state));
        CHECK(object->SaveState() == state);
    }
}

TEST_CASE("read-outs of an English canvas are English")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    scene.Canvas().View.Settings.English = true;
    gCVSSetFileType(0, FileTypeNone);
    scene.Move(10, 20);
    CHECK(scene.Last<VostelImaInfo>().Lines.back() == L"No image data");
    scene.Canvas().View.Settings.English = false;
    scene.Move(10, 20);
    CHECK(scene.Last<VostelImaInfo>().Lines.back() == L"没有图像数据");
}

TEST_CASE("an open-made object that is not laid yet draws nothing, however often it is painted")
{
    for (const ObjectClass& kind : EveryClass()) {
        if (kind.Fewest == 0 || kind.Make()->TypeCode == OverlayPanel)
            continue;
        CAPTURE(kind.Name);
        OverlayScene               scene;
        std::unique_ptr<VostelObj> object = kind.Make();
        object->OpenMade = true;
        object->SetCanvasView(&scene.Canvas().View);
        object->TakeText(L"waits for its place");
        scene.Canvas().Elements.push_back(object.release());
        for (int i = 0; i < 3; ++i) {
            scene.Paint();
            CHECK(scene.Count(scene.Whole(), [](unsigned int pixel) { return pixel != 0x646464; }) == 0);
        }
    }
}

TEST_CASE("a Shift press places an open-made text that waits for its place")
{
    OverlayScene scene;
    auto         owned = std::make_unique<VostelTextRect>();
    owned->OpenMade = true;
    owned->SetCanvasView(&scene.Canvas().View);
    REQUIRE(owned->TakeText(L"here"));
    VostelTextRect& text = *owned;
    scene.Canvas().Elements.push_back(owned.release());
    scene.Canvas().SelIndex = 0;
    scene.Press(120, 90, MK_LBUTTON | MK_SHIFT);
    scene.Release(120, 90, MK_SHIFT);
    REQUIRE(text.GivePoints().size() == 1);
    CHECK(SamePlace(text.GivePoints()[0], {120.0, 90.0}));
    CHECK(text.ClientBox.left == 117);
    CHECK(text.ClientBox.Width() > 20);
    CHECK(text.Hits(CPoint(125, 95)));
}

TEST_CASE("open-made lines that never meet are drawn between their points alone")
{
    OverlayScene           scene;
    CanvasView&            view = scene.Canvas().View;
    VostelMeasureAngle4Pts angle;
    angle.OpenMade = true;
    angle.SetCanvasView(&view);
    REQUIRE(angle.TakePoints(ImagePoints{{100.0, 100.0}, {200.0, 100.0}, {100.0, 150.0}, {200.0, 150.0}}));
    CHECK(angle.CaptionText() == L"角度 = 0.000 度");
    scene.Paint();
    angle.OnDraw(scene.Canvas().ClientMemDC);
    scene.Canvas().UseDirect = true;
    scene.Paint();
    scene.Canvas().UseDirect = false;
    CHECK(scene.Pixel(150, 100) == 0x0000FF);
    CHECK(scene.Pixel(150, 150) == 0x0000FF);
    CHECK(scene.Pixel(250, 150) == 0x646464);
    CHECK(scene.Pixel(50, 150) == 0x646464);
}

TEST_CASE("a second line that a Shift drag lays has its caption beside it")
{
    OverlayScene scene;
    auto         owned = std::make_unique<VostelMeasureLine>();
    owned->OpenMade = true;
    owned->SetCanvasView(&scene.Canvas().View);
    VostelMeasureLine& line = *owned;
    scene.Canvas().Elements.push_back(owned.release());
    scene.Canvas().SelIndex = 0;
    scene.Drag(CPoint(20, 200), CPoint(60, 220), MK_LBUTTON | MK_SHIFT);
    const int first = line.Label.ClientBox.left;
    scene.Drag(CPoint(120, 250), CPoint(160, 270), MK_LBUTTON | MK_SHIFT);
    CHECK(line.Label.ClientBox.left == first + 100);
    CHECK(line.Label.Text == L"长度 = 44.721 px");
}

TEST_CASE("a profile that a Shift drag lays has its plot in the first place")
{
    OverlayScene scene;
    auto         owned = std::make_unique<VostelLineProfile>();
    owned->OpenMade = true;
    owned->SetOwnerImage(&scene.Canvas());
    owned->SetCanvasView(&scene.Canvas().View);
    VostelLineProfile& profile = *owned;
    scene.Canvas().Elements.push_back(owned.release());
    scene.Canvas().SelIndex = 0;
    scene.Drag(CPoint(20, 250), CPoint(200, 270), MK_LBUTTON | MK_SHIFT);
    CHECK(profile.ProfilePlot.ClientBox == CRect(30, 30, 542, 180));
    CHECK(profile.ProfilePlot.Data.Width == 182);
}

TEST_CASE("the box of a caption fits while its measure is dragged, without a paint")
{
    CanvasView                   view = SomeView();
    Made<VostelMeasureAngle4Pts> made(view, {{50.0, 20.0}, {50.0, 10.0}, {60.0, 50.0}, {70.0, 50.0}});
    VostelMeasureAngle4Pts&      angle = made.Object;
    REQUIRE(angle.Label.Text == L"角度 = 90.000 度");
    angle.OnLButtonDown(MK_LBUTTON, CPoint(150, 120));
    angle.OnMouseMove(MK_LBUTTON, CPoint(150, 140));
    CHECK(angle.Label.Text == L"角度 = 135.000 度");
    const CRect                  dragged = angle.Label.ClientBox;
    Made<VostelMeasureAngle4Pts> fresh(view, angle.GivePoints());
    CHECK(dragged.Width() == fresh.Object.Label.ClientBox.Width());

    Made<VostelMeasureLine> line(view, {{10.0, 20.0}, {14.0, 23.0}});
    const int               narrow = line.Object.Label.ClientBox.Width();
    line.Object.OnLButtonDown(MK_LBUTTON, CPoint(38, 66));
    line.Object.OnMouseMove(MK_LBUTTON, CPoint(38, 6600));
    CHECK(line.Object.Label.Text != L"长度 = 5.000 px");
    CHECK(line.Object.Label.ClientBox.Width() > narrow);
}

TEST_CASE("the text of an open-made plot has a font of its own, whatever was drawn before")
{
    OverlayScene scene(600, 300);
    const auto   inkOfPlot = [&](bool afterLargeText) {
        std::vector<std::unique_ptr<VostelObj>> objects;
        if (afterLargeText) {
            objects.push_back(std::make_unique<VostelTextRect>());
            objects.back()->StyleFontType = FontCustom;
            objects.back()->StyleHeight = 90;
            objects.back()->ImagePoints = {{-500.0, -500.0}, {-400.0, -400.0}};
        }
        objects.push_back(std::make_unique<VostelLineProfile>());
        for (std::unique_ptr<VostelObj>& object : objects) {
            object->OpenMade = true;
            object->SetOwnerImage(&scene.Canvas());
            object->SetCanvasView(&scene.Canvas().View);
            object->TakePoints(ImagePoints{{20.0, 250.0}, {220.0, 280.0}});    // the profile's
            scene.Canvas().Elements.push_back(object.release());
        }
        scene.Paint();
        scene.Canvas().DeleteAll();
        return scene.Count(CRect(31, 31, 541, 100), [](unsigned int pixel) { return pixel != 0x646464; });
    };
    const int ink = inkOfPlot(false);
    CHECK(ink > 100);
    CHECK(inkOfPlot(true) == ink);
}
