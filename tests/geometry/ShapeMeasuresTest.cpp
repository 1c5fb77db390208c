#include "geometry/ShapeMeasures.h"

#include "geometry/Calipers.h"
#include "geometry/InteriorMoments.h"
#include "geometry/Lengths.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

using namespace vostel;

namespace {

using Points = std::vector<ImagePoint>;
using Real = long double;

Points RandomPoints(std::mt19937& random, int count, double least = 0.0, double most = 100.0)
{
    std::uniform_real_distribution<double> coordinate(least, most);
    Points                                 points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(coordinate(random), coordinate(random));
    return points;
}

struct Moments {
    Real Area = 0;
    Real X = 0;
    Real Y = 0;
};

// Every edge is cut where another crosses it; each part has the interior on one side, found by counting the
// edges left of its middle. Straight from the definition, with n^3 steps.
Moments EvenOddReference(const Points& points)
{
    const std::size_t count = points.size();
    Moments           moments;
    for (std::size_t i = 0; i < count; ++i) {
        const ImagePoint& a = points[i];
        const ImagePoint& b = points[(i + 1) % count];
        const Real        dx = static_cast<Real>(b.x) - a.x;
        const Real        dy = static_cast<Real>(b.y) - a.y;
        if (dy == 0)
            continue;
        std::vector<Real> cuts = {0, 1};
        for (std::size_t k = 0; k < count; ++k) {
            const ImagePoint& p = points[k];
            const ImagePoint& q = points[(k + 1) % count];
            const Real        ex = static_cast<Real>(q.x) - p.x;
            const Real        ey = static_cast<Real>(q.y) - p.y;
            const Real        cross = dx * ey - dy * ex;
            if (cross == 0)
                continue;
            const Real t =
                ((p.x - static_cast<Real>(a.x)) * ey - (p.y - static_cast<Real>(a.y)) * ex) / cross;
            if (t > 0 && t < 1)
                cuts.push_back(t);
        }
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t c = 0; c + 1 < cuts.size(); ++c) {
            const Real middle = (cuts[c] + cuts[c + 1]) / 2;
            const Real x = a.x + middle * dx;
            const Real y = a.y + middle * dy;
            int        left = 0;
            for (std::size_t k = 0; k < count; ++k) {
                const ImagePoint& p = points[k];
                const ImagePoint& q = points[(k + 1) % count];
                if (k == i || (p.y <= y) == (q.y <= y))
                    continue;
                left += p.x + (y - p.y) / (static_cast<Real>(q.y) - p.y) * (static_cast<Real>(q.x) - p.x) < x;
            }
            const Real sign = (left % 2 ? 1 : -1) * (dy > 0 ? 1 : -1);
            const Real x0 = a.x + cuts[c] * dx;
            const Real x1 = a.x + cuts[c + 1] * dx;
            const Real y0 = a.y + cuts[c] * dy;
            const Real y1 = a.y + cuts[c + 1] * dy;
            moments.Area += sign * (y1 - y0) * (x0 + x1) / 2;
            moments.X += sign * (y1 - y0) * (x0 * x0 + x0 * x1 + x1 * x1) / 6;
            moments.Y += sign * (y1 - y0) * (x0 * (2 * y0 + y1) + x1 * (y0 + 2 * y1)) / 6;
        }
    }
    return moments;
}

doctest::Approx Near(double value, double epsilon = 1e-12)
{
    return doctest::Approx(value).epsilon(epsilon);
}

}

TEST_CASE("whole rectangles and triangles measure whole numbers")
{
    const ShapeMeasures rectangle = MeasureShape(Outline::OfRectangle({40.0, 10.0}, {10.0, 50.0}));
    CHECK(rectangle.Area == 1200.0);
    CHECK(rectangle.Perimeter == 140.0);
    CHECK(rectangle.Centroid.x == 25.0);
    CHECK(rectangle.Centroid.y == 30.0);
    CHECK(rectangle.FeretMost == 50.0);
    CHECK(rectangle.FeretLeast == 30.0);
    CHECK(rectangle.Box.Left == 10.0);
    CHECK(rectangle.Box.Bottom == 50.0);
    CHECK(rectangle.Circularity == Near(4.0 * std::numbers::pi * 1200.0 / (140.0 * 140.0)));

    const ShapeMeasures triangle =
        MeasureShape(Outline::OfPolygon(Points{{0.0, 0.0}, {30.0, 0.0}, {0.0, 40.0}}));
    CHECK(triangle.Area == 600.0);
    CHECK(triangle.Perimeter == 120.0);
    CHECK(triangle.Centroid.x == Near(10.0));
    CHECK(triangle.Centroid.y == Near(40.0 / 3.0));
    CHECK(triangle.FeretMost == 50.0);
    CHECK(triangle.FeretLeast == Near(24.0));
}

TEST_CASE("area and centroid are those of the even-odd interior, however often the outline crosses itself")
{
    std::mt19937 random(21);
    for (int i = 0; i < 200; ++i) {
        const Points          points = RandomPoints(random, 3 + i % 14);
        const Moments         expected = EvenOddReference(points);
        const InteriorMoments moments = MomentsOf(Outline::OfPolygon(points));
        CAPTURE(i);
        CHECK(moments.Area == Near(static_cast<double>(expected.Area)));
        CHECK(moments.Centroid.x == Near(static_cast<double>(expected.X / expected.Area)));
        CHECK(moments.Centroid.y == Near(static_cast<double>(expected.Y / expected.Area)));
    }
    const Points bow = {{0.0, 0.0}, {10.0, 10.0}, {10.0, 0.0}, {0.0, 10.0}};
    CHECK(MomentsOf(Outline::OfPolygon(bow)).Area == Near(50.0));
    // The second square lies inside the first one, and is a hole for both directions.
    const Points hole = {{0.0, 0.0}, {9.0, 0.0}, {9.0, 9.0}, {0.0, 9.0}, {0.0, 0.0},
                         {3.0, 3.0}, {6.0, 3.0}, {6.0, 6.0}, {3.0, 6.0}, {3.0, 3.0}};
    CHECK(MomentsOf(Outline::OfPolygon(hole)).Area == Near(72.0));
    const Points twice = {{0.0, 0.0}, {7.0, 1.0}, {3.0, 9.0}, {0.0, 0.0}, {7.0, 1.0}, {3.0, 9.0}};
    CHECK(MomentsOf(Outline::OfPolygon(twice)).Area == 0.0);
}

TEST_CASE("outlines without an interior have the area 0 and a place")
{
    for (const Points& points : {Points{{5.0, 5.0}, {5.0, 5.0}, {5.0, 5.0}},
                                 Points{{1.0, 2.0}, {9.0, 8.0}, {5.0, 5.0}}, Points{{5.0, 5.0}}}) {
        for (const Outline& outline : {Outline::OfPolygon(points), Outline::OfSpline(points)}) {
            const ShapeMeasures measures = MeasureShape(outline);
            CHECK(measures.Area == doctest::Approx(0.0).epsilon(1e-12));
            CHECK(measures.Centroid.x == Near(0.5 * (measures.Box.Left + measures.Box.Right)));
            CHECK(measures.Centroid.y == Near(0.5 * (measures.Box.Top + measures.Box.Bottom)));
            CHECK(measures.FeretLeast == doctest::Approx(0.0).epsilon(1e-12));
        }
    }
    const ShapeMeasures flat = MeasureShape(Outline::OfEllipse({2.0, 3.0}, {10.0, 3.0}));
    CHECK(flat.Area == 0.0);
    CHECK(flat.Perimeter == 16.0);
    CHECK(flat.FeretMost == 8.0);
    CHECK(flat.FeretLeast == 0.0);
    CHECK(MeasureShape(Outline()).Area == 0.0);
    CHECK(MeasureShape(Outline::OfEllipse({2.0, 3.0}, {2.0, 3.0})).Circularity == 0.0);
}

TEST_CASE("an ellipse is measured by its formulas")
{
    const ShapeMeasures circle = MeasureShape(Outline::OfEllipse({-2.0, 1.0}, {8.0, 11.0}));
    CHECK(circle.Area == Near(25.0 * std::numbers::pi, 1e-15));
    CHECK(circle.Perimeter == Near(10.0 * std::numbers::pi, 1e-15));
    CHECK(circle.Circularity == Near(1.0, 1e-15));
    CHECK(circle.Centroid.x == 3.0);
    CHECK(circle.Centroid.y == 6.0);

    for (const double b : {1e-9, 0.01, 0.5, 0.999, 1.0, 3.0, 1e6}) {
        // The trapezium rule on a periodic function; a long one for the flat ones.
        Real      perimeter = 0;
        const int steps = 400000;
        for (int i = 0; i < steps; ++i) {
            const Real turn = 2 * std::numbers::pi_v<Real> * (i + 0.5L) / steps;
            perimeter += std::hypot(std::sin(turn), b * std::cos(turn));
        }
        perimeter *= 2 * std::numbers::pi_v<Real> / steps;
        const double epsilon = b < 0.01 || b > 100.0 ? 1e-10 : 1e-14;
        CHECK(PerimeterOf(Outline::OfEllipse({-1.0, -b}, {1.0, b})) ==
              Near(static_cast<double>(perimeter), epsilon));
    }
    CHECK(PerimeterOf(Outline::OfEllipse({-2.0, -1.0}, {2.0, 1.0})) == Near(9.68844822054767619843, 1e-15));
}

TEST_CASE("a spline is measured as the curve, which fine polygons approach")
{
    std::mt19937 random(22);
    for (int i = 0; i < 40; ++i) {
        const Outline       spline = Outline::OfSpline(RandomPoints(random, 3 + i % 10));
        const ShapeMeasures measures = MeasureShape(spline);
        // Chords of 2^-10 of a segment and of 2^-11: their errors are of the second order, so that a third of
        // the difference is what is left.
        Points coarse;
        Points fine;
        for (std::size_t k = 0; k < spline.Points.size(); k += 3) {
            for (int step = 0; step < 2048; ++step) {
                const Real t = step / 2048.0L;
                Real       x = 0;
                Real       y = 0;
                const Real weights[] = {(1 - t) * (1 - t) * (1 - t), 3 * t * (1 - t) * (1 - t),
                                        3 * t * t * (1 - t), t * t * t};
                for (std::size_t w = 0; w < 4; ++w) {
                    x += weights[w] * spline.Points[(k + w) % spline.Points.size()].x;
                    y += weights[w] * spline.Points[(k + w) % spline.Points.size()].y;
                }
                fine.emplace_back(static_cast<double>(x), static_cast<double>(y));
                if (step % 2 == 0)
                    coarse.push_back(fine.back());
            }
        }
        const auto limit = [](double atCoarse, double atFine) { return atFine + (atFine - atCoarse) / 3.0; };
        const ShapeMeasures one = MeasureShape(Outline::OfPolygon(coarse));
        const ShapeMeasures two = MeasureShape(Outline::OfPolygon(fine));
        CAPTURE(i);
        CHECK(measures.Area == Near(limit(one.Area, two.Area), 1e-9));
        CHECK(measures.Perimeter == Near(limit(one.Perimeter, two.Perimeter), 1e-9));
        CHECK(measures.Centroid.x == Near(two.Centroid.x, 1e-6));
        CHECK(measures.Centroid.y == Near(two.Centroid.y, 1e-6));
        CHECK(measures.FeretMost == Near(two.FeretMost, 1e-6));
        CHECK(measures.FeretLeast == Near(two.FeretLeast, 1e-6));
        CHECK(measures.FeretMost >= two.FeretMost * (1.0 - 1e-12));
        CHECK(measures.FeretLeast >= two.FeretLeast * (1.0 - 1e-12));
        CHECK(measures.Box.Left == Near(two.Box.Left, 1e-5));
        CHECK(measures.Box.Bottom == Near(two.Box.Bottom, 1e-5));
    }
}

TEST_CASE("calipers are the farthest pair of points and the narrowest strip over all edges of the hull")
{
    std::mt19937 random(23);
    for (int i = 0; i < 200; ++i) {
        Points points = RandomPoints(random, 3 + i % 30);
        if (i % 2) {
            for (ImagePoint& p : points)    // on a grid, with points on one line and points twice
                p = {std::floor(p.x / 15.0), std::floor(p.y / 15.0)};
        }
        double most = 0.0;
        double least = INFINITY;
        for (const ImagePoint& a : points) {
            for (const ImagePoint& b : points) {
                const double length = std::hypot(b.x - a.x, b.y - a.y);
                most = std::max(most, length);
                if (length == 0.0)
                    continue;
                double low = 0.0;
                double high = 0.0;
                for (const ImagePoint& c : points) {
                    const double away = ((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / length;
                    low = std::min(low, away);
                    high = std::max(high, away);
                }
                least = std::min(least, high - low);
            }
        }
        const CaliperWidths widths = CalipersOf(points);
        CAPTURE(i);
        CHECK(widths.Most == Near(most));
        CHECK(widths.Least == Near(least));
    }
    const CaliperWidths line = CalipersOf(Points{{0.0, 0.0}, {1.0, 1.0}, {2.0, 2.0}});
    CHECK(line.Most == Near(std::sqrt(8.0)));
    CHECK(line.Least == 0.0);
    CHECK(CalipersOf(Points{}).Most == 0.0);
}

TEST_CASE("measures do not depend on where a figure lies and which way it was drawn")
{
    std::mt19937 random(24);
    for (int i = 0; i < 50; ++i) {
        Points points = RandomPoints(random, 3 + i % 9);
        for (ImagePoint& p : points)    // so few bits that they stay in double far away
            p = {std::floor(p.x * 64.0) / 64.0, std::floor(p.y * 64.0) / 64.0};
        Points distant;
        for (const ImagePoint& p : points)
            distant.emplace_back(p.x + 1e12, p.y - 1e12);
        Points backward(points.rbegin(), points.rend());
        for (const bool spline : {false, true}) {
            const auto make = [spline](const Points& p) {
                return spline ? Outline::OfSpline(p) : Outline::OfPolygon(p);
            };
            const double        epsilon = spline ? 1e-3 : 1e-12;    // its points have 2^-13 px there
            const ShapeMeasures here = MeasureShape(make(points));
            const ShapeMeasures there = MeasureShape(make(distant));
            CAPTURE(i);
            CHECK(there.Area == Near(here.Area, epsilon));
            CHECK(there.Perimeter == Near(here.Perimeter, epsilon));
            CHECK(there.FeretLeast == Near(here.FeretLeast, epsilon));
            CHECK(there.Centroid.x - 1e12 == Near(here.Centroid.x, 1e-3));
            if (!spline) {
                const ShapeMeasures back = MeasureShape(make(backward));
                CHECK(back.Area == Near(here.Area));
                CHECK(back.Centroid.y == Near(here.Centroid.y));
            }
        }
    }
}

TEST_CASE("sizes from 1e-300 to 1e300 neither overflow on the way nor crash")
{
    const ShapeMeasures big = MeasureShape(Outline::OfRectangle({-1e300, -1e-300}, {1e300, 1e-300}));
    CHECK(big.Perimeter == Near(4e300));
    CHECK(big.Centroid.x == 0.0);
    CHECK(big.FeretMost == Near(2e300));
    const ShapeMeasures tiny = MeasureShape(Outline::OfRectangle({1e-150, 1e-150}, {3e-150, 2e-150}));
    CHECK(tiny.Area == Near(2e-300));
    CHECK(tiny.Circularity == Near(4.0 * std::numbers::pi * 2.0 / 36.0));
    CHECK(tiny.FeretLeast == Near(1e-150));
    CHECK(std::isinf(MeasureShape(Outline::OfEllipse({-1e300, -1e300}, {1e300, 1e300})).Area));
    const double hard[] = {0.0, 1e-300, -5e-324, 1e15, -1e17, 1e300, -1.7e308, 12.5};
    std::mt19937 random(25);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(hard) - 1);
    for (int i = 0; i < 100; ++i) {
        Points points;
        for (int k = 0; k < 3 + i % 6; ++k)
            points.emplace_back(hard[pick(random)], hard[pick(random)]);
        CAPTURE(i);
        CHECK(MeasureShape(Outline::OfPolygon(points)).Area >= 0.0);
        CHECK(MeasureShape(Outline::OfSpline(points)).Area >= 0.0);
        CHECK(MeasureShape(Outline::OfEllipse(points[0], points[1])).Perimeter >= 0.0);
    }
}

TEST_CASE("lengths, centroids and angles of lines")
{
    const Points line = {{1.0, 1.0}, {4.0, 5.0}, {4.0, 15.0}};
    CHECK(LengthOf(line) == 15.0);
    CHECK(LengthOf(Points{{3.0, 3.0}}) == 0.0);
    CHECK(CentroidOfLine(line).x == Near((5.0 * 2.5 + 10.0 * 4.0) / 15.0));
    CHECK(CentroidOfLine(line).y == Near((5.0 * 3.0 + 10.0 * 10.0) / 15.0));
    CHECK(CentroidOfPoints(line).x == Near(3.0));
    CHECK(CentroidOfLine(Points{{3.0, 3.0}, {3.0, 3.0}}).x == 3.0);

    const ImagePoint o(10.0, 10.0);
    CHECK(AngleBetween(o, {20.0, 10.0}, o, {10.0, 33.0}) == 90.0);
    CHECK(AngleBetween(o, {20.0, 10.0}, o, {20.0, 20.0}) == 45.0);
    CHECK(AngleBetween(o, {20.0, 10.0}, o, {0.0, 10.0}) == 180.0);
    CHECK(AngleBetween(o, {20.0, 10.0}, o, {1e300, 10.0}) == 0.0);
    CHECK(AngleBetween(o, {11.0, 10.0}, {0.0, 0.0}, {1.0, std::sqrt(3.0)}) == Near(60.0));
    CHECK(AngleBetween(o, o, o, {20.0, 20.0}) == 0.0);
}
