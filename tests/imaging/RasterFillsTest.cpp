#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using Plane = ClassData2DIO<int>;
using Point = PointTemplateBase<int>;
using Points = std::vector<Point>;

constexpr int Guard = 0x5A5A5A;

// A plane of zeros between two guard areas: a store outside the plane shows.
class GuardedPlane {
public:
    Plane Data;

    GuardedPlane(int width, int height) : Buffer(static_cast<std::size_t>(width * height + 2 * Around), Guard)
    {
        Data.Width = width;
        Data.Height = height;
        Data.OwnPtr1D = false;
        Data.OwnPtr2D = false;
        Data.Ptr1D = Buffer.data() + Around;
        for (int y = 0; y < height; ++y)
            Rows.push_back(Data.Ptr1D + y * width);
        Data.Ptr2D = Rows.data();
        std::fill_n(Data.Ptr1D, width * height, 0);
    }

    std::vector<int> Pixels() const
    {
        return std::vector<int>(Data.Ptr1D, Data.Ptr1D + Data.Width * Data.Height);
    }
    int Count(int value) const
    {
        return static_cast<int>(std::count(Data.Ptr1D, Data.Ptr1D + Data.Width * Data.Height, value));
    }
    bool GuardsStand() const
    {
        const auto isGuard = [](int v) { return v == Guard; };
        return std::all_of(Buffer.begin(), Buffer.begin() + Around, isGuard) &&
               std::all_of(Buffer.end() - Around, Buffer.end(), isGuard);
    }

private:
    static constexpr int Around = 4096;

    std::vector<int>  Buffer;
    std::vector<int*> Rows;
};

// The fill as it reads: a chain of directions, the table, two quadratic sorts, pairs.
namespace reference {

constexpr int StepX[8] = {1, 1, 0, -1, -1, -1, 0, 1};
constexpr int StepY[8] = {0, -1, -1, -1, 0, 1, 1, 1};
constexpr int CodeOf[9] = {3, 2, 1, 4, 0, 0, 5, 6, 7};
constexpr int Table[8][8] = {{0, 0, 0, 0, 2, 2, 2, 2}, {1, 1, 1, 1, 0, 3, 3, 3}, {1, 1, 1, 1, 0, 0, 3, 3},
                             {1, 1, 1, 1, 0, 0, 0, 3}, {1, 1, 1, 1, 0, 0, 0, 0}, {0, 3, 3, 3, 2, 2, 2, 2},
                             {0, 0, 3, 3, 2, 2, 2, 2}, {0, 0, 0, 3, 2, 2, 2, 2}};

int Sign(int v)
{
    return v > 0 ? 1 : v < 0 ? -1 : 0;
}

void AddSegment(std::vector<int>& chain, Point from, Point to)
{
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    const int stepX = Sign(dx);
    const int stepY = Sign(dy);
    const int n = std::max(std::abs(dx), std::abs(dy));
    int       accX = 1;
    int       accY = 1;
    int       x = from.x;
    int       y = from.y;
    Points    recorded;
    for (int i = 0; i < n + 1; ++i) {
        recorded.emplace_back(x, y);
        accX += std::abs(dx);
        accY += std::abs(dy);
        if (accX > n) {
            x += stepX;
            accX -= n;
        }
        if (accY > n) {
            y += stepY;
            accY -= n;
        }
    }
    if (n == 0)
        return;
    for (int i = 0; i < n; ++i) {
        const std::size_t at = static_cast<std::size_t>(i);
        const int         ex = recorded[at + 1].x - recorded[at].x;
        const int         ey = recorded[at + 1].y - recorded[at].y;
        if (ex == 0 && ey == 0)
            continue;
        chain.push_back(CodeOf[(ey + 1) * 3 + (ex + 1)]);
        ++chain[2];
    }
}

Points BoundaryPixels(std::vector<int> chain)
{
    Points found;
    int    x = chain[0];
    int    y = chain[1];
    if (chain[2] == 1) {
        found.emplace_back(x, y);
        found.emplace_back(x, y);
    }
    if (chain.size() > 3)
        chain.push_back(chain[3]);
    for (int i = 0; i < chain[2]; ++i) {
        const int c = chain[static_cast<std::size_t>(3 + i)] % 8;
        const int e = chain[static_cast<std::size_t>(4 + i)] % 8;
        x += StepX[c];
        y += StepY[c];
        for (int times = Table[c][e] == 0 ? 0 : Table[c][e] == 3 ? 2 : 1; times > 0; --times)
            found.emplace_back(x, y);
    }
    for (std::size_t i = 0; i + 1 < found.size(); ++i) {
        std::size_t best = i;
        for (std::size_t v = i + 1; v < found.size(); ++v) {
            if (found[v].y < found[best].y)
                best = v;
        }
        if (best != i)
            std::swap(found[i], found[best]);
    }
    for (std::size_t pass = 1; pass < found.size(); ++pass) {
        bool swapped = false;
        for (std::size_t v = found.size() - 1; v >= pass; --v) {
            if (found[v - 1].y == found[v].y && found[v - 1].x > found[v].x) {
                std::swap(found[v - 1], found[v]);
                swapped = true;
            }
        }
        if (!swapped)
            break;
    }
    return found;
}

void FillPolygon(Plane& plane, Points& points, int value)
{
    for (Point& p : points) {
        p.x = std::min(std::max(p.x, 0), plane.Width - 1);
        p.y = std::min(std::max(p.y, 0), plane.Height - 1);
    }
    std::vector<int> chain = {points[0].x, points[0].y, 0};
    for (std::size_t i = 0; i < points.size(); ++i)
        AddSegment(chain, points[i], points[(i + 1) % points.size()]);
    const Points ends = BoundaryPixels(chain);
    REQUIRE(ends.size() % 2 == 0);
    for (std::size_t i = 0; i < ends.size(); i += 2)
        for (int x = ends[i].x; x <= ends[i + 1].x; ++x)
            plane.GetRow(ends[i].y)[x] = value;
}

// The midpoint rule with every sum in T; pixels outside the plane are skipped.
template <typename T>
void DrawEllipse(Plane& plane, int x1, int y1, int x2, int y2, int value)
{
    struct Span {
        T Left, Y, Right;
    };
    std::vector<Span> spans;
    const T           w = std::abs(x2 - x1);
    const T           h = std::abs(y2 - y1);
    T                 a = w / 2;
    T                 b = h / 2;
    const T           a2 = a * a;
    const T           b2 = b * b;
    const double      r = std::sqrt(static_cast<double>(a2 + b2));
    const int         limitX = r > 0.0 ? static_cast<int>(static_cast<double>(a2) / r + 0.5) : -1;
    const int         limitY = r > 0.0 ? static_cast<int>(static_cast<double>(b2) / r + 0.5) : -1;
    const T           cx = (x1 + x2) / 2;
    const T           cy = (y1 + y2) / 2;
    const auto        add = [&](T ox, T oy) {
        spans.push_back({cx - ox, cy + oy, cx + ox});
        spans.push_back({cx - ox, cy - oy, cx + ox});
    };
    T d = a2 + 4 * (b2 - (h * a2) / 2);
    add(0, b);
    if (limitX >= 0) {
        T stepDiag = (2 * b - 2) * a2;
        T t = 3 * b2;
        T u = 12 * b2;
        T x = 0;
        do {
            if (d > 0) {
                d += 4 * (t - stepDiag);
                b -= 1;
                stepDiag -= 2 * a2;
            } else {
                d += u;
            }
            x += 1;
            u += 8 * b2;
            t += 2 * b2;
            add(x, b);
        } while (x <= limitX);
    }
    d = b2 + 4 * (a2 - (w * b2) / 2);
    add(a, 0);
    if (limitY >= 0) {
        T stepDiag = (2 * a - 2) * b2;
        T t = 3 * a2;
        T u = 12 * a2;
        T y = 0;
        do {
            if (d > 0) {
                d += 4 * (t - stepDiag);
                a -= 1;
                stepDiag -= 2 * b2;
            } else {
                d += u;
            }
            y += 1;
            u += 8 * a2;
            t += 2 * a2;
            add(a, y);
        } while (y <= limitY);
    }
    for (const Span& span : spans) {
        if (span.Y < 0 || span.Y >= plane.Height)
            continue;
        for (T x = std::max<T>(span.Left, 0); x < std::min<T>(span.Right, plane.Width); ++x)
            plane.GetRow(static_cast<int>(span.Y))[x] = value;
    }
}

}

int CountFilled(Points points, int width = 40, int height = 40)
{
    GuardedPlane plane(width, height);
    FillPolygon(plane.Data, points, 7);
    CHECK(plane.GuardsStand());
    CHECK(plane.Count(0) + plane.Count(7) == width * height);
    return plane.Count(7);
}

std::string Text(const Points& points)
{
    std::string text;
    for (const Point& p : points)
        text += "(" + std::to_string(p.x) + "," + std::to_string(p.y) + ") ";
    return text;
}

// Both fills of the same outline, and what they leave in the caller's vector.
void CheckPolygon(int width, int height, const Points& outline, const std::string& about)
{
    GuardedPlane ours(width, height);
    GuardedPlane plain(width, height);
    Points       ourPoints = outline;
    Points       plainPoints = outline;
    FillPolygon(ours.Data, ourPoints, 9);
    reference::FillPolygon(plain.Data, plainPoints, 9);
    const bool same = ours.Pixels() == plain.Pixels() && ours.GuardsStand();
    bool       samePoints = ourPoints.size() == plainPoints.size();
    for (std::size_t i = 0; samePoints && i < ourPoints.size(); ++i)
        samePoints = ourPoints[i].x == plainPoints[i].x && ourPoints[i].y == plainPoints[i].y;
    if (!same || !samePoints)
        FAIL_CHECK(about << " plane " << width << "x" << height << " points " << Text(outline));
}

void CheckEllipse(int width, int height, int x1, int y1, int x2, int y2)
{
    GuardedPlane ours(width, height);
    GuardedPlane plain(width, height);
    DrawEcllipse(ours.Data, x1, y1, x2, y2, true, 3);
    reference::DrawEllipse<std::int64_t>(plain.Data, x1, y1, x2, y2, 3);
    if (ours.Pixels() != plain.Pixels() || !ours.GuardsStand())
        FAIL_CHECK("ellipse (" << x1 << "," << y1 << ")-(" << x2 << "," << y2 << ") in " << width << "x"
                               << height);
}

}

TEST_CASE("a square drawn clockwise fills its 25 pixels, drawn the other way it loses its flat rows")
{
    const Points clockwise = {{2, 2}, {6, 2}, {6, 6}, {2, 6}};
    const Points counter = {{2, 2}, {2, 6}, {6, 6}, {6, 2}};
    GuardedPlane plane(12, 12);
    Points       points = clockwise;
    FillPolygon(plane.Data, points, 1);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            CHECK(plane.Data.Ptr2D[y][x] == (x >= 2 && x <= 6 && y >= 2 && y <= 6 ? 1 : 0));
    GuardedPlane other(12, 12);
    points = counter;
    FillPolygon(other.Data, points, 1);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            CHECK(other.Data.Ptr2D[y][x] == (x >= 2 && x <= 6 && y >= 3 && y <= 5 ? 1 : 0));
    CHECK(CountFilled(clockwise) == 25);
    CHECK(CountFilled(counter) == 15);
}

TEST_CASE("a triangle fills 66 pixels in one sense and 54 in the other, without its top row and its tip")
{
    CHECK(CountFilled({{0, 0}, {10, 0}, {0, 10}}) == 66);
    CHECK(CountFilled({{0, 0}, {0, 10}, {10, 0}}) == 54);
    GuardedPlane plane(20, 20);
    Points       points = {{0, 0}, {0, 10}, {10, 0}};
    FillPolygon(plane.Data, points, 1);
    for (int x = 0; x < 20; ++x)
        CHECK(plane.Data.Ptr2D[0][x] == 0);
    CHECK(plane.Data.Ptr2D[10][0] == 0);
    CHECK(plane.Data.Ptr2D[1][0] == 1);
}

TEST_CASE("two points fill the pixels of their line, one point and coincident points fill nothing")
{
    CHECK(CountFilled({{3, 5}, {9, 5}}) == 7);
    CHECK(CountFilled({{3, 5}, {3, 9}}) == 5);
    CHECK(CountFilled({{3, 3}, {8, 8}}) == 6);
    CHECK(CountFilled({{3, 5}}) == 0);
    CHECK(CountFilled({{3, 5}, {3, 5}, {3, 5}}) == 0);
    // All three clamp to the same corner.
    CHECK(CountFilled({{-3, -5}, {-1, -9}, {-700, -2}}) == 0);
}

TEST_CASE(
    "points outside the plane are clamped in the caller's vector, and the fill is that of the clamped ones")
{
    GuardedPlane plane(10, 8);
    Points       points = {{-5, -5}, {20, -5}, {20, 30}, {-5, 30}};
    FillPolygon(plane.Data, points, 2);
    CHECK(Text(points) == "(0,0) (9,0) (9,7) (0,7) ");
    CHECK(plane.Count(2) == 80);
    // The clipped triangle would leave the lower left pixel out, the one of the clamped points does not.
    GuardedPlane wedge(10, 10);
    Points       triangle = {{0, 0}, {30, 0}, {0, 9}};
    FillPolygon(wedge.Data, triangle, 2);
    CHECK(Text(triangle) == "(0,0) (9,0) (0,9) ");
    CHECK(wedge.Data.Ptr2D[5][9] == 0);
    CHECK(wedge.Count(2) == 55);
}

TEST_CASE("a polygon in an empty plane or without points does nothing")
{
    Plane  empty;
    Points points = {{1, 1}, {5, 1}, {3, 4}};
    FillPolygon(empty, points, 3);
    CHECK(Text(points) == "(1,1) (5,1) (3,4) ");
    GuardedPlane plane(6, 6);
    Points       none;
    FillPolygon(plane.Data, none, 3);
    CHECK(plane.Count(0) == 36);
    FillPolygon(plane.Data, points, 3);
    CHECK(plane.Count(3) > 0);
}

TEST_CASE("a polygon without spans fills nothing on a thread that has filled none before")
{
    GuardedPlane plane(6, 6);
    const auto fill = [&](Points points) { std::thread([&] { FillPolygon(plane.Data, points, 3); }).join(); };
    fill({{2, 2}});
    fill({{2, 2}, {2, 2}});
    CHECK(plane.Count(0) == 36);
    fill({{1, 1}, {4, 1}, {4, 4}, {1, 4}});
    CHECK(plane.Count(3) == 16);
    CHECK(plane.GuardsStand());
}

TEST_CASE("random polygons fill exactly as the plain reference does, in all orientations")
{
    constexpr unsigned Seed = 20261;
    std::mt19937       random(Seed);
    const auto         below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int round = 0; round < 3000; ++round) {
        const int width = 1 + below(round % 3 == 0 ? 8 : 60);
        const int height = 1 + below(round % 3 == 0 ? 8 : 60);
        const int count = 1 + below(round % 5 == 0 ? 60 : 8);
        const int beyond = round % 2 == 0 ? 0 : 30;
        Points    outline;
        for (int i = 0; i < count; ++i)
            outline.emplace_back(below(width + 2 * beyond) - beyond, below(height + 2 * beyond) - beyond);
        const std::string about = "seed " + std::to_string(Seed) + " round " + std::to_string(round);
        CheckPolygon(width, height, outline, about);
        std::reverse(outline.begin(), outline.end());
        CheckPolygon(width, height, outline, about + " reversed");
        for (Point& p : outline)
            p.x = width - 1 - p.x;
        CheckPolygon(width, height, outline, about + " mirrored");
        for (Point& p : outline)
            p.y = height - 1 - p.y;
        CheckPolygon(width, height, outline, about + " turned");
    }
}

TEST_CASE("outlines with many ends in a row fill as the plain reference does, whatever the row's first "
          "column and width")
{
    constexpr unsigned Seed = 977;
    std::mt19937       random(Seed);
    for (const int width : {1, 2, 63, 64, 65, 90, 127, 128, 129, 200}) {
        for (const int count : {60, 250}) {
            for (const int left : {0, 1, 7}) {
                Points outline;
                for (int i = 0; i < count; ++i)
                    outline.emplace_back(left + static_cast<int>(random() % static_cast<unsigned>(width)),
                                         static_cast<int>(random() % 9));
                CheckPolygon(left + width + 3, 12, outline, "seed " + std::to_string(Seed));
            }
        }
    }
}

TEST_CASE("a large fill, which takes streaming stores, is the same as a small one")
{
    constexpr int Size = 2200;
    Plane         plane;
    plane.Allocate(Size, Size);
    std::fill_n(plane.Ptr1D, Size * Size, 0);
    Points points = {{100, 3}, {2190, 100}, {2000, 2190}, {4, 2000}};
    FillPolygon(plane, points, 5);
    Plane plain;
    plain.Allocate(Size, Size);
    std::fill_n(plain.Ptr1D, Size * Size, 0);
    reference::FillPolygon(plain, points, 5);
    CHECK(std::equal(plane.Ptr1D, plane.Ptr1D + Size * Size, plain.Ptr1D));
    CHECK(std::count(plane.Ptr1D, plane.Ptr1D + Size * Size, 5) > 4200000);
}

TEST_CASE("points at the ends of the integers are clamped like others")
{
    CheckPolygon(20, 20,
                 {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, INT32_MAX}, {3, INT32_MAX}},
                 "extremes");
    CHECK(CountFilled({{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, INT32_MAX}}) == 820);
}

TEST_CASE("the widest row of an ellipse covers its box but for the right column")
{
    GuardedPlane plane(40, 40);
    DrawEcllipse(plane.Data, 10, 10, 20, 20, true, 5);
    for (int x = 0; x < 40; ++x)
        CHECK(plane.Data.Ptr2D[15][x] == (x >= 10 && x <= 19 ? 5 : 0));
    for (int y = 0; y < 40; ++y)
        CHECK(plane.Data.Ptr2D[y][20] == 0);
    CHECK(plane.GuardsStand());
}

TEST_CASE("an ellipse that is not to be filled leaves the plane alone")
{
    GuardedPlane plane(40, 40);
    DrawEcllipse(plane.Data, 10, 10, 20, 20, false, 5);
    CHECK(plane.Count(0) == 1600);
    DrawEcllipse(plane.Data, 10, 10, 20, 20, true, 5);
    CHECK(plane.Count(5) > 0);
}

TEST_CASE("an ellipse in a box of one point writes nothing")
{
    GuardedPlane plane(40, 40);
    DrawEcllipse(plane.Data, 15, 15, 15, 15, true, 5);
    CHECK(plane.Count(5) == 0);
    DrawEcllipse(plane.Data, 15, 15, 16, 16, true, 5);    // half of 1 is 0
    CHECK(plane.Count(5) == 0);
    DrawEcllipse(plane.Data, 15, 15, 17, 17, true, 5);
    CHECK(plane.Count(5) > 0);
}

TEST_CASE("every ellipse of up to 24 by 24 equals the plain midpoint rule")
{
    for (int w = 0; w <= 24; ++w)
        for (int h = 0; h <= 24; ++h)
            CheckEllipse(40, 40, 6, 7, 6 + w, 7 + h);
}

TEST_CASE("flat and thin ellipses at the border of the plane write nothing outside it")
{
    for (int length = 0; length <= 60; ++length) {
        for (int thickness = 0; thickness <= 3; ++thickness) {
            CheckEllipse(50, 30, 0, 0, length, thickness);
            CheckEllipse(50, 30, 49 - length, 29 - thickness, 49, 29);
            CheckEllipse(50, 30, 0, 0, thickness, length);
            CheckEllipse(50, 30, 49 - thickness, 29 - length, 49, 29);
        }
    }
}

TEST_CASE("ellipses whose corners come in any order and lie anywhere equal the plain rule")
{
    constexpr unsigned Seed = 4711;
    std::mt19937       random(Seed);
    INFO("seed ", Seed);
    for (int round = 0; round < 2000; ++round) {
        const auto at = [&] { return static_cast<int>(random() % 240) - 90; };
        const int  x1 = at(), y1 = at(), x2 = at(), y2 = at();
        CheckEllipse(1 + static_cast<int>(random() % 70), 1 + static_cast<int>(random() % 70), x1, y1, x2,
                     y2);
    }
}

TEST_CASE("ellipses beyond 1310 pixels, whose sums leave 32 bits, are filled by sums of 64 bits")
{
    CheckEllipse(1500, 1500, 10, 20, 1400, 1450);
    CheckEllipse(2000, 300, -3000, 10, 4000, 280);
    CheckEllipse(300, 2000, 10, -30000, 280, 40000);
    CheckEllipse(64, 64, -400000, -300000, 500000, 350000);
    // What sums of 32 bits would make of the first one is another shape.
    GuardedPlane plane(1500, 1500);
    DrawEcllipse(plane.Data, 10, 20, 1400, 1450, true, 3);
    const double area = 3.14159265358979 * 695.0 * 715.0;
    CHECK(std::fabs(plane.Count(3) - area) < area * 0.005);
    CHECK(plane.Data.Ptr2D[735][10] == 3);
    CHECK(plane.Data.Ptr2D[735][1399] == 3);
    CHECK(plane.Data.Ptr2D[735][1400] == 0);
}

TEST_CASE("the steps of ellipses as flat or thin as can be stay within 64 bits")
{
    constexpr int Length = 1 << 20;
    // The arc leaves a flat box through its centre: the rows below and above it get spans, too.
    GuardedPlane column(1, 20001);
    DrawEcllipse(column.Data, -Length / 2, 9999, Length / 2, 10001, true, 3);
    CHECK(column.Count(3) == 20001);
    GuardedPlane thin(20001, 1);
    DrawEcllipse(thin.Data, 9999, -Length / 2, 10001, Length / 2, true, 3);
    CHECK(thin.Count(3) == 2);
    CHECK(thin.Data.Ptr1D[9999] == 3);
    CHECK(thin.Data.Ptr1D[10000] == 3);
    // Where no sum leaves 64 bits the plain rule gives the same.
    CheckEllipse(50, 3000, -10000, 1499, 10000, 1501);
    CheckEllipse(3000, 50, 1499, -10000, 1501, 10000);
}

TEST_CASE("an ellipse of any size ends and stays inside the plane")
{
    GuardedPlane plane(30, 30);
    DrawEcllipse(plane.Data, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX, true, 4);
    CHECK(plane.Count(4) == 900);
    GuardedPlane beside(30, 30);
    DrawEcllipse(beside.Data, 100, 0, INT32_MAX, 29, true, 4);
    CHECK(beside.Count(4) == 0);
    GuardedPlane thin(30, 30);
    DrawEcllipse(thin.Data, INT32_MIN, 15, INT32_MAX, 15, true, 4);
    CHECK(thin.GuardsStand());
    CHECK(thin.Count(4) >= 30);
    Plane empty;
    DrawEcllipse(empty, 0, 0, 10, 10, true, 1);
    CHECK(empty.Ptr1D == nullptr);
}

TEST_CASE("a spline fills the polygon of its curve, and without a curve nothing")
{
    Points       nodes = {{10, 10}, {40, 12}, {45, 40}, {12, 38}, {10, 10}};
    GuardedPlane ours(60, 60);
    FillSpline(ours.Data, nodes, 6);
    CHECK(Text(nodes) == "(10,10) (40,12) (45,40) (12,38) (10,10) ");
    Points       curve, controls;
    GuardedPlane plain(60, 60);
    mB3Line(nodes, curve, controls);
    reference::FillPolygon(plain.Data, curve, 6);
    CHECK(plain.Count(6) > 500);
    CHECK(ours.Pixels() == plain.Pixels());
    GuardedPlane untouched(60, 60);
    Points       one = {{10, 10}};
    FillSpline(untouched.Data, one, 6);
    CHECK(untouched.Count(6) == 0);
}
