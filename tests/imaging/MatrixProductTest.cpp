#include "imaging/MatrixRows.h"
#include "imaging/RandomPlanes.h"

#include <doctest/doctest.h>

using namespace vostel;

namespace {

FloatPlane ProductByHand(const FloatPlane& a, const FloatPlane& b)
{
    FloatPlane c;
    c.Allocate(b.Width, a.Height);
    for (int i = 0; i < a.Height; ++i) {
        for (int j = 0; j < b.Width; ++j) {
            float sum = 0.0f;
            for (int k = 0; k < a.Width; ++k)
                sum += a.Ptr2D[i][k] * b.Ptr2D[k][j];
            c.Ptr2D[i][j] = sum;
        }
    }
    return c;
}

}

TEST_CASE("every variant of the matrix product equals the sums by hand for any sizes")
{
    for (unsigned seed = 11100; seed < 11220; ++seed) {
        std::mt19937 random(seed);
        const auto   side = [&] { return 1 + static_cast<int>(random() % (seed % 10 == 0 ? 300 : 70)); };
        const int    rows = side(), terms = side(), columns = side();
        FloatPlane   a = seed % 6 == 0 ? HardPlane(terms, rows, seed) : RandomFloats(terms, rows, random);
        FloatPlane   b = RandomFloats(columns, terms, random);
        FloatPlane   expected = ProductByHand(a, b);
        InEveryVariant([&](const char* variant) {
            FloatPlane c;
            MatrixMul(a, b, c);
            CHECK_MESSAGE(SamePlane(c, expected), variant << ", seed " << seed << ", " << rows << " by "
                                                          << terms << " by " << columns);
        });
    }
}

TEST_CASE("no variant of the product writes outside its columns")
{
    InEveryVariant([&](const char* variant) {
        for (int columns = 1; columns <= 80; ++columns) {
            const std::vector<float> a(10, 2.0f), b(static_cast<std::size_t>(2 * columns), 3.0f);
            GuardedRun<float>        c(static_cast<std::size_t>(5 * columns), 3, -1.0f);
            ActiveMatrixVariant().Multiply({a.data(), 2, b.data(), columns, c.Data(), columns, 5, columns});
            CHECK_MESSAGE(c.GuardsStand(), variant << ", " << columns << " columns");
            CHECK_MESSAGE(std::count(c.Data(), c.Data() + 5 * columns, 12.0f) == 5 * columns, variant);
        }
    });
}

TEST_CASE("a factor may receive the product")
{
    const FloatPlane one = PlaneOf<float>(2, {1, 2, 3, 4}), other = PlaneOf<float>(2, {5, 6, 7, 8});
    const FloatPlane expected = PlaneOf<float>(2, {19, 22, 43, 50});
    FloatPlane       a = one, b = other;
    MatrixMul(a, b, a);
    CHECK(SamePlane(a, expected));
    a = one;
    MatrixMul(a, b, b);
    CHECK(SamePlane(b, expected));
}

TEST_CASE("a product without terms is zero and one of unlike sides leaves the result")
{
    FloatPlane a, b, c = Constant(2, 2, 9.0f);
    a.Allocate(0, 3);
    b.Allocate(4, 0);
    MatrixMul(a, b, c);
    CHECK(SamePlane(c, Constant(4, 3, 0.0f)));
    FloatPlane   two = Constant(2, 2, 1.0f), three = Constant(3, 3, 1.0f);
    float* const buffer = c.Ptr1D;
    MatrixMul(two, three, c);
    CHECK(c.Ptr1D == buffer);
}
