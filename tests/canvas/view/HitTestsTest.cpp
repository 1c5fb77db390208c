#include "canvas/view/HitTests.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <random>

using namespace vostel;

namespace {

using Points = std::vector<CPoint>;

const Points Square = {CPoint(10, 10), CPoint(20, 10), CPoint(20, 20), CPoint(10, 20)};

// By a ray to the right and the exact side of each edge it meets; the point must lie on no edge.
bool WindsAround(const Points& points, CPoint p)
{
    int winding = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const CPoint    a = points[i];
        const CPoint    b = points[(i + 1) % points.size()];
        const long long side =
            static_cast<long long>(b.x - a.x) * (p.y - a.y) - static_cast<long long>(p.x - a.x) * (b.y - a.y);
        if (a.y <= p.y && b.y > p.y && side > 0)
            ++winding;
        if (a.y > p.y && b.y <= p.y && side < 0)
            --winding;
    }
    return winding != 0;
}

bool OnEdge(const Points& points, CPoint p)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        const CPoint a = points[i];
        const CPoint b = points[(i + 1) % points.size()];
        const bool   within = p.x >= std::min(a.x, b.x) && p.x <= std::max(a.x, b.x) &&
                            p.y >= std::min(a.y, b.y) && p.y <= std::max(a.y, b.y);
        if (within && static_cast<long long>(b.x - a.x) * (p.y - a.y) ==
                          static_cast<long long>(p.x - a.x) * (b.y - a.y))
            return true;
    }
    return false;
}

}

TEST_CASE("a handle reaches its radius on every side of its point")
{
    std::vector<CRect> rects(7, CRect(1, 1, 1, 1));
    CalcHandleRects({CPoint(10, 20), CPoint(-3, 0)}, rects, 4);
    REQUIRE(rects.size() == 2);
    CHECK(rects[0] == CRect(6, 16, 14, 24));
    CHECK(rects[1] == CRect(-7, -4, 1, 4));
    CalcHandleRects({}, rects, 4);
    CHECK(rects.empty());
    CalcHandleRects({CPoint(5, 5)}, rects, 0);
    CHECK(rects[0] == CRect(5, 5, 5, 5));
    CalcHandleRects({CPoint(5, 5)}, rects, -2);
    CHECK(rects[0] == CRect(7, 7, 3, 3));
}

TEST_CASE("handles of points at the limits of 32 bits wrap")
{
    std::vector<CRect> rects;
    CalcHandleRects({CPoint(INT_MIN, INT_MAX)}, rects, 4);
    CHECK(rects[0] == CRect(INT_MAX - 3, INT_MAX - 4, INT_MIN + 4, INT_MIN + 3));
}

TEST_CASE("the first rectangle that holds the point is hit")
{
    const std::vector<CRect> rects = {CRect(0, 0, 5, 5), CRect(10, 10, 20, 20), CRect(15, 15, 25, 25)};
    CHECK(HitRectList(rects, CPoint(17, 17)) == 1);
    CHECK(HitRectList(rects, CPoint(22, 22)) == 2);
    CHECK(HitRectList(rects, CPoint(0, 0)) == 0);
    CHECK(HitRectList(rects, CPoint(7, 7)) == -1);
}

TEST_CASE("left and top edge of a rectangle count in, right and bottom out")
{
    const std::vector<CRect> rects = {CRect(10, 10, 20, 20)};
    CHECK(HitRectList(rects, CPoint(10, 10)) == 0);
    CHECK(HitRectList(rects, CPoint(19, 19)) == 0);
    CHECK(HitRectList(rects, CPoint(20, 19)) == -1);
    CHECK(HitRectList(rects, CPoint(19, 20)) == -1);
    CHECK(HitRectList(rects, CPoint(9, 10)) == -1);
}

TEST_CASE("an empty list and an inverted rectangle are never hit")
{
    CHECK(HitRectList({}, CPoint(0, 0)) == -1);
    CHECK(HitRectList({CRect(20, 20, 10, 10)}, CPoint(15, 15)) == -1);
}

TEST_CASE("fewer than three points have no inside")
{
    CHECK_FALSE(PointInPolygon({}, CPoint(0, 0)));
    CHECK_FALSE(PointInPolygon({CPoint(0, 0)}, CPoint(0, 0)));
    CHECK_FALSE(PointInPolygon({CPoint(0, 0), CPoint(10, 0)}, CPoint(5, 0)));
}

TEST_CASE("a polygon holds its inside, its edges and its vertices, whichever way round it runs")
{
    const Points backwards(Square.rbegin(), Square.rend());
    for (const Points& points : {Square, backwards}) {
        for (int y = 5; y < 26; ++y) {
            for (int x = 5; x < 26; ++x) {
                CAPTURE(x);
                CAPTURE(y);
                CHECK(PointInPolygon(points, CPoint(x, y)) == (x >= 10 && x <= 20 && y >= 10 && y <= 20));
            }
        }
    }
}

TEST_CASE("a point of a slanted edge is inside, its neighbours as they lie")
{
    const Points triangle = {CPoint(0, 0), CPoint(30, 10), CPoint(0, 20)};
    CHECK(PointInPolygon(triangle, CPoint(15, 5)));
    CHECK_FALSE(PointInPolygon(triangle, CPoint(15, 4)));
    CHECK(PointInPolygon(triangle, CPoint(15, 6)));
    CHECK(PointInPolygon(triangle, CPoint(30, 10)));
    CHECK_FALSE(PointInPolygon(triangle, CPoint(31, 10)));
    CHECK(PointInPolygon(triangle, CPoint(0, 7)));
}

TEST_CASE("a point wound round twice is inside, one between two opposite turns is not")
{
    const Points star = {CPoint(0, -100), CPoint(59, 81), CPoint(-95, -31), CPoint(95, -31), CPoint(-59, 81)};
    CHECK(PointInPolygon(star, CPoint(0, 0)));
    CHECK_FALSE(PointInPolygon(star, CPoint(0, 90)));
    // Once round each way.
    const Points undone = {CPoint(10, 10), CPoint(-10, 10), CPoint(-10, -10), CPoint(10, -10),
                           CPoint(10, 10), CPoint(10, -10), CPoint(-10, -10), CPoint(-10, 10)};
    CHECK_FALSE(PointInPolygon(undone, CPoint(0, 0)));
    CHECK(PointInPolygon(undone, CPoint(10, 0)));
}

TEST_CASE("three points on one line hold the points of the line")
{
    const Points line = {CPoint(0, 0), CPoint(10, 10), CPoint(20, 20)};
    CHECK(PointInPolygon(line, CPoint(15, 15)));
    CHECK_FALSE(PointInPolygon(line, CPoint(15, 16)));
    CHECK_FALSE(PointInPolygon(line, CPoint(21, 21)));
    const Points same(5, CPoint(3, 3));
    CHECK(PointInPolygon(same, CPoint(3, 3)));
    CHECK_FALSE(PointInPolygon(same, CPoint(4, 3)));
}

TEST_CASE("the quadrant sum agrees with a ray on random polygons, off the edges")
{
    const unsigned seed = 20240;
    CAPTURE(seed);
    std::mt19937 random(seed);
    int          inside = 0;
    for (int round = 0; round < 400; ++round) {
        CAPTURE(round);
        const int reach = round % 2 == 0 ? 12 : 40000;
        Points    points;
        for (unsigned i = 3 + random() % 9; i > 0; --i)
            points.push_back(CPoint(static_cast<int>(random() % static_cast<unsigned>(reach)),
                                    static_cast<int>(random() % static_cast<unsigned>(reach))));
        for (int i = 0; i < 60; ++i) {
            const CPoint p(static_cast<int>(random() % static_cast<unsigned>(reach)),
                           static_cast<int>(random() % static_cast<unsigned>(reach)));
            CAPTURE(p.x);
            CAPTURE(p.y);
            if (OnEdge(points, p)) {
                REQUIRE(PointInPolygon(points, p));
            } else {
                REQUIRE(PointInPolygon(points, p) == WindsAround(points, p));
                inside += WindsAround(points, p) ? 1 : 0;
            }
        }
    }
    CHECK(inside > 1000);
}

TEST_CASE("polygons as far as coordinates reach keep their inside")
{
    const Points all = {CPoint(INT_MIN, INT_MIN), CPoint(INT_MAX, INT_MIN), CPoint(INT_MAX, INT_MAX),
                        CPoint(INT_MIN, INT_MAX)};
    CHECK(PointInPolygon(all, CPoint(0, 0)));
    CHECK(PointInPolygon(all, CPoint(INT_MIN, INT_MIN)));
    CHECK(PointInPolygon(all, CPoint(INT_MAX, 5)));
    const Points triangle = {CPoint(-1500000000, -1500000000), CPoint(1500000000, -1500000000),
                             CPoint(-1500000000, 1500000000)};
    CHECK(PointInPolygon(triangle, CPoint(-10, -10)));
    CHECK(PointInPolygon(triangle, CPoint(0, 0)));    // on the slanted edge
    CHECK_FALSE(PointInPolygon(triangle, CPoint(10, 10)));
    CHECK_FALSE(PointInPolygon(Square, CPoint(INT_MAX, INT_MIN)));
}
