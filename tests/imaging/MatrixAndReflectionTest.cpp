#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>

TEST_CASE("a product of a 2 x 3 and a 3 x 2 matrix is 2 x 2")
{
    ClassData2DIO<float> a, b, c;
    a.Allocate(3, 2);
    b.Allocate(2, 3);
    const float left[6] = {1, 2, 3, 4, 5, 6};
    const float right[6] = {7, 8, 9, 10, 11, 12};
    std::copy_n(left, 6, a.Ptr1D);
    std::copy_n(right, 6, b.Ptr1D);
    MatrixMul(a, b, c);
    REQUIRE(c.Width == 2);
    REQUIRE(c.Height == 2);
    CHECK(c.Ptr2D[0][0] == 58.0f);
    CHECK(c.Ptr2D[0][1] == 64.0f);
    CHECK(c.Ptr2D[1][0] == 139.0f);
    CHECK(c.Ptr2D[1][1] == 154.0f);
}

TEST_CASE("a product of sizes that do not fit leaves the result alone")
{
    ClassData2DIO<float> a, b, c;
    a.Allocate(3, 2);
    b.Allocate(3, 2);
    c.Allocate(1, 1);
    c.Ptr1D[0] = 42.0f;
    MatrixMul(a, b, c);
    CHECK(c.Width == 1);
    CHECK(c.Ptr1D[0] == 42.0f);
}

TEST_CASE("each element of a product is one float sum in the order of the columns")
{
    constexpr unsigned Seed = 5;
    std::mt19937       random(Seed);
    INFO("seed ", Seed);
    for (int round = 0; round < 60; ++round) {
        const int            n = 1 + static_cast<int>(random() % 40);
        const int            m = 1 + static_cast<int>(random() % 40);
        const int            p = 1 + static_cast<int>(random() % 40);
        ClassData2DIO<float> a, b, c;
        a.Allocate(m, n);
        b.Allocate(p, m);
        const auto value = [&] {
            return std::ldexp(static_cast<float>(static_cast<int>(random() % 20001) - 10000),
                              static_cast<int>(random() % 40) - 20);
        };
        for (int i = 0; i < n * m; ++i)
            a.Ptr1D[i] = value();
        for (int i = 0; i < m * p; ++i)
            b.Ptr1D[i] = value();
        MatrixMul(a, b, c);
        bool same = c.Width == p && c.Height == n;
        for (int i = 0; same && i < n; ++i) {
            for (int j = 0; j < p; ++j) {
                float sum = 0.0f;
                for (int k = 0; k < m; ++k)
                    sum += a.Ptr2D[i][k] * b.Ptr2D[k][j];
                same = same && sum == c.Ptr2D[i][j];
            }
        }
        CHECK(same);
    }
}

TEST_CASE("a coordinate pair is reflected into the image, the edge sample skipped or repeated")
{
    const auto x = [](int at, int width, bool skipEdge) {
        int other = 0;
        mMapXYOutOfIma(at, other, width, 1, skipEdge);
        return at;
    };
    const auto y = [](int at, int height, bool skipEdge) {
        int other = 0;
        mMapXYOutOfIma(other, at, 1, height, skipEdge);
        return at;
    };
    CHECK(x(10, 10, true) == 8);
    CHECK(x(10, 10, false) == 9);
    CHECK(x(-1, 10, true) == 1);
    CHECK(x(-1, 10, false) == 0);
    CHECK(x(1, 1, true) == -1);    // no clamp follows
    CHECK(x(0, 1, true) == 0);
    for (int c = -50; c <= 50; ++c) {
        for (const bool skipEdge : {true, false}) {
            for (int n = 1; n <= 7; ++n) {
                int expected = c;
                if (expected < 0)
                    expected = skipEdge ? -expected : -expected - 1;
                while (expected >= 2 * n)
                    expected -= 2 * n;
                if (expected >= n)
                    expected = skipEdge ? 2 * n - 2 - expected : 2 * n - 1 - expected;
                CHECK(x(c, n, skipEdge) == expected);
                CHECK(y(c, n, skipEdge) == expected);
            }
        }
    }
}

TEST_CASE("a reflection ends for every coordinate and every extent")
{
    for (const int extent : {INT32_MIN, -1, 0, 1, 2, INT32_MAX}) {
        for (const int start : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
            for (const bool skipEdge : {true, false}) {
                int x = start;
                int y = start;
                mMapXYOutOfIma(x, y, extent, extent, skipEdge);
                CHECK(x == y);
            }
        }
    }
    int x = INT32_MIN;
    int y = 0;
    mMapXYOutOfIma(x, y, 3, 3, false);    // 2147483647 modulo 6 is 1
    CHECK(x == 1);
}
