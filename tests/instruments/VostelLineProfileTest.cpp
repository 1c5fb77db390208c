#include "instruments/VostelLineProfile.h"

#include "support/OverlayScene.h"

#include <cmath>

using namespace vostel;

namespace {

// The plot stands at 30,30 to 542,180; lines are drawn below it.
VostelLineProfile& Draw(OverlayScene& scene, CPoint from, CPoint to)
{
    gCVSAddLineProfile(0);
    scene.Move(from.x, from.y);
    scene.Drag(from, to, DrawFlags);
    scene.Paint();
    return scene.Last<VostelLineProfile>();
}

// Ends that no mouse can reach, and the move that samples between them.
void SetEnds(OverlayScene& scene, VostelLineProfile& profile, PointTemplateBase<double> from,
             PointTemplateBase<double> to)
{
    profile.ImagePoints = {from, to};
    scene.Move(1, 1);
}

struct ProfileScene : OverlayScene {
    ProfileScene() : OverlayScene(600, 400) {}
    void ShowRamp(bool kept = true)
    {
        ShowFloat(
            600, 400, [](int x, int y) { return 1000 * y + x; }, kept);
    }
};

}

TEST_CASE("a profile is a two-point line held inside the image, with its plot in its place")
{
    ProfileScene scene;
    gCVSAddLineProfile(0);
    const VostelLineProfile& profile = scene.Last<VostelLineProfile>();
    CHECK(profile.TypeCode == 16);
    CHECK(profile.MaxPoints == 2);
    CHECK(profile.ClickPerPoint == 0);
    CHECK_FALSE(profile.DrawBody);
    CHECK(profile.ClampToImage);
    CHECK(profile.Selected);
    CHECK_FALSE(profile.PlotHit);
    CHECK(profile.ImagePoints.empty());
    CHECK(profile.ProfilePlot.ClientBox == CRect(30, 30, 542, 180));
    CHECK(profile.ProfilePlot.View == &scene.Canvas().View);
    CHECK(profile.OwnerImage == &scene.Canvas());
    CHECK(profile.SerialNo == 0);
    CHECK(profile.TypeSerial == 0);
}

TEST_CASE("a line of 10 image pixels has ten samples, one of 9.99 none")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(110, 300));
    CHECK(profile.ProfilePlot.Data.Width == 10);
    CHECK(profile.ProfilePlot.Data.Height == 1);
    for (int i = 0; i < 10; ++i)
        CHECK(profile.ProfilePlot.Data.Ptr1D[i] == 300100.0f + static_cast<float>(i));
    SetEnds(scene, profile, {100.0, 300.0}, {109.99, 300.0});
    CHECK(profile.ProfilePlot.Data.Width == 1);
    SetEnds(scene, profile, {100.0, 300.0}, {110.99, 300.0});
    CHECK(profile.ProfilePlot.Data.Width == 10);
    SetEnds(scene, profile, {100.0, 300.0}, {100.0, 300.0});
    CHECK(profile.ProfilePlot.Data.Width == 1);
}

TEST_CASE("samples start at the first end, step one pixel of length and leave the second end out")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(200, 300), CPoint(140, 220));    // length 100
    REQUIRE(profile.ProfilePlot.Data.Width == 100);
    for (int i = 0; i < 100; ++i) {
        CAPTURE(i);
        const int x = static_cast<int>(static_cast<double>(i) * (-60.0 / 100.0) + 200.0);
        const int y = static_cast<int>(static_cast<double>(i) * (-80.0 / 100.0) + 300.0);
        CHECK(profile.ProfilePlot.Data.Ptr1D[i] == static_cast<float>(1000 * y + x));
    }
    CHECK(profile.ProfilePlot.DataMax == 300200.0f);
}

TEST_CASE("positions between pixels are cut to the lower one, and the length is taken as a float")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(200, 300), CPoint(250, 300));
    SetEnds(scene, profile, {200.9, 300.9}, {213.1, 309.3});
    const float length =
        static_cast<float>(std::sqrt((200.9 - 213.1) * (200.9 - 213.1) + (300.9 - 309.3) * (300.9 - 309.3)));
    const int count = static_cast<int>(std::floor(length));
    REQUIRE(profile.ProfilePlot.Data.Width == count);
    const double dx = (213.1 - 200.9) / static_cast<double>(length);
    const double dy = (309.3 - 300.9) / static_cast<double>(length);
    for (int i = 0; i < count; ++i)
        CHECK(profile.ProfilePlot.Data.Ptr1D[i] ==
              static_cast<float>(1000 * static_cast<int>(i * dy + 300.9) + static_cast<int>(i * dx + 200.9)));
}

TEST_CASE("byte images give the blue of the surface, rows counted from the bottom")
{
    ProfileScene scene;
    for (int x = 0; x < 600; ++x)
        gCVSGetCanvasPixelPtr(0)[(399 - 300) * 600 + x] = 0x00AABB00u + static_cast<unsigned int>(x % 256);
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    REQUIRE(profile.ProfilePlot.Data.Width == 20);
    for (int i = 0; i < 20; ++i)
        CHECK(profile.ProfilePlot.Data.Ptr1D[i] == static_cast<float>(100 + i));
}

TEST_CASE("values are those of the data as it came, whatever the contrast")
{
    ProfileScene scene;
    scene.ShowRamp();
    gCVSSetLutPara(0, 0.4f, 0.5f);
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    CHECK(profile.ProfilePlot.Data.Ptr1D[3] == 300103.0f);
    gCVSSetFileType(0, FileTypeRawPlain);    // hosts set it for data that has no contrast window
    scene.Move(1, 1);
    CHECK(profile.ProfilePlot.Data.Ptr1D[3] == 300103.0f);
}

TEST_CASE("data that was not kept samples as -1")
{
    ProfileScene scene;
    scene.ShowRamp(false);
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    REQUIRE(profile.ProfilePlot.Data.Width == 20);
    for (int i = 0; i < 20; ++i)
        CHECK(profile.ProfilePlot.Data.Ptr1D[i] == -1.0f);
}

TEST_CASE("without an image the plot is neither filled nor drawn")
{
    ProfileScene       scene;
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    REQUIRE(profile.ProfilePlot.Data.Width == 20);
    const unsigned int frame = 0xDAA569;
    CHECK(scene.Pixel(30, 100) == frame);
    gCVSSetFileType(0, FileTypeNone);
    scene.Move(1, 1);
    CHECK(profile.ProfilePlot.Data.Width == 1);
    scene.Paint();
    CHECK(scene.Count(CRect(0, 0, 600, 290), 0x646464) == 600 * 290);
    CHECK(scene.Pixel(110, 300) != 0x646464);    // the line itself stays
}

TEST_CASE(
    "the plot shows frame, curve and caption, and a line that has become too short shows the frame alone")
{
    ProfileScene scene;
    scene.ShowFlat(100);
    for (int x = 0; x < 600; ++x)
        gCVSGetCanvasPixelPtr(0)[(399 - 300) * 600 + x] =
            static_cast<unsigned int>(x < 350 ? 10 : 200) * 0x10101u;
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(580, 300));
    CHECK(scene.Pixel(30, 100) == 0xDAA569);
    CHECK(scene.Pixel(541, 100) == 0xDAA569);
    // The curve: at the bottom in the dark half, at the top in the light one, upright between.
    CHECK(scene.Count(CRect(31, 31, 541, 179), 0xFF0000) > 100);
    CHECK(scene.Count(CRect(31, 60, 541, 150), 0xFF0000) >= 90);
    CHECK(scene.Count(CRect(33, 33, 300, 58), [](unsigned int pixel) {
        return BlueOf(pixel) > RedOf(pixel) + 40;
    }) > 50);    // the caption is blue
    SetEnds(scene, profile, {100.0, 300.0}, {105.0, 300.0});
    scene.Paint();
    CHECK(scene.Count(CRect(31, 31, 541, 179), 0x646464) == 510 * 148);
    CHECK(scene.Pixel(30, 100) == 0xDAA569);
}

TEST_CASE("the selected profile samples at every move, one that is not selected keeps its curve")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    gCVSGetRawOriPtr2D(0)[300][105] = -7.0f;
    scene.Move(1, 1);    // no button
    CHECK(profile.ProfilePlot.Data.Ptr1D[5] == -7.0f);
    CHECK(profile.ProfilePlot.DataMin == -7.0f);
    scene.Press(590, 390);    // beside everything
    scene.Release(590, 390);
    REQUIRE(scene.Canvas().SelIndex == -1);
    gCVSGetRawOriPtr2D(0)[300][105] = -9.0f;
    scene.Move(2, 2);
    CHECK(profile.ProfilePlot.Data.Ptr1D[5] == -7.0f);
}

TEST_CASE("a drag in the plot moves the plot, leaves the line and samples it again")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(120, 300));
    gCVSGetRawOriPtr2D(0)[300][105] = -7.0f;
    scene.Drag(CPoint(100, 100), CPoint(110, 120));
    CHECK(profile.PlotHit);
    CHECK(profile.ProfilePlot.ClientBox == CRect(40, 50, 552, 200));
    CHECK(profile.ClientPoints[0] == CPoint(100, 300));
    CHECK(profile.ClientPoints[1] == CPoint(120, 300));
    CHECK(profile.ProfilePlot.Data.Ptr1D[5] == -7.0f);
    scene.Move(300, 300);
    CHECK(profile.ProfilePlot.ClientBox == CRect(40, 50, 552, 200));
}

TEST_CASE("a release after a press in the plot ends the plot's drag and leaves the line's as it was")
{
    ProfileScene       scene;
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(200, 300));
    scene.Press(203, 303);    // an end; its release is lost
    REQUIRE(profile.ActiveNode == 1);
    scene.Press(100, 100);
    CHECK(profile.PlotHit);
    CHECK(profile.ProfilePlot.ButtonDown);
    scene.Release(100, 100);
    CHECK_FALSE(profile.ProfilePlot.ButtonDown);
    CHECK(profile.ActiveNode == 1);
    CHECK(profile.ButtonDown);
}

TEST_CASE("after a drag of the plot a Shift press draws no line until a press has hit the line itself")
{
    ProfileScene       scene;
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(200, 300));
    scene.Drag(CPoint(100, 100), CPoint(110, 110));
    scene.Drag(CPoint(300, 350), CPoint(400, 350), DrawFlags);    // Shift asks nobody for a hit
    CHECK(profile.ImagePoints[0].x == 100.0);
    CHECK(profile.ImagePoints[1].x == 200.0);
    scene.Drag(CPoint(200, 300), CPoint(200, 300));
    scene.Drag(CPoint(300, 350), CPoint(400, 350), DrawFlags);
    CHECK(profile.ImagePoints[0].x == 300.0);
    CHECK(profile.ImagePoints[1].x == 400.0);
}

TEST_CASE("ends are dragged by their handles and stop at the image's edge, the middle moves both")
{
    ProfileScene scene;
    scene.ShowRamp();
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(200, 300));
    scene.Drag(CPoint(200, 300), CPoint(900, 300));
    scene.Paint();
    CHECK(profile.ImagePoints[1].x == 599.0);
    CHECK(profile.ProfilePlot.Data.Width == 499);
    CHECK(profile.ProfilePlot.Data.Ptr1D[498] == 300598.0f);
    scene.Move(1, 1);
    scene.Paint();
    scene.Drag(profile.MidPoint, CPoint(profile.MidPoint.x - 10, profile.MidPoint.y + 20));
    CHECK(profile.ImagePoints[0].x == 90.0);
    CHECK(profile.ImagePoints[0].y == 320.0);
    CHECK(profile.ImagePoints[1].x == 589.0);
}

TEST_CASE("a hit is in the middle, on a handle or in the plot, and remembers whether it was the plot")
{
    ProfileScene       scene;
    VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(200, 300));
    CHECK(profile.HitTest(CPoint(150, 300)));
    CHECK_FALSE(profile.PlotHit);
    CHECK(profile.HitTest(CPoint(100, 300)));
    CHECK(profile.HitTest(CPoint(30, 30)));
    CHECK(profile.PlotHit);
    CHECK(profile.Selected);
    CHECK_FALSE(profile.HitTest(CPoint(125, 300)));
    CHECK_FALSE(profile.PlotHit);
    CHECK_FALSE(profile.Selected);
    CHECK_FALSE(profile.HitTest(CPoint(542, 100)));    // the right edge counts out
}

TEST_CASE("a smaller image under a line reads as zero outside itself")
{
    for (const bool bytes : {false, true}) {
        CAPTURE(bytes);
        ProfileScene scene;
        scene.ShowRamp();
        VostelLineProfile& profile = Draw(scene, CPoint(100, 300), CPoint(300, 300));
        profile.PlotHit = true;    // as after a press in the plot: the line's own move would pull it in
        if (bytes)
            scene.ShowGray(
                150, 310, [](int, int) { return 9; }, false);
        else
            scene.ShowFloat(
                150, 310, [](int, int y) { return y < 300 ? 0.0f : 9.0f; }, true, false);
        scene.Move(1, 1);
        REQUIRE(profile.ProfilePlot.Data.Width == 200);
        CHECK(profile.ProfilePlot.Data.Ptr1D[49] == 9.0f);
        CHECK(profile.ProfilePlot.Data.Ptr1D[50] == 0.0f);
        CHECK(profile.ProfilePlot.Data.Ptr1D[199] == 0.0f);
    }
}

TEST_CASE("a profile without a canvas or without a line samples nothing")
{
    VostelLineProfile profile;
    profile.SetPlacement(10.0f, 10.0f, 100.0f, 50.0f);
    profile.OnMouseMove(0, CPoint(5, 5));
    CHECK(profile.ProfilePlot.Data.Width == 1);
    ProfileScene scene;
    gCVSAddLineProfile(0);
    scene.Move(100, 300);
    scene.Paint();
    CHECK(scene.Last<VostelLineProfile>().ProfilePlot.Data.Width == 1);
    gCVSAddLineProfile(5);
    CHECK(scene.Canvas().Elements.size() == 1);
    CHECK(scene.Messages().empty());
}
