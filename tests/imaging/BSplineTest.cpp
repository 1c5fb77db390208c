#include <VostelObj.h>

#include <doctest/doctest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace {

using Point = PointTemplateBase<int>;
using Points = std::vector<Point>;

constexpr int Columns = 205;    // of a row of the working array

// The whole elimination on the dense matrix, the right-hand sides in the two columns behind it.
struct DenseSystem {
    double M[Columns][Columns];
    int    Size = 0;

    explicit DenseSystem(const Points& p)
    {
        const int N = static_cast<int>(p.size());
        const int n = N + 3;
        Size = n;
        std::memset(M, 0, sizeof M);
        std::vector<Point> q(p.size() + 1);
        q[0] = p[0];
        for (std::size_t i = 1; i < q.size(); ++i)
            q[i] = p[i - 1];
        const auto right = [&](int row, double x, double y) {
            M[row][n] = x;
            M[row][n + 1] = y;
        };
        const Point& last = p[p.size() - 1];
        M[0][0] = -0.5;
        M[0][2] = 1.5;
        right(0, p[0].x, p[0].y);
        M[1][1] = 2.0 / 3.0;
        M[1][2] = 2.0 / 3.0;
        right(1, p[0].x / 3.0 + q[0].x, p[0].y / 3.0 + q[0].y);
        for (int r = 2; r <= N; ++r) {
            M[r][r - 1] = 1.0 / 6.0;
            M[r][r] = 2.0 / 3.0;
            M[r][r + 1] = 1.0 / 6.0;
            right(r, q[static_cast<std::size_t>(r - 1)].x, q[static_cast<std::size_t>(r - 1)].y);
        }
        M[n - 2][n - 3] = 2.0 / 9.0;
        M[n - 2][n - 2] = 2.0 / 3.0;
        right(n - 2, q[static_cast<std::size_t>(N)].x - last.x / 9.0,
              q[static_cast<std::size_t>(N)].y - last.y / 9.0);
        M[n - 1][n - 3] = -0.5;
        M[n - 1][n - 1] = 1.5;
        right(n - 1, last.x, last.y);
    }

    int Solve()
    {
        const int n = Size;
        int       swaps = 0;
        for (int k = 0; k < n; ++k) {
            const double a = std::fabs(M[k][k]);
            int          pivot = k;
            for (int i = k; i < n; ++i) {
                if (std::fabs(M[i][k]) > a)
                    pivot = i;
            }
            if (pivot != k) {
                ++swaps;
                for (int c = 0; c < n + 2; ++c)
                    std::swap(M[k][c], M[pivot][c]);
            }
            const double divisor = M[k][k];
            for (int c = k; c < n + 2; ++c)
                M[k][c] /= divisor;
            for (int r = 0; r < n; ++r) {
                if (r == k)
                    continue;
                const double f = -M[r][k];
                for (int c = 0; c < n + 2; ++c)
                    M[r][c] += f * M[k][c];
            }
        }
        return swaps;
    }
};

struct Result {
    Points Curve;
    Points Controls;
};

int Truncated(double v)
{
    return static_cast<int>(v);
}

Result PlainSpline(const Points& points)
{
    const auto system = std::make_unique<DenseSystem>(points);
    system->Solve();
    const int   n = system->Size;
    const auto& M = system->M;
    Result      result;
    for (int i = 0; i < n; ++i)
        result.Controls.emplace_back(Truncated(M[i][n]), Truncated(M[i][n + 1]));
    for (int j = 0; j <= static_cast<int>(points.size()) - 2; ++j) {
        for (int t = 0; t <= 10; ++t) {
            const double u = t / 10.0;
            const double b0 = (1 - 3 * u + 3 * u * u - u * u * u) / 6;
            const double b1 = (4 - 6 * u * u + 3 * u * u * u) / 6;
            const double b2 = (1 + 3 * u + 3 * u * u - 3 * u * u * u) / 6;
            const double b3 = u * u * u / 6;
            const auto   at = [&](int c) {
                return Truncated(b0 * M[j + 1][c] + b1 * M[j + 2][c] + b2 * M[j + 3][c] + b3 * M[j + 4][c]);
            };
            result.Curve.emplace_back(at(n), at(n + 1));
        }
    }
    return result;
}

bool Same(const Points& a, const Points& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].x != b[i].x || a[i].y != b[i].y)
            return false;
    }
    return true;
}

Points RandomPoints(std::mt19937& random, int count, int extent)
{
    Points points;
    for (int i = 0; i < count; ++i) {
        const auto at = [&] {
            return static_cast<int>(random() % (2u * static_cast<unsigned>(extent))) - extent;
        };
        const int x = at();
        points.emplace_back(x, at());
    }
    return points;
}

}

TEST_CASE("curve and control points are those of the dense elimination for every count from 2 to 199")
{
    constexpr unsigned Seed = 1999;
    std::mt19937       random(Seed);
    for (int count = 2; count <= 199; ++count) {
        const Points points = RandomPoints(random, count, count % 3 == 0 ? 2000000000 / 2 : 2000);
        Points       curve, controls;
        mB3Line(points, curve, controls);
        const Result plain = PlainSpline(points);
        CHECK_MESSAGE(Same(controls, plain.Controls), "controls of ", count, " points, seed ", Seed);
        CHECK_MESSAGE(Same(curve, plain.Curve), "curve of ", count, " points, seed ", Seed);
    }
}

TEST_CASE("the results do not change with the points' kind: small, coincident, on a line")
{
    constexpr unsigned Seed = 8;
    std::mt19937       random(Seed);
    for (int round = 0; round < 300; ++round) {
        const int count = 2 + static_cast<int>(random() % 30);
        Points    points = RandomPoints(random, count, 1 + round % 40);
        if (round % 5 == 0)
            points.assign(points.size(), points[0]);
        if (round % 5 == 1)
            for (Point& p : points)
                p.y = 2 * p.x;
        if (round % 5 == 2)
            points.back() = points.front();
        Points curve, controls;
        mB3Line(points, curve, controls);
        const Result plain = PlainSpline(points);
        CHECK_MESSAGE(Same(controls, plain.Controls), "round ", round, " seed ", Seed);
        CHECK_MESSAGE(Same(curve, plain.Curve), "round ", round, " seed ", Seed);
    }
}

TEST_CASE("two points give 11 curve points and 5 control points")
{
    const Points points = {{10, 20}, {110, -80}};
    Points       curve(3, Point(7, 7));
    Points       controls(3, Point(7, 7));
    mB3Line(points, curve, controls);
    CHECK(curve.size() == 11);
    CHECK(controls.size() == 5);
    CHECK(Same(points, {{10, 20}, {110, -80}}));
}

TEST_CASE("a segment gives 11 points and the end of one repeats as the start of the next")
{
    const Points points = {{0, 0}, {300, 20}, {350, 300}, {40, 280}, {0, 0}};
    Points       curve, controls;
    mB3Line(points, curve, controls);
    REQUIRE(curve.size() == 44);
    REQUIRE(controls.size() == 8);
    for (std::size_t segment = 1; segment < 4; ++segment) {
        CHECK(std::abs(curve[11 * segment - 1].x - curve[11 * segment].x) <= 1);
        CHECK(std::abs(curve[11 * segment - 1].y - curve[11 * segment].y) <= 1);
    }
}

TEST_CASE("each segment starts on its point, and the two ends of the curve are no mirror images")
{
    const Points points = {{0, 0}, {300, 20}, {350, 300}, {40, 280}, {200, 140}};
    Points       curve, controls;
    mB3Line(points, curve, controls);
    REQUIRE(curve.size() == 44);
    // Each segment starts on its point; the end conditions bend the last one away from the last point.
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        CHECK(std::abs(curve[11 * i].x - points[i].x) <= 1);
        CHECK(std::abs(curve[11 * i].y - points[i].y) <= 1);
    }
    // The reversed points do not give the reversed curve.
    Points reversed(points.rbegin(), points.rend());
    Points other;
    mB3Line(reversed, other, controls);
    std::vector<Point> back(other.rbegin(), other.rend());
    CHECK_FALSE(Same(curve, back));
}

TEST_CASE("counts below 2 and above 199 leave the results untouched")
{
    for (const int count : {0, 1, 200, 201, 5000}) {
        const Points points(static_cast<std::size_t>(count), Point(3, 4));
        Points       curve = {{1, 2}};
        Points       controls = {{5, 6}, {7, 8}};
        mB3Line(points, curve, controls);
        CHECK(Same(curve, {{1, 2}}));
        CHECK(Same(controls, {{5, 6}, {7, 8}}));
    }
    const Points most(199, Point(3, 4));
    Points       curve, controls;
    mB3Line(most, curve, controls);
    CHECK(curve.size() == 11 * 198);
    CHECK(controls.size() == 202);
}

TEST_CASE("the points may come in a vector that also receives a result")
{
    const Points points = {{0, 0}, {30, 2}, {35, 30}, {4, 28}};
    Points       curve, controls;
    mB3Line(points, curve, controls);
    Points shared = points;
    Points other;
    mB3Line(shared, shared, other);
    CHECK(Same(shared, curve));
    CHECK(Same(other, controls));
}
