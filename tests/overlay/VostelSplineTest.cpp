#include "overlay/VostelSpline.h"

#include "support/OverlayCanvas.h"
#include "vostel/RasterFills.h"

#include <algorithm>
#include <cstdlib>
#include <random>

using namespace vostel;

namespace {

const std::vector<CPoint> Nodes = {CPoint(20, 20), CPoint(70, 18), CPoint(75, 60), CPoint(25, 62)};

void GiveNodes(VostelSpline& spline, int count)
{
    spline.ImagePoints.clear();
    for (int i = 0; i < count; ++i)
        spline.ImagePoints.emplace_back(50.0 + (i < count / 2 ? 40 - i % 3 : i % 3 - 40),
                                        5.0 + i * 70.0 / count);
    spline.RefreshClientGeometry();
}

template <typename T>
bool IsSame(const std::vector<PointTemplateBase<T>>& a, const std::vector<PointTemplateBase<T>>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& p, const auto& q) { return p.x == q.x && p.y == q.y; });
}

}

TEST_CASE("one node of a spline is a round handle in the line color and no curve")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, {CPoint(40, 40)});
    VostelSpline& spline = host.Last<VostelSpline>();
    const int     ring = host.CountPixels(RedPixel);
    CHECK(ring > 10);
    CHECK(ring < 40);
    CHECK(spline.ClientCount == 1);
    CHECK(spline.ClosedNodes.size() == 2);
    CHECK(spline.CurvePoints.empty());
    CHECK(host.Pixel(host.At(36, 40).x, host.At(36, 40).y) == RedPixel);
    CHECK(host.Pixel(host.At(40, 40).x, host.At(40, 40).y) == 0x404040);    // hollow
}

TEST_CASE("two nodes of a spline give three closed nodes and a curve of 22 points")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, {CPoint(20, 40), CPoint(80, 40)});
    VostelSpline& spline = host.Last<VostelSpline>();
    host.Paint();
    CHECK(spline.ClosedNodes.size() == 3);
    CHECK(spline.CurvePoints.size() == 22);
    CHECK(spline.ControlPoints.size() == 6);
}

TEST_CASE("a spline draws the curve that mB3Line gives for its closed client points")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, Nodes);
    VostelSpline& spline = host.Last<VostelSpline>();
    host.Paint();
    std::vector<PointTemplateBase<int>> closed, curve, controls;
    for (const CPoint& p : Nodes)
        closed.emplace_back(host.At(p.x, p.y).x, host.At(p.x, p.y).y);
    closed.push_back(closed[0]);
    mB3Line(closed, curve, controls);
    REQUIRE(curve.size() == 44);
    REQUIRE(spline.CurvePoints.size() == 44);
    for (std::size_t i = 0; i < curve.size(); ++i) {
        CHECK(spline.CurvePoints[i].x == curve[i].x);
        CHECK(spline.CurvePoints[i].y == curve[i].y);
        CHECK(host.Pixel(curve[i].x, curve[i].y) == RedPixel);
    }
    CHECK(spline.ControlPoints.size() == controls.size());
}

TEST_CASE("the nodes of a spline are round, shown and in the line color whatever its handle fields say")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, Nodes);
    const Frame   before = host.PaintAndCapture();
    VostelSpline& spline = host.Last<VostelSpline>();
    spline.ShowHandles = false;
    spline.HandleShape = 1;
    spline.HandleColorSel = 0x00FF00;
    CHECK(FrameDifference(host.PaintAndCapture(), before) == "");
}

TEST_CASE("198 nodes of a spline draw a curve and have a region, 199 draw their nodes alone and have none")
{
    OverlayCanvas host;
    gCVSAddSpline(host.Number);
    host.Hover();
    VostelSpline& spline = host.Last<VostelSpline>();
    GiveNodes(spline, 198);
    host.Paint();
    CHECK(spline.CurvePoints.size() == 11 * 198);
    CHECK(host.CountLabels(1) > 0);
    GiveNodes(spline, 199);
    host.Paint();
    CHECK(spline.CurvePoints.empty());
    CHECK(spline.ClosedNodes.size() == 200);
    CHECK(host.CountPixels(RedPixel) > 500);
    std::vector<PointTemplateBase<int>> out(3);
    CHECK_FALSE(spline.GetLabelOutline(out));
    CHECK(out.size() == 3);
    CHECK(host.CountLabels(1) == 0);
}

TEST_CASE("a spline has the region of its last paint: none before the first one")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, Nodes);
    CHECK(host.CountLabels(0) == 8000);
    CHECK(gCVSGenerateLabel(host.Number, false) == 1);
    host.Paint();
    const int area = host.CountLabels(1);
    CHECK(area > 1500);
    // Another node counts from the next paint on.
    host.Node(5, 40);
    CHECK(host.CountLabels(1) == area);
    host.Paint();
    CHECK(host.CountLabels(1) != area);
}

TEST_CASE("a spline's outline is its curve in steps of at least 4 client pixels, taken back to the image")
{
    int exactSteps = 0;
    for (const int extent : {12, 17, 23, 31, 60}) {
        CAPTURE(extent);
        OverlayCanvas host;
        host.AddNodes(gCVSAddSpline, {CPoint(10, 10), CPoint(10 + extent, 12),
                                      CPoint(8 + extent, 10 + extent), CPoint(14, 12 + extent)});
        VostelSpline& spline = host.Last<VostelSpline>();
        host.Paint();
        const auto& curve = spline.CurvePoints;
        REQUIRE(curve.size() == 44);
        const auto distance = [](PointTemplateBase<int> a, PointTemplateBase<int> b) {
            return std::abs(a.x - b.x) + std::abs(a.y - b.y);
        };
        std::vector<PointTemplateBase<int>> expected;
        PointTemplateBase<int>              reference = curve[0];
        for (std::size_t i = 1; i < curve.size(); ++i) {
            if (distance(curve[i], reference) >= 4) {
                exactSteps += distance(curve[i], reference) == 4;
                expected.push_back(reference);
                reference = curve[i];
            }
        }
        if (distance(curve[curve.size() - 2], curve.back()) >= 4)
            expected.push_back(curve.back());
        std::vector<PointTemplateBase<int>> out(1);
        REQUIRE(spline.GetLabelOutline(out));
        REQUIRE(out.size() == expected.size());
        CHECK(out.size() < curve.size());
        for (std::size_t i = 0; i < out.size(); ++i) {
            CHECK(out[i].x == expected[i].x - host.ImageLeft);
            CHECK(out[i].y == expected[i].y - host.ImageTop);
        }
    }
    CHECK(exactSteps > 5);
}

TEST_CASE("a painted spline of two nodes has an outline, of one node none")
{
    OverlayCanvas                       host;
    std::vector<PointTemplateBase<int>> out = {PointTemplateBase<int>(7, 8)};
    host.AddNodes(gCVSAddSpline, {CPoint(20, 20)});
    host.Paint();
    CHECK_FALSE(host.Last().GetLabelOutline(out));
    CHECK(out.size() == 1);
    CHECK(out[0].x == 7);
    host.Node(60, 40);
    host.Paint();
    CHECK(host.Last<VostelSpline>().CurvePoints.size() == 22);
    CHECK(host.Last().GetLabelOutline(out));
    CHECK(out.size() > 4);
}

TEST_CASE("a curve of coincident points has an outline without points and fills nothing")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, {CPoint(40, 40)});
    VostelSpline& spline = host.Last<VostelSpline>();
    spline.ImagePoints.assign(5, PointTemplateBase<double>(40.0, 40.0));
    spline.RefreshClientGeometry();
    host.Paint();
    CHECK(spline.CurvePoints.size() == 55);
    std::vector<PointTemplateBase<int>> out(2);
    CHECK(spline.GetLabelOutline(out));
    CHECK(out.empty());
    CHECK(host.CountLabels(0) == 8000);
}

TEST_CASE("a spline is hit on the polygon of its nodes, not on its curve")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, {CPoint(10, 40), CPoint(50, 10), CPoint(90, 40), CPoint(50, 70)});
    VostelSpline& spline = host.Last<VostelSpline>();
    host.Paint();
    // Between two nodes the curve bulges out beyond their chord.
    bool curveBeyondChord = false;
    for (const auto& p : spline.CurvePoints) {
        const CPoint client(p.x, p.y);
        if (!spline.HitTest(client))
            curveBeyondChord = true;
    }
    CHECK(curveBeyondChord);
    CHECK(spline.HitTest(host.At(50, 40)));
    host.DragOf(CPoint(50, 40), CPoint(52, 41));
    CHECK(IsAt(spline.ImagePoints[0], 12, 41));
}

TEST_CASE("cleared points of a spline free its three lists too")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, Nodes);
    VostelSpline& spline = host.Last<VostelSpline>();
    host.Paint();
    REQUIRE(spline.CurvePoints.capacity() > 0);
    spline.ClearPoints();
    CHECK(spline.ImagePoints.capacity() == 0);
    CHECK(spline.ClosedNodes.capacity() == 0);
    CHECK(spline.ControlPoints.capacity() == 0);
    CHECK(spline.CurvePoints.capacity() == 0);
    host.Paint();
    CHECK(spline.CurvePoints.empty());
    CHECK(host.CountPixels(RedPixel) == 0);
}

TEST_CASE("a spline that keeps its curve has the one of its nodes, however they and the view have changed")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddSpline, Nodes);
    VostelSpline& spline = host.Last<VostelSpline>();
    std::mt19937  random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 300; ++round) {
        CAPTURE(round);
        spline.OpenMade = round >= 150;
        switch (below(4)) {
        case 0:
            spline.ImagePoints[static_cast<std::size_t>(below(static_cast<int>(spline.ImagePoints.size())))] =
                {below(1000) / 10.0, below(800) / 10.0};
            break;
        case 1:
            spline.ImagePoints.resize(static_cast<std::size_t>(1 + below(6)), {50.0 + round / 10.0, 3.0});
            break;
        case 2:
            spline.View->PlaceCentre(1.0 + below(3), 100 + below(9), 80);
            break;
        default:
            break;
        }
        spline.RefreshClientGeometry();
        host.Paint();
        std::vector<PointTemplateBase<int>> closed, curve, controls;
        for (const CPoint& p : spline.ClientPoints)
            closed.emplace_back(p.x, p.y);
        closed.push_back(closed[0]);
        if (spline.ClientPoints.size() > 1)
            mB3Line(closed, curve, controls);
        CHECK(IsSame(spline.ClosedNodes, closed));
        CHECK(IsSame(spline.CurvePoints, curve));
        CHECK(IsSame(spline.ControlPoints, controls));
        const std::optional<Outline> exact = spline.RegionOutline();
        REQUIRE(exact.has_value() == (spline.ImagePoints.size() >= 3));
        if (exact)
            CHECK(IsSame(exact->Points, Outline::OfSpline(spline.ImagePoints).Points));
    }
    spline.View->PlaceCentre(1.0, 100, 80);
}
