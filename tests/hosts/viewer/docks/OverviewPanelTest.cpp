#include "docks/OverviewPanel.h"

#include "docks/OverviewMap.h"
#include "hosts/viewer/docks/ShownPanel.h"

#include <doctest/doctest.h>

using namespace vostel::viewer;

namespace {

// The canvas shows 100 x 75 of 200 x 150 px.
struct ShownOverview : ShownPanel<OverviewPanel> {
    OverviewMap& Map = Of<OverviewMap>("overview");

    ShownOverview() : ShownPanel(QSize(308, 238))
    {
        Open().view_set(4.0, 0.0, 0.0);
        hand::Settle();
    }
    QPoint        At(double x, double y) { return Map.PlaceOf({x, y}).toPoint(); }
    vostel::Point Middle() { return Open().view_to_image({200.0, 150.0}); }
};

}

TEST_CASE("a click centres the view, and a drag of the frame moves it")
{
    ShownOverview at;
    CHECK(at.Middle().x == 50.0);
    hand::Click(at.Map, at.At(140, 100));
    CHECK(at.Middle().x == doctest::Approx(140).epsilon(0.01));
    CHECK(at.Middle().y == doctest::Approx(100).epsilon(0.01));
    hand::Drag(at.Map, at.At(130, 90), at.At(70, 60));
    CHECK(at.Middle().x == doctest::Approx(80).epsilon(0.02));
    CHECK(at.Middle().y == doctest::Approx(70).epsilon(0.02));
    CHECK(at.Open().view_get().scale == 4.0);
    CHECK(at.Undos() == 0);
    at.Keep("overview");
}

TEST_CASE("the frame shows what is visible, whoever moves the view")
{
    ShownOverview at;
    CHECK(at.Map.FramePlace().right() == doctest::Approx(at.At(100, 0).x()).epsilon(0.01));
    const QImage before = at.Map.grab().toImage();
    at.Open().view_set(8.0, -400.0, -300.0);
    hand::Settle();
    CHECK(at.Map.grab().toImage() != before);
    CHECK(at.Map.FramePlace().left() == doctest::Approx(at.At(50, 0).x()).epsilon(0.01));
    hand::Wheel(at.Map, at.At(75, 60), 1);
    CHECK(at.Open().view_get().scale == doctest::Approx(9.6));
    hand::Key("Right");
    CHECK(at.Middle().x > 76.0);
}

TEST_CASE("the picture follows the contrast and the image")
{
    ShownOverview at;
    at.Open().view_set(0.5, 0.0, 0.0);    // all is visible
    hand::Settle();
    const QPoint beside = at.At(150, 70);
    const auto   shade = [&] { return qGray(at.Map.grab().toImage().pixel(beside)); };
    const int    before = shade();
    at.Open().contrast_set(0.0, 50.0);
    hand::Settle();
    CHECK(shade() == 255);
    CHECK(before < 220);
    std::vector<std::uint8_t> black(40 * 10, 0);
    at.Open().image_show(VOSTEL_U8, black.data(), 40, 10);
    hand::Settle();
    CHECK(qGray(at.Map.grab().toImage().pixel(at.Map.rect().center())) < 200);
    at.Window.SetCanvas(nullptr);
    hand::Settle();
    CHECK(at.Map.grab().toImage().pixelColor(3, 3) == at.Window.palette().color(QPalette::Window));
}
