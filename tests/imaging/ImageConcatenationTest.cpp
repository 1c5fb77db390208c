#include "imaging/RandomPlanes.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <doctest/doctest.h>
#include <limits>
#include <new>

using namespace vostel;

namespace {

// Stands in for the host and counts what is shown.
struct Messages {
    std::vector<CString> Shown;
    Messages()
    {
        VostelHostServices services;
        services.ShowMessage = [this](const CString& text) { Shown.push_back(text); };
        gSetHostServices(services);
    }
    ~Messages() { gSetHostServices(VostelHostServices()); }
};

float At(const FloatPlane& image, std::int64_t x, int y)
{
    return y < image.Height && x >= 0 && x < image.Width ? image.Ptr2D[y][x] : 0.0f;
}

FloatPlane JoinedByHand(const FloatPlane& a, const FloatPlane& b, int overlap, int trim, bool equalise)
{
    FloatPlane result;
    if (overlap == 0) {
        result.Allocate(a.Width + b.Width, a.Height);
        for (int y = 0; y < a.Height; ++y)
            for (int x = 0; x < result.Width; ++x)
                result.Ptr2D[y][x] = x < a.Width ? a.Ptr2D[y][x] : At(b, x - a.Width, y);
        return result;
    }
    const int   blend = overlap - 2 * trim;
    const int   left = a.Width - trim - blend;
    const int   right = left + blend;
    const float step = static_cast<float>(1.0 / static_cast<double>(static_cast<float>(blend - 1)));
    result.Allocate(a.Width + b.Width - overlap, a.Height);
    for (int y = 0; y < a.Height; ++y) {
        float gain = 1.0f;
        if (equalise) {
            float sumA = 0.0f, sumB = 0.0f;
            for (int i = 0; i < blend; ++i)
                sumA += At(a, left + i, y);
            for (int i = 0; i < blend; ++i)
                sumB += At(b, trim + i, y);
            const float meanA = sumA / static_cast<float>(blend);
            const float meanB = sumB / static_cast<float>(blend);
            if (!(std::fabs(meanB) < 10.0f))
                gain = meanA / meanB;
        }
        for (int x = 0; x < result.Width; ++x) {
            const int k = x - left + trim;
            float     value;
            if (x < left)
                value = At(a, x, y);
            else if (x < right) {
                const float wB = static_cast<float>(x - left) * step;
                const float wA = static_cast<float>(1.0 - static_cast<double>(wB));
                value = At(b, k, y) * wB * gain + At(a, x, y) * wA;
            } else
                value = gain * At(b, k, y);
            result.Ptr2D[y][x] = value;
        }
    }
    return result;
}

FloatPlane Joined(FloatPlane a, FloatPlane b, int overlap, int trim, bool equalise)
{
    gImaConcate(&a, &b, overlap, trim, equalise);
    return a;
}

}

TEST_CASE("joined images equal the formula by hand")
{
    for (unsigned seed = 10100; seed < 10300; ++seed) {
        std::mt19937     random(seed);
        const int        width = 1 + static_cast<int>(random() % 70);
        const int        widthB = 1 + static_cast<int>(random() % 70);
        const int        height = 1 + static_cast<int>(random() % 20);
        const FloatPlane a =
            seed % 7 == 0 ? HardPlane(width, height, seed) : RandomFloats(width, height, random);
        const FloatPlane b = RandomFloats(widthB, height, random);
        const int        common = std::min(width, widthB);
        const int        overlap = common >= 2 ? 2 + static_cast<int>(random() % (common - 1)) : 0;
        const int        trim = static_cast<int>(random() % static_cast<unsigned>(overlap / 2 + 1));
        const int        used = overlap > 0 && overlap - 2 * trim < 2 ? 0 : trim;
        const bool       equalise = random() % 2 == 0;
        CHECK_MESSAGE(
            SamePlane(Joined(a, b, overlap, used, equalise), JoinedByHand(a, b, overlap, used, equalise)),
            "seed " << seed << ", overlap " << overlap << ", trim " << used);
    }
}

TEST_CASE("samples that an image does not have read as zero")
{
    int joined = 0;
    for (unsigned seed = 10400; seed < 10700; ++seed) {
        std::mt19937     random(seed);
        const auto       side = [&] { return 1 + static_cast<int>(random() % 12); };
        const FloatPlane a = RandomFloats(side(), side(), random);
        const FloatPlane b = RandomFloats(side(), side(), random);
        const int        overlap = static_cast<int>(random() % 30) - 2;
        const int        trim = static_cast<int>(random() % 12) - 6;
        const bool       equalise = random() % 2 == 0;
        if (overlap != 0 && (overlap - 2 * trim < 2 || a.Width + b.Width < overlap))
            continue;
        ++joined;
        CHECK_MESSAGE(
            SamePlane(Joined(a, b, overlap, trim, equalise), JoinedByHand(a, b, overlap, trim, equalise)),
            "seed " << seed << ", overlap " << overlap << ", trim " << trim);
    }
    CHECK(joined > 100);
}

TEST_CASE("without overlap images are butted together, whatever trim and equalise say")
{
    const FloatPlane a = PlaneOf<float>(2, {1, 2, 3, 4});
    const FloatPlane b = PlaneOf<float>(1, {50, 60});
    const FloatPlane expected = PlaneOf<float>(3, {1, 2, 50, 3, 4, 60});
    for (const int trim : {0, 3, -3, INT_MAX, INT_MIN})
        for (const bool equalise : {false, true})
            CHECK(SamePlane(Joined(a, b, 0, trim, equalise), expected));
}

TEST_CASE("an overlap that does not exceed twice the trim plus one is reported and leaves the image")
{
    FloatPlane   a = Constant(9, 2, 3.0f), b = Constant(9, 2, 4.0f);
    float* const buffer = a.Ptr1D;
    const int    cases[][2] = {{1, 0}, {5, 2}, {-1, 0}, {-40, 3}, {INT_MIN, 0}, {7, INT_MAX}};
    for (const auto& [overlap, trim] : cases) {
        Messages messages;
        gImaConcate(&a, &b, overlap, trim, true);
        REQUIRE(messages.Shown.size() == 1);
        CHECK(messages.Shown[0] == L"水平重合参数需要大于二倍的中间切边参数加一");
        CHECK(a.Ptr1D == buffer);
        CHECK(a.Width == 9);
    }
    Messages messages;
    gImaConcate(&a, &b, 6, 2, true);
    CHECK(messages.Shown.empty());
    CHECK(a.Width == 12);
    CHECK(a.Ptr1D != buffer);
}

TEST_CASE("an overlap of two without trim is the smallest cross-fade, with weights 0 and 1")
{
    CHECK(SamePlane(Joined(PlaneOf<float>(3, {1, 2, 3}), PlaneOf<float>(3, {10, 20, 30}), 2, 0, false),
                    PlaneOf<float>(4, {1, 2, 20, 30})));
}

TEST_CASE("a row whose mean is below 10 is not scaled, one of -10 is")
{
    const FloatPlane a = Constant(4, 1, 20.0f);
    CHECK(Joined(a, Constant(4, 1, 9.9f), 2, 0, true).Ptr2D[0][5] == 9.9f);
    CHECK(Joined(a, Constant(4, 1, -9.9f), 2, 0, true).Ptr2D[0][5] == -9.9f);
    CHECK(Joined(a, Constant(4, 1, 10.0f), 2, 0, true).Ptr2D[0][5] == 20.0f);
    CHECK(Joined(a, Constant(4, 1, -10.0f), 2, 0, true).Ptr2D[0][5] == 20.0f);
    CHECK(Joined(a, PlaneOf<float>(4, {-10, -10, 5, 7}), 2, 0, true).Ptr2D[0][5] == -14.0f);
}

TEST_CASE("two constant images are brought to the brightness of the first")
{
    const FloatPlane result = Joined(Constant(40, 12, 100.0f), Constant(30, 12, 50.0f), 11, 2, true);
    CHECK(result.Width == 59);
    for (int k = 0; k < 59 * 12; ++k)
        CHECK(std::fabs(result.Ptr1D[k] - 100.0f) < 1e-4f);
}

TEST_CASE("the cross-fade starts with the left image alone and ends with the right one alone")
{
    std::mt19937     random(10800);
    const FloatPlane a = RandomFloats(40, 10, random, 50.0f, 90.0f);
    const FloatPlane b = RandomFloats(40, 10, random, 50.0f, 90.0f);
    const FloatPlane result = Joined(a, b, 12, 1, false);
    const int        left = 40 - 1 - 10;
    for (int y = 0; y < 10; ++y) {
        CHECK(result.Ptr2D[y][left] == a.Ptr2D[y][left]);
        CHECK(result.Ptr2D[y][left + 9] == b.Ptr2D[y][1 + 9]);
        CHECK(result.Ptr2D[y][result.Width - 1] == b.Ptr2D[y][39]);
    }
}

TEST_CASE("an image cut apart is stitched back to what it was")
{
    const unsigned seed = 10900;
    std::mt19937   random(seed);
    FloatPlane     whole = Constant(90, 15, 0.0f);
    std::generate_n(whole.Ptr1D, 90 * 15, [&] { return static_cast<float>(random() % 4096); });
    for (const int overlap : {0, 2, 9, 20}) {
        for (const bool equalise : {false, true}) {
            const int  cut = 50;
            FloatPlane a, b;
            a.Allocate(cut, 15);
            b.Allocate(90 - cut + overlap, 15);
            for (int y = 0; y < 15; ++y) {
                std::copy_n(whole.Ptr2D[y], cut, a.Ptr2D[y]);
                std::copy_n(whole.Ptr2D[y] + cut - overlap, 90 - cut + overlap, b.Ptr2D[y]);
            }
            const FloatPlane result = Joined(a, b, overlap, overlap / 5, equalise);
            REQUIRE(result.Width == 90);
            for (int k = 0; k < 90 * 15; ++k)
                CHECK_MESSAGE(std::fabs(result.Ptr1D[k] - whole.Ptr1D[k]) < 1e-3f, "seed " << seed);
        }
    }
}

TEST_CASE("a right image that is too small or empty leaves zeros")
{
    const FloatPlane a = Constant(4, 3, 2.0f);
    CHECK(SamePlane(Joined(a, Constant(2, 1, 5.0f), 0, 0, false),
                    PlaneOf<float>(6, {2, 2, 2, 2, 5, 5, 2, 2, 2, 2, 0, 0, 2, 2, 2, 2, 0, 0})));
    FloatPlane released;
    released.Release();
    CHECK(SamePlane(Joined(a, FloatPlane(), 0, 0, false), a));
    CHECK(SamePlane(Joined(a, released, 0, 0, false), a));
    const FloatPlane faded = Joined(a, FloatPlane(), 3, 0, true);
    CHECK(SamePlane(faded, PlaneOf<float>(1, {2, 2, 2})));
}

TEST_CASE("a cross-fade that lies beside the result takes no pixel of an empty right image")
{
    // The result has 2 columns, and the cross-fade begins behind them.
    const FloatPlane a = Constant(4, 3, 2.0f);
    CHECK(SamePlane(Joined(a, FloatPlane(), 2, 0, false), PlaneOf<float>(2, {2, 2, 2, 2, 2, 2})));
    CHECK(SamePlane(Joined(a, Constant(2, 3, 5.0f), 2, 0, false),
                    PlaneOf<float>(4, {2, 2, 2, 5, 2, 2, 2, 5, 2, 2, 2, 5})));
}

TEST_CASE("a left image without rows gets wider all the same")
{
    FloatPlane b = Constant(4, 3, 2.0f), fresh, rowless;
    gImaConcate(&fresh, &b, 0, 0, false);
    CHECK(fresh.Width == 4);
    CHECK(fresh.Height == 0);
    CHECK(fresh.Ptr1D != nullptr);
    rowless.Allocate(6, 0);
    gImaConcate(&rowless, &b, 3, 0, true);
    CHECK(rowless.Width == 7);
    CHECK(rowless.Height == 0);
}

TEST_CASE("missing images and a released left one change nothing")
{
    FloatPlane   a = Constant(4, 3, 2.0f), released;
    float* const buffer = a.Ptr1D;
    released.Release();
    gImaConcate(nullptr, &a, 0, 0, false);
    gImaConcate(&a, nullptr, 0, 0, false);
    gImaConcate(&released, &a, 4, 0, true);
    CHECK(a.Ptr1D == buffer);
    CHECK(released.Width == -1);
    gImaConcate(&a, &a, 0, 0, false);
    CHECK(SamePlane(a, Constant(8, 3, 2.0f)));
}

TEST_CASE("a result of negative width fails by the allocator's exception and leaves the image")
{
    FloatPlane   a = Constant(4, 3, 2.0f), b = Constant(4, 3, 2.0f);
    float* const buffer = a.Ptr1D;
    CHECK_THROWS_AS(gImaConcate(&a, &b, 9, 0, false), std::bad_alloc);
    CHECK_THROWS_AS(gImaConcate(&a, &b, INT_MAX, INT_MIN, true), std::bad_alloc);
    CHECK(a.Ptr1D == buffer);
    gImaConcate(&a, &b, 8, -1000000000, true);
    CHECK(a.Width == 0);
    CHECK(a.Height == 3);
}

TEST_CASE("not-a-numbers stay in their row and sense")
{
    FloatPlane a = Constant(10, 3, 100.0f), b = Constant(10, 3, 50.0f);
    b.Ptr2D[1][4] = std::numeric_limits<float>::quiet_NaN();
    b.Ptr2D[2][9] = std::numeric_limits<float>::infinity();
    const FloatPlane result = Joined(a, b, 6, 1, true);
    CHECK(std::isnan(result.Ptr2D[1][13]));
    CHECK(result.Ptr2D[1][3] == 100.0f);
    CHECK(result.Ptr2D[0][13] == 100.0f);
    CHECK(std::isinf(result.Ptr2D[2][13]));
    CHECK(result.Ptr2D[2][12] == 100.0f);
}
