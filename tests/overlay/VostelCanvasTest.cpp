#include "overlay/VostelCanvas.h"

#include "support/OverlayCanvas.h"

#include <limits>
#include <memory>

using namespace vostel;

namespace {

template <typename F>
void GiveLine(VostelCanvas& plot, int count, F&& valueAt)
{
    ClassData2DIO<float> line;
    FillPlane(line, count, 1, [&](int x, int) { return valueAt(x); });
    plot.SetData(line);
}

constexpr unsigned int FramePixel = 0xDAA569;

// Captions are blue, their edges may be blended.
int CountBluish(OverlayCanvas& host)
{
    const Frame frame = host.PaintAndCapture();
    return static_cast<int>(std::count_if(frame.Pixels.begin(), frame.Pixels.end(), [](unsigned int pixel) {
        return (pixel & 0xFF) > ((pixel >> 16) & 0xFF) + 0x20;
    }));
}

}

TEST_CASE("a placement makes a plot as wide as the frame")
{
    VostelCanvas plot;
    plot.SetPlacement(10.7f, 20.7f, 60.0f, 30.0f);
    CHECK(plot.ClientBox == CRect(10, 20, 70, 50));
    CHECK(plot.PlotWidth == 60);
    CHECK(plot.PlotHeight == 30);
    CHECK(plot.Plot.Width == 60);
    CHECK(plot.Plot.Height == 1);
}

TEST_CASE("fewer than five values leave the plot as it was and the data with one element")
{
    VostelCanvas plot;
    plot.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    GiveLine(plot, 60, [](int x) { return x; });
    const unsigned short before = plot.Plot.Ptr1D[59];
    CHECK(before == 30);
    GiveLine(plot, 4, [](int x) { return 5 - x; });
    CHECK(plot.Data.Width == 1);
    CHECK(plot.Data.Height == 1);
    CHECK(plot.Plot.Ptr1D[59] == before);
    CHECK(plot.DataMax == 59.0f);
}

TEST_CASE("a line is scaled between its own minimum and maximum over the frame's height")
{
    VostelCanvas plot;
    plot.SetPlacement(0.0f, 0.0f, 60.0f, 30.0f);
    GiveLine(plot, 60, [](int x) { return x * 2 - 10; });
    CHECK(plot.DataMin == -10.0f);
    CHECK(plot.DataMax == 108.0f);
    CHECK(plot.XStep == 1.0f);
    CHECK(plot.YScale == 30.0f / 118.0f);
    for (int i = 0; i < 60; ++i)
        CHECK(plot.Plot.Ptr1D[i] == static_cast<unsigned short>(static_cast<float>(2 * i) * plot.YScale));
}

TEST_CASE("of a line longer than the frame the later columns show the value at the plot's last index")
{
    VostelCanvas plot;
    plot.SetPlacement(0.0f, 0.0f, 50.0f, 100.0f);
    GiveLine(plot, 100, [](int x) { return x; });
    CHECK(plot.XStep == 2.0f);
    for (int i = 0; i < 50; ++i) {
        const int at = std::min(2 * i, 49);
        CHECK(plot.Plot.Ptr1D[i] == static_cast<unsigned short>(static_cast<float>(at) * plot.YScale));
    }
    CHECK(plot.Plot.Ptr1D[25] == plot.Plot.Ptr1D[49]);
}

TEST_CASE("a line shorter than the frame repeats its values and is never read past its end")
{
    VostelCanvas plot;
    plot.SetPlacement(0.0f, 0.0f, 50.0f, 100.0f);
    GiveLine(plot, 10, [](int x) { return x; });
    CHECK(plot.XStep == 10.0f / 50.0f);
    for (int i = 0; i < 50; ++i) {
        const int at = static_cast<int>(static_cast<float>(i) * plot.XStep);
        CHECK(plot.Plot.Ptr1D[i] == static_cast<unsigned short>(static_cast<float>(at) * plot.YScale));
    }
}

TEST_CASE("equal values give a scale that is not finite, heights of 0 and a caption")
{
    OverlayCanvas host;
    auto          owned = std::make_unique<VostelCanvas>();
    VostelCanvas& plot = *owned;
    plot.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    host.Canvas().Elements.push_back(owned.release());
    GiveLine(plot, 20, [](int) { return 4.5f; });
    CHECK(plot.DataMin == 4.5f);
    CHECK(plot.DataMax == 4.5f);
    CHECK(plot.YScale == std::numeric_limits<float>::infinity());
    for (int i = 0; i < 60; ++i)
        CHECK(plot.Plot.Ptr1D[i] == 0);
    CHECK(host.CountPixels(RedPixel) > 40);
    const int captioned = CountBluish(host);
    plot.Data.Allocate(1, 1);    // no caption
    CHECK(captioned > CountBluish(host) + 20);
}

TEST_CASE("a line of five values draws the frame alone, six show curve and caption")
{
    OverlayCanvas host;
    auto          owned = std::make_unique<VostelCanvas>();
    VostelCanvas& plot = *owned;
    plot.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    host.Canvas().Elements.push_back(owned.release());
    const int bluish = CountBluish(host);
    GiveLine(plot, 5, [](int x) { return x; });
    CHECK(plot.Data.Width == 5);
    CHECK(host.CountPixels(RedPixel) == 0);
    CHECK(CountBluish(host) == bluish);
    CHECK(host.CountPixels(FramePixel) == 2 * 60 + 2 * 30 - 4);
    GiveLine(plot, 6, [](int x) { return x; });
    CHECK(host.CountPixels(RedPixel) >= 59);
    CHECK(CountBluish(host) > bluish + 20);
}

TEST_CASE("the curve starts at the frame's bottom left and moves with the frame")
{
    OverlayCanvas host;
    auto          owned = std::make_unique<VostelCanvas>();
    VostelCanvas& plot = *owned;
    plot.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    host.Canvas().Elements.push_back(owned.release());
    GiveLine(plot, 60, [](int x) { return x < 30 ? 0 : 1; });
    host.Paint();
    CHECK(host.Pixel(12, 50) == RedPixel);
    CHECK(host.Pixel(65, 20) == RedPixel);
    plot.OnLButtonDown(MK_LBUTTON, CPoint(30, 30));
    plot.OnMouseMove(MK_LBUTTON, CPoint(35, 37));
    plot.OnLButtonUp(0, CPoint(35, 37));
    const float step = plot.XStep;
    host.Paint();
    CHECK(host.Pixel(17, 57) == RedPixel);
    CHECK(host.Pixel(70, 27) == RedPixel);
    CHECK(plot.XStep == step);
}

TEST_CASE("lines of hard values are taken in without harm")
{
    const float   hard[] = {0.0f,
                            std::numeric_limits<float>::quiet_NaN(),
                            std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(),
                            3e38f,
                            -3e38f,
                            1e-45f};
    OverlayCanvas host;
    auto          owned = std::make_unique<VostelCanvas>();
    VostelCanvas& plot = *owned;
    plot.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    host.Canvas().Elements.push_back(owned.release());
    for (int start = 0; start < 7; ++start) {
        GiveLine(plot, 40, [&](int x) { return hard[(x * (start + 1)) % 7]; });
        host.Paint();
        CHECK(plot.Data.Width == 40);
    }
    ClassData2DIO<float> nothing;
    plot.SetData(nothing);
    host.Paint();
    CHECK(plot.Data.Width == 1);
}
