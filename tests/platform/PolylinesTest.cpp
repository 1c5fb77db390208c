#include "platform/Polylines.h"
#include "support/TestBitmap.h"

#include <doctest/doctest.h>

#include <cstring>
#include <random>
#include <span>
#include <vector>

using namespace vostel;

namespace {

std::vector<CPoint> RandomPoints(std::mt19937& random, int width, int height)
{
    const int  reach = random() % 3 == 0 ? 40 : 0;    // beyond the edges
    const int  aside = random() % 5 == 0 ? 200 : 0;
    const bool isShort = random() % 2 == 0;
    const auto below = [&](int extent) { return static_cast<int>(random() % static_cast<unsigned>(extent)); };
    std::vector<CPoint> points;
    for (int count = below(12); count > 0; --count) {
        CPoint next(below(width + 2 * reach) - reach + aside, below(height + 2 * reach) - reach);
        if (isShort && !points.empty())
            next = CPoint(points.back().x + below(5) - 2, points.back().y + below(5) - 2);
        points.push_back(next);
        if (random() % 6 == 0)
            points.push_back(next);
    }
    return points;
}

void DrawLineByLine(HDC dc, const std::vector<CPoint>& points, bool closed)
{
    if (points.empty())
        return;
    MoveToEx(dc, points[0].x, points[0].y, nullptr);
    for (std::size_t i = 1; i < points.size(); ++i)
        LineTo(dc, points[i].x, points[i].y);
    if (closed)
        LineTo(dc, points[0].x, points[0].y);
}

void CompareWithLines(unsigned seed)
{
    CAPTURE(seed);
    std::mt19937 random(seed);
    const int    width = 1 + static_cast<int>(random() % 90), height = 1 + static_cast<int>(random() % 60);
    const int    bits = random() % 4 == 0 ? 24 : 32;
    const bool   topDown = random() % 2 == 0, closed = random() % 2 == 0;
    TestBitmap   bitmap(width, height, bits, topDown), expected(width, height, bits, topDown);
    const int    penWidth = random() % 5 == 0 ? 3 : 1;
    const int    penStyle = random() % 5 == 0 ? PS_DOT : random() % 9 == 0 ? PS_NULL : PS_SOLID;
    const int    originX = random() % 4 == 0 ? 7 : 0;
    const std::vector<CPoint> points = RandomPoints(random, width, height);
    for (TestBitmap* const target : {&bitmap, &expected}) {
        SelectedObject pen(target->Dc, CreatePen(penStyle, penWidth, TestRed));
        SetViewportOrgEx(target->Dc, originX, 0, nullptr);
        if (target == &bitmap)
            DrawPolyline(target->Dc, points, closed);
        else
            DrawLineByLine(target->Dc, points, closed);
        LineTo(target->Dc, 3, 3);    // from where the polyline ended
    }
    GdiFlush();
    CHECK(std::memcmp(bitmap.Bits, expected.Bits,
                      static_cast<std::size_t>(bitmap.RowBytes) * static_cast<std::size_t>(height)) == 0);
}

}

TEST_CASE("a polyline has the pixels of its lines drawn one by one, and ends where they end")
{
    for (unsigned seed = 1; seed <= 1000; ++seed)
        CompareWithLines(seed);
}

TEST_CASE("a polyline without points draws nothing and leaves the current point")
{
    TestBitmap     bitmap(4, 1);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    MoveToEx(bitmap.Dc, 1, 0, nullptr);
    DrawPolyline(bitmap.Dc, std::span<const CPoint>(), true);
    LineTo(bitmap.Dc, 3, 0);
    CHECK(bitmap.Text() == ".rr.\n");
}
