#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

namespace {

using Plane = ClassData2DIO<int>;

void Zeros(Plane& plane, int width, int height)
{
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, width * height, 0);
}

}

TEST_CASE("the box of a label holds its extremes, and of an absent one the four start values")
{
    Plane plane;
    Zeros(plane, 20, 10);
    plane.Ptr2D[2][5] = 8;
    plane.Ptr2D[7][3] = 8;
    plane.Ptr2D[4][17] = 8;
    plane.Ptr2D[0][0] = 9;
    ZEKRECT rect;
    GetBlobOutRect(plane, rect, 8);
    CHECK(rect.left == 3);
    CHECK(rect.top == 2);
    CHECK(rect.right == 17);
    CHECK(rect.bottom == 7);
    GetBlobOutRect(plane, rect, 9);
    CHECK(rect.left == 0);
    CHECK(rect.right == 0);
    GetBlobOutRect(plane, rect, 77);
    CHECK(rect.left == 10000);
    CHECK(rect.top == 10000);
    CHECK(rect.right == -10000);
    CHECK(rect.bottom == -10000);
    Plane empty;
    rect = ZEKRECT();
    GetBlobOutRect(empty, rect, 0);
    CHECK(rect.left == 10000);
    CHECK(rect.bottom == -10000);
}

TEST_CASE("in planes beyond 10000 columns or rows the left and top of a box stop at 10000")
{
    Plane wide;
    Zeros(wide, 10100, 1);
    wide.Ptr1D[10050] = 1;
    ZEKRECT rect;
    GetBlobOutRect(wide, rect, 1);
    CHECK(rect.left == 10000);
    CHECK(rect.right == 10050);
    CHECK(rect.top == 0);
    Plane tall;
    Zeros(tall, 1, 10100);
    tall.Ptr1D[10050] = 1;
    GetBlobOutRect(tall, rect, 1);
    CHECK(rect.top == 10000);
    CHECK(rect.bottom == 10050);
    CHECK(rect.left == 0);
}

TEST_CASE("boxes of labels in random planes are those of a look at every pixel")
{
    constexpr unsigned Seed = 31;
    std::mt19937       random(Seed);
    INFO("seed ", Seed);
    for (int round = 0; round < 200; ++round) {
        const int width = 1 + static_cast<int>(random() % 40);
        const int height = 1 + static_cast<int>(random() % 40);
        Plane     plane;
        plane.Allocate(width, height);
        for (int i = 0; i < width * height; ++i)
            plane.Ptr1D[i] = static_cast<int>(random() % 60);
        int left = 10000, top = 10000, right = -10000, bottom = -10000;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (plane.Ptr2D[y][x] != 7)
                    continue;
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
        }
        ZEKRECT rect;
        GetBlobOutRect(plane, rect, 7);
        CHECK(rect.left == left);
        CHECK(rect.top == top);
        CHECK(rect.right == right);
        CHECK(rect.bottom == bottom);
    }
}
