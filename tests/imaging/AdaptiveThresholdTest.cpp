#include "imaging/RandomPlanes.h"
#include "imaging/ThresholdRows.h"

#include <climits>
#include <cstdint>
#include <doctest/doctest.h>

using namespace vostel;

namespace {

BytePlane RandomBytes(int width, int height, std::mt19937& random, int spread = 256)
{
    BytePlane plane;
    plane.Allocate(width, height);
    std::generate_n(plane.Ptr1D, width * height,
                    [&] { return static_cast<unsigned char>(random() % spread); });
    return plane;
}

BytePlane ThresholdByHand(BytePlane image, int size)
{
    const int r = size / 2;
    const int area = (2 * r + 1) * (2 * r + 1);
    BytePlane result;
    result.Allocate(image.Width, image.Height);
    for (int y = 0; y < image.Height; ++y) {
        for (int x = 0; x < image.Width; ++x) {
            int sum = 0;
            for (int j = -r; j <= r; ++j)
                for (int i = -r; i <= r; ++i)
                    sum += image.MirrorValue(PointTemplateBase<int>(x + i, y + j));
            const bool above =
                static_cast<double>(image.Ptr2D[y][x] * area) > static_cast<double>(sum) * 0.85;
            result.Ptr2D[y][x] = above ? 255 : 0;
        }
    }
    return result;
}

BytePlane Thresholded(BytePlane image, int size)
{
    LAT_Constant(image, size);
    return image;
}

}

TEST_CASE("every variant of the threshold equals the sums by hand on images and squares of any size")
{
    for (unsigned seed = 8100; seed < 8180; ++seed) {
        std::mt19937    random(seed);
        const int       width = 1 + static_cast<int>(random() % 70);
        const int       height = 1 + static_cast<int>(random() % 40);
        const int       size = static_cast<int>(random() % 24);
        const BytePlane image = RandomBytes(width, height, random, seed % 3 == 0 ? 4 : 256);
        const BytePlane expected = ThresholdByHand(image, size);
        InEveryVariant([&](const char* variant) {
            CHECK_MESSAGE(SamePlane(Thresholded(image, size), expected), variant << ", seed " << seed << ", "
                                                                                 << width << "x" << height
                                                                                 << ", size " << size);
        });
    }
}

TEST_CASE("every variant equals the sums by hand on wide images")
{
    unsigned seed = 8200;
    for (const int width : {127, 128, 129, 191, 192, 200, 333}) {
        std::mt19937    random(++seed);
        const BytePlane image = RandomBytes(width, 20, random);
        for (const int size : {3, 9, 31}) {
            const BytePlane expected = ThresholdByHand(image, size);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Thresholded(image, size), expected),
                              variant << ", seed " << seed << ", width " << width << ", size " << size);
            });
        }
    }
}

TEST_CASE("a square larger than the image folds as often as it takes")
{
    unsigned seed = 8300;
    for (int width = 1; width <= 6; ++width) {
        for (int height = 1; height <= 6; ++height) {
            std::mt19937    random(++seed);
            const BytePlane image = RandomBytes(width, height, random);
            for (const int size : {2 * width, 2 * width + 2, 7, 29, 101})
                CHECK_MESSAGE(SamePlane(Thresholded(image, size), ThresholdByHand(image, size)),
                              "seed " << seed << ", " << width << "x" << height << ", size " << size);
        }
    }
}

TEST_CASE("whole numbers decide as the quotient in double does")
{
    // Sums next to every product, where alone the two could differ; and the largest ones that fit in 31 bits.
    const std::int64_t products[] = {1,   17,    18,      34,       85,        900,
                                     774, 65025, 8388607, 16777216, 106745745, 106745729};
    for (const std::int64_t product : products) {
        const std::int64_t middle = product * 20 / 17;
        for (std::int64_t sum = std::max<std::int64_t>(middle - 40, 0); sum <= middle + 40; ++sum)
            CHECK((20 * product > 17 * sum) ==
                  (static_cast<double>(product) > static_cast<double>(sum) * 0.85));
    }
    bool same = true;
    for (std::int64_t whole = 1; whole < 6400000; whole += 7)
        for (std::int64_t step = -1; step <= 1; ++step)
            same =
                same && (20 * (17 * whole + step) > 17 * (20 * whole)) ==
                            (static_cast<double>(17 * whole + step) > static_cast<double>(20 * whole) * 0.85);
    CHECK(same);
}

TEST_CASE("both comparisons of every variant are strict, for every length")
{
    InEveryVariant([&](const char* variant) {
        const ThresholdVariant& functions = ActiveThresholdVariant();
        for (int width = 1; width <= 150; ++width) {
            const std::size_t          length = static_cast<std::size_t>(width);
            const unsigned             seed = 8600 + static_cast<unsigned>(width);
            std::mt19937               random(seed);
            std::vector<unsigned char> pixels(length);
            std::vector<int>           columns(length + 1), columnsInDouble(length + 1);
            std::vector<unsigned char> expected(length);
            GuardedRun<unsigned char>  target(length, length % 64, 7), targetInDouble(length, length % 64, 7);
            const int                  area = 17 * 3001;
            // With squares of one column the sum of pixel x is columns[x + 1] - columns[0].
            for (std::size_t x = 0; x < length; ++x) {
                pixels[x] = static_cast<unsigned char>(random());
                const int step = static_cast<int>(random() % 3) - 1;
                expected[x] = step < 0 ? 255 : 0;
                columns[x + 1] = pixels[x] * area + step;
                columnsInDouble[x + 1] = pixels[x] * (area / 17) * 20 + step;
            }
            functions.Decide(columns.data(), 1, 0, area, pixels.data(), target.Data(), width);
            functions.DecideInDouble(columnsInDouble.data(), 1, 0, area, pixels.data(), targetInDouble.Data(),
                                     width);
            CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), target.Data()),
                          variant << ", seed " << seed);
            CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), targetInDouble.Data()),
                          variant << ", seed " << seed);
            CHECK(target.GuardsStand());
            CHECK(targetInDouble.GuardsStand());
        }
    });
}

TEST_CASE("sizes 0 and 1, and -1 that truncates to 0, make every pixel but zero white")
{
    const BytePlane image = PlaneOf<unsigned char>(4, {0, 1, 128, 255});
    for (const int size : {0, 1, -1})
        CHECK(SamePlane(Thresholded(image, size), PlaneOf<unsigned char>(4, {0, 255, 255, 255})));
}

TEST_CASE("size 4 behaves as size 5")
{
    std::mt19937    random(8400);
    const BytePlane image = RandomBytes(40, 30, random);
    CHECK(SamePlane(Thresholded(image, 4), Thresholded(image, 5)));
    CHECK(!SamePlane(Thresholded(image, 4), Thresholded(image, 3)));
}

TEST_CASE("a constant image becomes all white, border included, and a zero one stays zero")
{
    for (const int size : {1, 3, 16, 61, 700}) {
        CHECK(SamePlane(Thresholded(Constant<unsigned char>(50, 20, 7), size),
                        Constant<unsigned char>(50, 20, 255)));
        CHECK(SamePlane(Thresholded(Constant<unsigned char>(50, 20, 0), size),
                        Constant<unsigned char>(50, 20, 0)));
    }
}

TEST_CASE("at a mean of 100 a pixel of 86 is white and one of 85 black")
{
    BytePlane image = PlaneOf<unsigned char>(3, {100, 100, 100, 100, 86, 100, 100, 100, 114});
    CHECK(Thresholded(image, 3).Ptr2D[1][1] == 255);
    image.Ptr2D[1][1] = 85;
    image.Ptr2D[2][2] = 115;
    CHECK(Thresholded(image, 3).Ptr2D[1][1] == 0);
}

TEST_CASE("squares at the limit of the narrow sums and beyond equal the sums by hand")
{
    // Bright images bring the largest sums. Columns repeat, so that few by hand stand for all.
    std::mt19937 random(8500);
    BytePlane    image;
    image.Allocate(1500, 2);
    std::generate_n(image.Ptr1D, 3000, [&] { return static_cast<unsigned char>(random() % 64 + 192); });
    for (const int size : {645, 647, 648, 651, 2001, 2901, 2902, 2999}) {
        const int          r = size / 2;
        const std::int64_t area = static_cast<std::int64_t>(2 * r + 1) * (2 * r + 1);
        BytePlane          copy = image;
        // Of 2r + 1 reflected rows of two, which each of the two is read how often.
        InEveryVariant([&](const char* variant) {
            const BytePlane result = Thresholded(image, size);
            bool            same = true;
            for (int y = 0; y < 2; ++y) {
                std::int64_t times[2] = {0, 0};
                for (int j = y - r; j <= y + r; ++j) {
                    const int folded = ((j % 4) + 4) % 4;    // 0 1 1 0
                    ++times[folded == 1 || folded == 2];
                }
                for (int x = 0; x < 1500; x += 97) {
                    std::int64_t sum = 0;
                    for (int i = x - r; i <= x + r; ++i)
                        for (int row = 0; row < 2; ++row)
                            sum += times[row] * copy.MirrorValue(PointTemplateBase<int>(i, row));
                    const bool above =
                        static_cast<double>(image.Ptr2D[y][x] * area) > static_cast<double>(sum) * 0.85;
                    same = same && result.Ptr2D[y][x] == (above ? 255 : 0);
                }
            }
            CHECK_MESSAGE(same, variant << ", size " << size);
        });
    }
}

TEST_CASE("huge sizes compare with the mean of the whole image and do not take longer")
{
    BytePlane image = Constant<unsigned char>(64, 64, 100);
    image.Ptr2D[10][10] = 84;
    image.Ptr2D[20][20] = 86;
    for (const int size : {100001, 10000001, INT_MAX}) {
        const BytePlane result = Thresholded(image, size);
        CHECK(result.Ptr2D[10][10] == 0);
        CHECK(result.Ptr2D[20][20] == 255);
        CHECK(result.Ptr2D[63][63] == 255);
    }
}

TEST_CASE("negative sizes and images without pixels change nothing, and buffers are kept")
{
    BytePlane             image = PlaneOf<unsigned char>(2, {1, 2, 3, 200});
    unsigned char* const  buffer = image.Ptr1D;
    unsigned char** const rows = image.Ptr2D;
    for (const int size : {-2, -3, -100, INT_MIN})
        CHECK(SamePlane(Thresholded(image, size), image));
    BytePlane empty, released;
    released.Release();
    LAT_Constant(empty, 5);
    LAT_Constant(released, 5);
    CHECK(empty.Width == 0);
    CHECK(released.Width == -1);
    LAT_Constant(image, 3);
    CHECK(image.Ptr1D == buffer);
    CHECK(image.Ptr2D == rows);
    CHECK(image.Ptr2D[1][1] == 255);
    CHECK(image.Ptr2D[0][0] == 0);
}
