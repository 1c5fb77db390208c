// Samples of every type on a canvas: what is kept, what is drawn, and what the classic calls see of them.

#include "canvas/exports/CanvasTable.h"
#include "geometry/RandomPlane.h"
#include "output/ContrastCurve.h"
#include "support/HostCanvas.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

using namespace vostel;

namespace {

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

struct SampleCanvas : HostCanvas {
    SampleCanvas() : HostCanvas(0, 60, 40) {}

    VostelImage& Image() { return gCanvasTable[0]; }
    unsigned PixelAt(int x, int y) { return Image().CanvasSurface.PixelAt(x, Image().CanvasHeight - 1 - y); }

    void ShowFloats(std::vector<float> values, int width, ShowKeeps keeps = {})
    {
        const int height = static_cast<int>(values.size()) / width;
        Image().ShowSamples({SampleType::F32, width, height, width * 4, values.data()}, keeps);
    }
};

bool SameSamples(const PlaneView& a, const PlaneView& b)
{
    if (a.Type != b.Type || a.Width != b.Width || a.Height != b.Height)
        return false;
    for (int y = 0; y < a.Height; ++y) {
        if (std::memcmp(a.Row<char>(y), b.Row<char>(y),
                        PixelBytes(a.Type) * static_cast<std::size_t>(a.Width)) != 0)
            return false;
    }
    return true;
}

// The pixel of the plain formula.
unsigned Expected(const RandomPlane& plane, const ContrastState& state, int x, int y)
{
    const ContrastCurve curve(state);
    if (!IsColor(plane.View.Type))
        return curve.PixelOf(plane.Value(0, x, y));
    unsigned pixel = 0;
    for (int channel = 1; channel <= 3; ++channel) {
        const unsigned mask = 0xFF0000u >> 8 * (channel - 1);
        pixel |= curve.Colors[static_cast<std::size_t>(curve.LevelOf(plane.Value(channel, x, y)))] & mask;
    }
    return pixel;
}

int Distance(unsigned a, unsigned b)
{
    int distance = 0;
    for (int shift = 0; shift < 24; shift += 8)
        distance = std::max(
            distance, std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    return distance;
}

// The largest difference of a channel between the surface and the formula.
int WorstPixel(SampleCanvas& canvas, const RandomPlane& plane, const ContrastState& state)
{
    int worst = 0;
    for (int y = 0; y < plane.View.Height; ++y)
        for (int x = 0; x < plane.View.Width; ++x)
            worst = std::max(worst, Distance(canvas.PixelAt(x, y), Expected(plane, state, x, y)));
    return worst;
}

}

TEST_CASE("samples of every type are kept as they came and shown as the formula says")
{
    unsigned seed = 300;
    for (const SampleType type : AllSampleTypes) {
        for (const int width : {1, 7, 33}) {
            SampleCanvas      canvas;
            const RandomPlane plane(type, width, 9, ++seed);
            canvas.Image().ShowSamples(plane.View, {});
            CAPTURE(seed);
            CHECK(SameSamples(canvas.Image().ShownPlane(), plane.View));
            CHECK(canvas.Image().CurrentFileType == (IsDeep(type) ? FileTypeRaw : FileTypeByte));
            // Only floats may be one level off.
            CHECK(WorstPixel(canvas, plane, canvas.Image().Contrast()) <= (type == SampleType::F32 ? 1 : 0));
            ContrastState other;
            other.Low = 20.0;
            other.High = 90.0;
            other.Gamma = 1.8;
            other.Map = "inverted";
            canvas.Image().ApplyContrast(other);
            CHECK(canvas.Image().Contrast() == other);
            CHECK(WorstPixel(canvas, plane, other) <= (type == SampleType::F32 ? 1 : 0));
            CHECK(SameSamples(canvas.Image().ShownPlane(), plane.View));
        }
    }
}

TEST_CASE("rows may lie bottom-up, and neither rows nor samples need be aligned")
{
    SampleCanvas               canvas;
    std::vector<unsigned char> memory(1 + 3 * 21);
    const float                values[] = {1.5f, -2.0f, 3.25f, 4.0f, 5.0f, -6.5f};
    for (int y = 0; y < 2; ++y)
        std::memcpy(memory.data() + 1 + 21 * (1 - y), values + 3 * y, 12);
    canvas.Image().ShowSamples({SampleType::F32, 3, 2, -21, memory.data() + 22}, {});
    const PlaneView shown = canvas.Image().ShownPlane();
    CHECK(std::memcmp(shown.Data, values, sizeof values) == 0);
    CHECK(canvas.Image().Contrast().Low == -6.5);
    CHECK(canvas.Image().Contrast().High == 5.0);
}

TEST_CASE("the first window is the finite range, 0 to 255 of bytes, and 0 to 1 without a finite value")
{
    SampleCanvas canvas;
    canvas.ShowFloats({NaN, 2e7f, Inf, 3e7f, -Inf, 2.5e7f}, 3);
    CHECK(canvas.Image().Contrast().Low == 2e7);
    CHECK(canvas.Image().Contrast().High == 3e7);
    canvas.ShowFloats({NaN, 1.0f, 2.0f, 3.0f}, 2);
    CHECK(canvas.Image().Contrast().Low == 1.0);
    CHECK(canvas.Image().Contrast().High == 3.0);
    canvas.ShowFloats({NaN, Inf}, 2);
    CHECK(canvas.Image().Contrast().Low == 0.0);
    CHECK(canvas.Image().Contrast().High == 1.0);
    const std::uint8_t bytes[] = {7, 9};
    canvas.Image().ShowSamples({SampleType::U8, 2, 1, 2, bytes}, {});
    CHECK(canvas.Image().Contrast() == ContrastState());
}

TEST_CASE("hosts of the classic calls see deep samples as float data that was kept")
{
    SampleCanvas        canvas;
    std::vector<float>  floats = {1.0f, NaN, -3.5f, 70000.0f, 12.25f, 8.0f};
    std::vector<float>  shown = floats;
    const std::uint16_t words[] = {1, 0, 40000, 65535, 9, 3};
    std::vector<float>  widened(words, words + 6);
    const PlaneView     planes[] = {{SampleType::F32, 3, 2, 12, floats.data()},
                                    {SampleType::U16, 3, 2, 6, words}};
    std::vector<float>* classic[] = {&shown, &widened};
    for (int i = 0; i < 2; ++i) {
        gCVSShowRawFloat(0, classic[i]->data(), 3, 2, true, true);
        const std::vector<float> raw(gCVSGetRawPtr1D(0), gCVSGetRawPtr1D(0) + 6);
        const std::vector<float> original(gCVSGetRawOriPtr1D(0), gCVSGetRawOriPtr1D(0) + 6);
        canvas.Image().ShowSamples(planes[i], {});
        CHECK(gCVSGetFileType(0) == FileTypeRaw);
        for (int p = 0; p < 6; ++p) {
            const float stretched = canvas.Image().StretchedAt(p % 3, p / 3);
            const float value = canvas.Image().OriginalAt(p % 3, p / 3);
            CHECK(std::memcmp(&stretched, &raw[static_cast<std::size_t>(p)], 4) == 0);
            CHECK(std::memcmp(&value, &original[static_cast<std::size_t>(p)], 4) == 0);
        }
        CHECK(gCVSGetRaw(0).Width == 3);
        CHECK(std::memcmp(gCVSGetRawPtr1D(0), raw.data(), 24) == 0);
        CHECK(std::memcmp(gCVSGetRawOriPtr1D(0), original.data(), 24) == 0);
        CHECK(gCVSGetLabelIma(0).Height == 2);
        CHECK(gCVSGetLabelImaPtr1D(0)[5] == 1);
    }
    CHECK(canvas.Image().OriginalAt(3, 0) == -1.0f);
    CHECK(canvas.Image().StretchedAt(0, -1) == -1.0f);
}

TEST_CASE("colors shown as samples lie on the surface without the skew of the classic call")
{
    SampleCanvas       canvas;
    const std::uint8_t rgb[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    canvas.Image().ShowSamples({SampleType::Rgb8, 2, 2, 6, rgb}, {});
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(canvas.PixelAt(0, 0) == 0x010203u);
    CHECK(canvas.PixelAt(1, 1) == 0x0A0B0Cu);
    ContrastState inverted;
    inverted.Map = "inverted";
    canvas.Image().ApplyContrast(inverted);
    CHECK(canvas.PixelAt(0, 0) == 0xFEFDFCu);
    CHECK(canvas.Image().SurfacePixelAt(0, 1) == 0x010203u);    // read-outs tell the values
}

TEST_CASE("a classic show replaces samples, also where it shows a part of them")
{
    SampleCanvas canvas;
    canvas.ShowFloats({1.0f, 2.0f, 3.0f, 4.0f}, 2);
    const float* const borrowed = canvas.Image().ShownPlane().Row<float>(0);
    gCVSShowRawFloat(0, const_cast<float*>(borrowed), 2, 2, true, true);
    CHECK(gCVSGetRawOriPtr1D(0)[3] == 4.0f);
    CHECK(canvas.Image().ShownPlane().Data == gCVSGetRawOriPtr1D(0));
    CHECK(canvas.Image().Contrast().High == 4.0);
    const std::uint8_t bytes[] = {5, 6};
    canvas.Image().ShowSamples({SampleType::U8, 2, 1, 2, bytes}, {});
    gCVSShowUCGray(0, const_cast<std::uint8_t*>(canvas.Image().ShownPlane().Row<std::uint8_t>(0)), 2, 1,
                   true);
    CHECK(canvas.PixelAt(1, 0) == 0x060606u);
    // And samples that are shown again, in part and bottom-up.
    canvas.ShowFloats({1.0f, 2.0f, 3.0f, 4.0f}, 2);
    const PlaneView whole = canvas.Image().ShownPlane();
    canvas.Image().ShowSamples({SampleType::F32, 2, 2, -8, whole.Row<float>(1)}, {});
    CHECK(canvas.Image().OriginalAt(0, 0) == 3.0f);
    CHECK(canvas.Image().OriginalAt(1, 1) == 2.0f);
}

TEST_CASE("images of the classic calls give the values that they still hold")
{
    SampleCanvas canvas;
    CHECK(canvas.Image().ShownPlane().Data == nullptr);
    std::vector<float> floats = {0.0f, 1.0f, 2.0f, 4.0f};
    gCVSShowRawFloat(0, floats.data(), 2, 2, false, true);
    CHECK(canvas.Image().ShownPlane().Row<float>(1)[1] == 65535.0f);
    CHECK(canvas.Image().Contrast().High == 65535.0);
    std::vector<unsigned char> gray = {9, 8, 7, 6};
    gCVSShowUCGray(0, gray.data(), 2, 2, true);
    const PlaneView bytes = canvas.Image().ShownPlane();
    CHECK(bytes.Type == SampleType::U8);
    CHECK(bytes.Row<std::uint8_t>(1)[0] == 7);
    gCVSGetCanvasPixelPtr(0)[0] = 0x112233u;    // the lower left pixel
    const PlaneView drawn = canvas.Image().ShownPlane();
    CHECK(drawn.Type == SampleType::Bgra8);
    CHECK(drawn.Row<std::uint8_t>(1)[2] == 0x11);
    CHECK(drawn.Row<std::uint8_t>(0)[0] == 9);
}

TEST_CASE(
    "a window chosen for float data of a classic call draws by the formula until the old one comes back")
{
    SampleCanvas       canvas;
    std::vector<float> floats;
    for (int i = 0; i < 200; ++i)
        floats.push_back(static_cast<float>(i) * 3.0f - 100.0f);
    gCVSShowRawFloat(0, floats.data(), 20, 10, true, true);
    gCVSSetLutPara(0, 0.25f, 0.75f);
    const Frame         classic = canvas.Surface();
    const ContrastState before = canvas.Image().Contrast();
    CHECK(before.Low == doctest::Approx(-100.0 + 0.25 * 597.0).epsilon(1e-3));
    ContrastState fire = before;
    fire.Map = "fire";
    canvas.Image().ApplyContrast(fire);
    CHECK(canvas.PixelAt(0, 9) == FindColorMap("fire")[255]);
    gCVSSetLutPara(0, 0.0f, 1.0f);    // goes on with the color map
    CHECK(canvas.Image().Contrast().Map == "fire");
    CHECK(canvas.Image().Contrast().Low == -100.0);
    CHECK(canvas.Image().Contrast().High == 497.0);
    canvas.Image().ApplyContrast(before);
    CHECK(FrameDifference(canvas.Surface(), classic) == "");
}

TEST_CASE("bytes of a classic call keep their values under a window of their own")
{
    SampleCanvas               canvas;
    std::vector<unsigned char> a = {10, 20, 30, 40, 50, 60};
    gCVSShowUCColor(0, a.data(), a.data(), a.data(), 3, 2, true);
    const unsigned before = canvas.PixelAt(0, 0);
    ContrastState  inverted;
    inverted.Map = "inverted";
    canvas.Image().ApplyContrast(inverted);
    CHECK(canvas.PixelAt(0, 0) == (before ^ 0xFFFFFFu));
    CHECK(canvas.Image().ShownPlane().Row<std::uint8_t>(0)[2] == 10);
    canvas.Image().ApplyContrast(ContrastState());
    CHECK(canvas.PixelAt(0, 0) == before);
}

TEST_CASE("shares of the classic contrast call lie in the finite range of samples")
{
    SampleCanvas canvas;
    canvas.ShowFloats({NaN, -100.0f, 300.0f, Inf}, 2);
    gCVSSetLutPara(0, 0.25f, 0.5f);
    CHECK(canvas.Image().Contrast().Low == 0.0);
    CHECK(canvas.Image().Contrast().High == 100.0);
    gCVSSetLutPara(0, 0.5f, 0.5f);    // changes nothing
    CHECK(canvas.Image().Contrast().High == 100.0);
    gCVSSetLutPara(0, -1.0f, 2.0f);
    CHECK(canvas.Image().Contrast().Low == -100.0);
    CHECK(canvas.Image().Contrast().High == 300.0);
}

TEST_CASE("objects, view and contrast stay as the flags say")
{
    SampleCanvas canvas;
    canvas.ShowFloats({1.0f, 2.0f, 3.0f, 4.0f}, 2);
    gCVSAddMRectangle(0);
    ContrastState state = canvas.Image().Contrast();
    state.Gamma = 2.0;
    canvas.Image().ApplyContrast(state);
    canvas.Image().View.Scale = 3.0;
    canvas.Image().View.DisplayRect = CRect(5, 6, 11, 12);
    canvas.ShowFloats({5.0f, 6.0f, 7.0f, 8.0f}, 2, {.Objects = true, .View = true, .Contrast = true});
    CHECK(canvas.Image().Elements.size() == 1);
    CHECK(canvas.Image().View.DisplayRect == CRect(5, 6, 11, 12));
    CHECK(canvas.Image().Contrast() == state);
    CHECK(canvas.PixelAt(0, 0) == 0xFFFFFFu);
    canvas.ShowFloats({1.0f, 2.0f}, 2, {.Objects = true, .View = true});    // another size
    CHECK(canvas.Image().View.ImageHeight == 1);
    CHECK(canvas.Image().View.DisplayRect.Height() == 3);
    CHECK(canvas.Image().Contrast().Gamma == 1.0);
    canvas.ShowFloats({1.0f, 2.0f}, 2);
    CHECK(canvas.Image().Elements.empty());
}

TEST_CASE("a region's own window shows inside it alone, wherever the region goes")
{
    SampleCanvas       canvas;
    std::vector<float> values(10 * 8, 50.0f);
    values[0] = 0.0f;
    values[1] = 100.0f;
    for (const bool classic : {false, true}) {
        if (classic)
            gCVSShowRawFloat(0, values.data(), 10, 8, true, true);
        else
            canvas.ShowFloats(values, 10);
        const unsigned outside = 0x808080u;
        gCVSAddMRectangle(0);
        VostelObj& region = *canvas.Image().Elements[0];
        const auto place = [&](double x, double y) {
            const PointTemplateBase<double> corners[] = {{x, y}, {x + 3.0, y + 2.0}};
            REQUIRE(region.TakePoints(corners));
        };
        place(2.0, 3.0);
        region.WindowLow = 60.0;
        region.WindowHigh = 70.0;
        canvas.Image().RedrawRegions();
        CHECK(canvas.PixelAt(2, 3) == 0u);
        CHECK(canvas.PixelAt(4, 4) == 0u);
        CHECK(canvas.PixelAt(5, 4) == outside);
        CHECK(canvas.PixelAt(1, 3) == outside);
        place(5.0, 5.0);
        canvas.Paint();
        CHECK(canvas.PixelAt(2, 3) == outside);
        CHECK(canvas.PixelAt(5, 5) == 0u);
        ContrastState inverted = canvas.Image().Contrast();
        inverted.Map = "inverted";
        canvas.Image().ApplyContrast(inverted);
        CHECK(canvas.PixelAt(5, 5) == 0xFFFFFFu);
        CHECK(canvas.PixelAt(2, 3) == 0x7F7F7Fu);
        region.WindowHigh = region.WindowLow;
        canvas.Image().RedrawRegions();
        CHECK(canvas.PixelAt(5, 5) == 0x7F7F7Fu);
    }
}
