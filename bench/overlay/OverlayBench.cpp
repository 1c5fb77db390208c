// Overlay objects: fills of a plane, the label image, the spline's system, and paints, mouse moves and
// hit tests of many shapes beside a scene of the same outlines.

#include "base/PixelFill.h"
#include "canvas/exports/CanvasTable.h"
#include "common/MemoryBitmap.h"
#include "overlay/VostelSpline.h"
#include "support/PeerBench.h"

#include <VostelObj.h>

#include <QApplication>
#include <QGraphicsPolygonItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <cairo.h>
#include <malloc.h>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace vostel;

extern "C" {
void dgesv_(const int* n, const int* nrhs, double* a, const int* lda, int* pivots, double* b, const int* ldb,
            int* info);
void openblas_set_num_threads(int count);
}

namespace {

using Point = PointTemplateBase<int>;
using Points = std::vector<Point>;
using Plane = ClassData2DIO<int>;

constexpr int    Size = 4096;
constexpr double Turn = 6.283185307179586;

// A ragged ring, clockwise on the screen.
Points Star(std::mt19937& random, int count, double x, double y, double radius, double rough)
{
    std::uniform_real_distribution<double> at(1.0 - rough, 1.0);
    Points                                 points;
    for (int i = 0; i < count; ++i) {
        const double r = radius * at(random);
        const double angle = Turn * i / count;
        points.emplace_back(static_cast<int>(x + r * std::cos(angle)),
                            static_cast<int>(y + r * std::sin(angle)));
    }
    return points;
}

// The fill from its description, with the library's sort in place of its two.
void FillPlainly(Plane& plane, const Points& points, int value)
{
    constexpr int Ends[8][8] = {{0, 0, 0, 0, 1, 1, 1, 1}, {1, 1, 1, 1, 0, 2, 2, 2}, {1, 1, 1, 1, 0, 0, 2, 2},
                                {1, 1, 1, 1, 0, 0, 0, 2}, {1, 1, 1, 1, 0, 0, 0, 0}, {0, 2, 2, 2, 1, 1, 1, 1},
                                {0, 0, 2, 2, 1, 1, 1, 1}, {0, 0, 0, 2, 1, 1, 1, 1}};
    constexpr int Codes[9] = {3, 2, 1, 4, 0, 0, 5, 6, 7};
    constexpr int Dx[8] = {1, 1, 0, -1, -1, -1, 0, 1};
    constexpr int Dy[8] = {0, -1, -1, -1, 0, 1, 1, 1};

    std::vector<int> chain;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % points.size()];
        const int    dx = b.x - a.x;
        const int    dy = b.y - a.y;
        const int    n = std::max(std::abs(dx), std::abs(dy));
        int          accX = 1;
        int          accY = 1;
        for (int k = 0; k < n; ++k) {
            int ex = 0;
            int ey = 0;
            accX += std::abs(dx);
            accY += std::abs(dy);
            if (accX > n) {
                ex = dx > 0 ? 1 : -1;
                accX -= n;
            }
            if (accY > n) {
                ey = dy > 0 ? 1 : -1;
                accY -= n;
            }
            chain.push_back(Codes[(ey + 1) * 3 + ex + 1]);
        }
    }
    std::vector<std::pair<int, int>> ends;
    int                              x = points[0].x;
    int                              y = points[0].y;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        x += Dx[chain[i]];
        y += Dy[chain[i]];
        for (int k = Ends[chain[i]][chain[(i + 1) % chain.size()]]; k > 0; --k)
            ends.emplace_back(y, x);
    }
    std::sort(ends.begin(), ends.end());
    for (std::size_t i = 0; i < ends.size(); i += 2)
        for (int at = ends[i].second; at <= ends[i + 1].second; ++at)
            plane.GetRow(ends[i].first)[at] = value;
}

void MakePlane(Plane& plane)
{
    plane.Allocate(Size, Size);
    std::fill_n(plane.Ptr1D, static_cast<std::size_t>(Size) * Size, 0);
}

void CompareFills(bench::PeerBench& peers)
{
    std::mt19937 random(68);
    Plane        plane, plain;
    MakePlane(plane);
    MakePlane(plain);
    cv::Mat          image(Size, Size, CV_32SC1, cv::Scalar(0));
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Size, Size);
    cairo_t*         cairo = cairo_create(surface);
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    const std::pair<int, double> cases[] = {{4, 0.60}, {100, 0.75}, {10000, 0.60}};
    for (const auto& [count, bound] : cases) {
        const Points outline = Star(random, count, 2048, 2048, 2040, count == 4 ? 0.1 : 0.5);
        FillPlainly(plain, outline, count);
        Points                 points;
        std::vector<cv::Point> cvPoints;
        for (const Point& p : outline)
            cvPoints.emplace_back(p.x, p.y);
        bench::Contest contest;
        contest.Title = "fill of " + std::to_string(count) + " vertices, 4096 x 4096";
        contest.Run = [&, value = count] {
            points = outline;
            FillPolygon(plane, points, value);
        };
        contest.Check = [&] {
            return std::memcmp(plane.Ptr1D, plain.Ptr1D,
                               static_cast<std::size_t>(Size) * Size * sizeof(int)) == 0;
        };
        contest.Peers.push_back({"opencv fillPoly",
                                 [&, value = count] {
                                     cv::fillPoly(image, std::vector<std::vector<cv::Point>>{cvPoints},
                                                  cv::Scalar(value));
                                 },
                                 {},
                                 [&, value = count] { return image.at<int>(2048, 2048) == value; }});
        contest.Peers.push_back({"cairo fill",
                                 [&] {
                                     cairo_set_source_rgba(cairo, 1.0, 0.5, 0.25, 1.0);
                                     cairo_new_path(cairo);
                                     for (const Point& p : outline)
                                         cairo_line_to(cairo, p.x, p.y);
                                     cairo_close_path(cairo);
                                     cairo_fill(cairo);
                                     cairo_surface_flush(surface);
                                 },
                                 {},
                                 [&] {
                                     const auto* row = cairo_image_surface_get_data(surface) +
                                                       2048 * cairo_image_surface_get_stride(surface);
                                     return row[4 * 2048 + 3] == 255;
                                 }});
        contest.AtMost = bound;
        peers.Compare(contest);
        std::memset(plane.Ptr1D, 0, static_cast<std::size_t>(Size) * Size * sizeof(int));
        std::memset(plain.Ptr1D, 0, static_cast<std::size_t>(Size) * Size * sizeof(int));
    }
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

void CompareSpline(bench::PeerBench& peers)
{
    constexpr int Count = 199;
    constexpr int N = Count + 3;
    constexpr int Rights = 2;
    std::mt19937  random(43);
    Points        points;
    for (int i = 0; i < Count; ++i)
        points.emplace_back(static_cast<int>(random() % 4000), static_cast<int>(random() % 4000));
    Points              curve, controls;
    std::vector<double> matrix(N * N, 0.0), right(N * Rights, 0.0), workMatrix, workRight;
    std::vector<int>    pivots(N);
    const auto          set = [&](int row, int column, double v) {
        matrix[static_cast<std::size_t>(column * N + row)] = v;
    };
    const auto setRight = [&](int row, double x, double y) {
        right[static_cast<std::size_t>(row)] = x;
        right[static_cast<std::size_t>(N + row)] = y;
    };
    const Point first = points[0];
    const Point last = points[Count - 1];
    set(0, 0, -0.5);
    set(0, 2, 1.5);
    setRight(0, first.x, first.y);
    set(1, 1, 2.0 / 3.0);
    set(1, 2, 2.0 / 3.0);
    setRight(1, first.x / 3.0 + first.x, first.y / 3.0 + first.y);
    for (int r = 2; r <= Count; ++r) {
        set(r, r - 1, 1.0 / 6.0);
        set(r, r, 2.0 / 3.0);
        set(r, r + 1, 1.0 / 6.0);
        setRight(r, points[static_cast<std::size_t>(r - 2)].x, points[static_cast<std::size_t>(r - 2)].y);
    }
    set(N - 2, N - 3, 2.0 / 9.0);
    set(N - 2, N - 2, 2.0 / 3.0);
    setRight(N - 2, last.x - last.x / 9.0, last.y - last.y / 9.0);
    set(N - 1, N - 3, -0.5);
    set(N - 1, N - 1, 1.5);
    setRight(N - 1, last.x, last.y);

    openblas_set_num_threads(1);
    bench::Contest contest;
    contest.Title = "mB3Line of 199 points";
    contest.Run = [&] { mB3Line(points, curve, controls); };
    contest.Check = [&] {
        // The peer's solution is not ours to the bit, but it is the same system.
        if (controls.size() != N || curve.size() != 11 * (Count - 1))
            return false;
        int info = 0;
        workMatrix = matrix;
        workRight = right;
        dgesv_(&N, &Rights, workMatrix.data(), &N, pivots.data(), workRight.data(), &N, &info);
        for (int i = 0; i < N; ++i) {
            if (std::fabs(workRight[static_cast<std::size_t>(i)] - controls[static_cast<std::size_t>(i)].x) >
                1.001)
                return false;
        }
        return info == 0;
    };
    contest.Peers.push_back({"lapack dgesv",
                             [&] {
                                 int info = 0;
                                 dgesv_(&N, &Rights, workMatrix.data(), &N, pivots.data(), workRight.data(),
                                        &N, &info);
                             },
                             [&] {
                                 workMatrix = matrix;
                                 workRight = right;
                             },
                             {}});
    contest.AtMost = 0.15;
    peers.Compare(contest);
}

void GiveNodes(VostelObj& object, const Points& points)
{
    for (const Point& p : points)
        object.ImagePoints.emplace_back(p.x, p.y);
}

// The plane that a host gets, beside writing it once, flipping it once at memory speed, and the same fills.
void CompareLabelImage(bench::PeerBench& peers)
{
    constexpr int       Number = 0;
    std::mt19937        random(33);
    std::vector<Points> regions;
    gCVSPrepareCanvas(Number, Size, Size);
    std::vector<unsigned char> gray(static_cast<std::size_t>(Size) * Size, 7);
    gCVSShowUCGray(Number, gray.data(), Size, Size, true);
    for (int i = 0; i < 100; ++i) {
        regions.push_back(Star(random, 50, 200 + 400 * (i % 10), 200 + 400 * (i / 10), 240, 0.4));
        gCVSAddPoly(Number);
        GiveNodes(*gCanvasTable[Number].Elements.back(), regions.back());
    }
    Plane plain, peer;
    MakePlane(plain);
    MakePlane(peer);
    for (std::size_t i = 0; i < regions.size(); ++i) {
        for (Point& p : regions[i]) {
            p.x = std::clamp(p.x, 0, Size - 1);
            p.y = std::clamp(p.y, 0, Size - 1);
        }
        FillPlainly(plain, regions[i], static_cast<int>(i) + 1);
    }
    const std::size_t rowBytes = Size * sizeof(int);
    bench::Contest    contest;
    contest.Title = "label image, 100 regions, 4096 x 4096";
    contest.Run = [] { gCVSGenerateLabel(Number, false); };
    contest.Check = [&] {
        Plane& ours = gCVSGetLabelIma(Number);
        for (int y = 0; y < Size; ++y) {
            if (std::memcmp(ours.GetRow(y), plain.GetRow(Size - 1 - y), rowBytes) != 0)
                return false;
        }
        return true;
    };
    std::vector<char> row(rowBytes);
    Points            points;
    contest.Peers.push_back({"write, fills and flip",
                             [&] {
                                 std::memset(peer.Ptr1D, 0, rowBytes * Size);
                                 for (std::size_t i = 0; i < regions.size(); ++i) {
                                     points = regions[i];
                                     FillPolygon(peer, points, static_cast<int>(i) + 1);
                                 }
                                 for (int y = 0; y < Size / 2; ++y) {
                                     std::memcpy(row.data(), peer.GetRow(y), rowBytes);
                                     std::memcpy(peer.GetRow(y), peer.GetRow(Size - 1 - y), rowBytes);
                                     std::memcpy(peer.GetRow(Size - 1 - y), row.data(), rowBytes);
                                 }
                             },
                             {},
                             {}});
    contest.AtMost = 2.0;
    peers.Compare(contest);
    gCVSDelAllElement(Number);
}

constexpr int ViewWidth = 1920;
constexpr int ViewHeight = 1080;
constexpr int Counts[] = {10, 100, 1000, 10000, 100000};    // of the rows of growth

// Rings in rows and columns.
struct Crowd {
    int    Count = 0;
    int    Nodes = 50;
    bool   Splines = false;
    double Across = ViewWidth;    // px that the rows are long; the window shows the first ViewWidth
    double Radius = 60;
};

// A canvas with an image as large as its window, and the same outlines as items of a scene.
class Shapes {
public:
    const int Number;

    explicit Shapes(const Crowd& crowd, int number = 1)
        : Number(number), Scene(0, 0, crowd.Across, crowd.Across * ViewHeight / ViewWidth), View(&Scene),
          Target(ViewWidth, ViewHeight, QImage::Format_RGB32)
    {
        std::mt19937               random(421);
        std::vector<unsigned char> gray(static_cast<std::size_t>(ViewWidth) * ViewHeight);
        for (unsigned char& value : gray)
            value = static_cast<unsigned char>(48 + random() % 32);
        CRect client(0, 0, ViewWidth, ViewHeight);
        gCVSSetClient(Number, client, Window.Dc);
        gCVSShowUCGray(Number, gray.data(), ViewWidth, ViewHeight, true);

        View.setFrameStyle(0);
        View.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        View.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        View.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        View.resize(ViewWidth, ViewHeight);
        View.setMouseTracking(true);
        const QImage image(gray.data(), ViewWidth, ViewHeight, ViewWidth, QImage::Format_Grayscale8);
        Scene.setBackgroundBrush(image.convertToFormat(QImage::Format_RGB32));
        const int    across = static_cast<int>(std::ceil(std::sqrt(crowd.Count * 16.0 / 9.0)));
        const double step = crowd.Across / across;
        for (int i = 0; i < crowd.Count; ++i) {
            const Points points = Star(random, crowd.Nodes, step * (i % across + 0.5),
                                       step * (i / across + 0.5), crowd.Radius, 0.3);
            crowd.Splines ? gCVSAddSpline(Number) : gCVSAddPoly(Number);
            VostelObj& object = *gCanvasTable[Number].Elements.back();
            GiveNodes(object, points);
            object.ShowHandles = false;    // the scene has outlines only
            if (!crowd.Splines) {
                QPolygonF polygon;
                for (const Point& p : points)
                    polygon << QPointF(p.x, p.y);
                Scene.addPolygon(polygon, QPen(Qt::blue, 0));
                continue;
            }
            Points closed = points, curve, controls;
            closed.push_back(points[0]);
            mB3Line(closed, curve, controls);
            QPolygonF polygon;
            for (const Point& p : curve)
                polygon << QPointF(p.x, p.y);
            Scene.addPolygon(polygon, QPen(Qt::blue, 0));
        }
        gCVSOnMouseMove(Number, 0, CPoint(1, 1));
        if (crowd.Splines) {
            for (VostelObj* object : gCanvasTable[Number].Elements)
                object->HandleRects.clear();    // a spline shows its nodes always
        }
    }
    ~Shapes()
    {
        gCVSDelAllElement(Number);
        CRect client(0, 0, ViewWidth, ViewHeight);
        gCVSSetClient(Number, client, nullptr);
    }
    Shapes(const Shapes&) = delete;
    Shapes& operator=(const Shapes&) = delete;

    void PaintScene()
    {
        QPainter painter(&Target);
        View.render(&painter);
    }
    bool SceneShowsOutlines() const
    {
        int blue = 0;
        for (int y = 0; y < ViewHeight; ++y)
            for (int x = 0; x < ViewWidth; ++x)
                blue += (Target.pixel(x, y) & 0xFFFFFF) == 0x0000FF;
        return blue > 500;
    }
    void MoveInScene(QPointF at)
    {
        QMouseEvent event(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(View.viewport(), &event);
    }
    QGraphicsItem* ItemAt(QPoint at) { return View.itemAt(at); }
    // The topmost item there follows the mouse, and what is spoilt of the window is painted at each step.
    void BeginDragInScene(QPointF at)
    {
        View.show();
        QApplication::processEvents();
        Dragged = View.itemAt(at.toPoint());
        Dragged->setFlag(QGraphicsItem::ItemIsMovable);
        SendToScene(QEvent::MouseButtonPress, at);
        DragAt = at;
    }
    void DragStepInScene()
    {
        DragAt += ++DragSteps % 20 < 10 ? QPointF(2, 2) : QPointF(-2, -2);
        SendToScene(QEvent::MouseMove, DragAt);
        QApplication::processEvents();
    }
    bool SceneFollows() const { return Dragged && Dragged->pos() != QPointF(); }

private:
    void SendToScene(QEvent::Type type, QPointF at)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, View.viewport()->mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(View.viewport(), &event);
    }

    QGraphicsItem* Dragged = nullptr;
    QPointF        DragAt;
    int            DragSteps = 0;
    QGraphicsScene Scene;
    QGraphicsView  View;
    QImage         Target;
    MemoryBitmap   Window{ViewWidth, ViewHeight};
};

void PressAndRelease(int number, CPoint at)
{
    gCVSOnLButtonDown(number, MK_LBUTTON, at);
    gCVSOnLButtonUp(number, 0, at);
}

void ComparePaints(bench::PeerBench& peers)
{
    const auto paint = [&](const std::string& title, const Crowd& crowd, bool growth = false) {
        Shapes shapes(crowd);
        gCanvasTable[shapes.Number].Kept.Fewest = SIZE_MAX;    // the peer keeps nothing either
        bench::Contest contest;
        contest.Title = title;
        if (growth) {
            contest.Curve = "paint";
            contest.Count = crowd.Count;
        }
        contest.Rounds = crowd.Count > 10000 ? 5 : 0;    // they take a fifth of a second each
        contest.Run = [&] { gCVSOnDraw(shapes.Number, nullptr); };
        contest.Peers.push_back({"qt graphics view",
                                 [&] { shapes.PaintScene(); },
                                 {},
                                 [&] { return shapes.SceneShowsOutlines(); }});
        peers.Compare(contest);
        gCanvasTable[shapes.Number].Kept.Fewest = KeptFrame::FewResting;
    };
    paint("paint of 1,000 polygons of 50 nodes", {.Count = 1000});
    paint("paint of 200 splines of 60 nodes", {.Count = 200, .Nodes = 60, .Splines = true});
    for (const int count : Counts)
        paint("growth: paint of " + std::to_string(count) + " polygons", {.Count = count}, true);
}

void CompareMoves(bench::PeerBench& peers)
{
    for (const int count : Counts) {
        Shapes         shapes({.Count = count});
        bench::Contest contest;
        contest.Title = "growth: mouse move over " + std::to_string(count) + " polygons";
        contest.Curve = "mouse move";
        contest.Count = count;
        int at = 0;
        int theirs = 0;
        contest.Run = [&] {
            ++at;
            gCVSOnMouseMove(shapes.Number, 0, CPoint(at % ViewWidth, at % ViewHeight));
        };
        contest.Peers.push_back({"qt graphics view",
                                 [&] {
                                     ++theirs;
                                     shapes.MoveInScene(QPointF(theirs % ViewWidth, theirs % ViewHeight));
                                 },
                                 {},
                                 {}});
        peers.Compare(contest);
    }
    for (const int count : Counts) {
        Shapes         shapes({.Count = count});
        bench::Contest contest;
        contest.Title = "growth: press beside " + std::to_string(count) + " polygons";
        contest.Curve = "press beside all";
        contest.Count = count;
        contest.Run = [&] { PressAndRelease(shapes.Number, CPoint(-100, -100)); };
        QGraphicsItem* found = nullptr;
        contest.Peers.push_back({"qt itemAt", [&] { found = shapes.ItemAt(QPoint(-100, -100)); }, {}, {}});
        peers.Compare(contest);
    }
}

// Beside the same canvas with few objects, and with those alone that it shows.
void CompareCrowds(bench::PeerBench& peers)
{
    constexpr int Many = 100000;
    constexpr int Few = 10;
    constexpr int InView = 100;
    {
        Shapes         shapes({.Count = Many, .Across = 10.0 * ViewWidth, .Radius = 12});
        Shapes         few({.Count = Few}, 2);
        const CPoint   lowest(22, 22);
        bench::Contest contest;
        contest.Title = "press on the lowest of 100,000 polygons, all boxes apart";
        contest.Run = [&] { PressAndRelease(shapes.Number, lowest); };
        contest.Check = [&] { return gCanvasTable[shapes.Number].SelIndex == 0; };
        contest.Peers.push_back(
            {"ours, beside 10", [&] { PressAndRelease(few.Number, CPoint(-100, -100)); }, {}, {}});
        peers.Compare(contest);
    }
    {
        // The rows of all are as far apart as those of the ones in view.
        const double   across = std::ceil(std::sqrt(Many * 16.0 / 9.0));
        const double   shown = std::ceil(std::sqrt(InView * 16.0 / 9.0));
        Shapes         shapes({.Count = Many, .Across = across / shown * ViewWidth});
        Shapes         alone({.Count = InView}, 2);
        bench::Contest contest;
        contest.Title = "paint with 100,000 polygons, 100 of them in view";
        contest.Run = [&] { gCVSOnDraw(shapes.Number, nullptr); };
        contest.Peers.push_back(
            {"ours, these 100 alone", [&] { gCVSOnDraw(alone.Number, nullptr); }, {}, {}});
        peers.Compare(contest);
    }
}

// A step of a drag and the frame that shows it.
class Drag {
public:
    Drag(int number, std::size_t index) : Number(number)
    {
        const VostelObj& object = *std::as_const(gCanvasTable[Number]).Elements[index];
        for (const CPoint& point : object.ClientPoints) {
            At.x += point.x / static_cast<int>(object.ClientPoints.size());
            At.y += point.y / static_cast<int>(object.ClientPoints.size());
        }
        gCVSOnLButtonDown(Number, MK_LBUTTON, At);
        Step();    // the objects that nobody has in hand come to rest
        Step();
        Step();
    }
    ~Drag() { gCVSOnLButtonUp(Number, 0, At); }
    Drag(const Drag&) = delete;
    Drag& operator=(const Drag&) = delete;

    void Step()
    {
        const int step = ++Count % 20 < 10 ? 2 : -2;
        At = CPoint(At.x + step, At.y + step);
        gCVSOnMouseMove(Number, MK_LBUTTON, At);
        gCVSOnDraw(Number, nullptr);
    }
    CPoint Place() const { return At; }
    // The shape or a node of it.
    bool IsMoving() const
    {
        const VostelImage& canvas = gCanvasTable[Number];
        if (canvas.SelIndex < 0)
            return false;
        VostelObj& object = *canvas.Elements.AsTheyLie()[static_cast<std::size_t>(canvas.SelIndex)];
        return object.IsMoving() || object.ActiveNode >= 0;
    }

private:
    int    Number;
    int    Count = 0;
    CPoint At;
};

void CompareDrags(bench::PeerBench& peers)
{
    for (const int count : Counts) {
        Shapes         shapes({.Count = count});
        Drag           drag(shapes.Number, static_cast<std::size_t>(count) / 2);
        bench::Contest contest;
        contest.Title = "growth: drag of one among " + std::to_string(count) + " polygons, move and frame";
        contest.Curve = "drag of one";
        contest.Count = count;
        contest.Run = [&] { drag.Step(); };
        contest.Check = [&] { return drag.IsMoving(); };
        shapes.BeginDragInScene(QPointF(drag.Place().x, drag.Place().y));
        contest.Peers.push_back({"qt graphics view",
                                 [&] { shapes.DragStepInScene(); },
                                 {},
                                 [&] { return shapes.SceneFollows(); }});
        peers.Compare(contest);
    }
    constexpr int Few = 100;
    Shapes        few({.Count = Few}, 2);
    Drag          fewDrag(few.Number, Few / 2);
    for (const int count : {1000, 10000, 100000}) {
        Shapes         shapes({.Count = count});
        Drag           drag(shapes.Number, static_cast<std::size_t>(count) / 2);
        bench::Contest contest;
        contest.Title = "drag of one among " + std::to_string(count) + " polygons, move and frame";
        contest.Run = [&] { drag.Step(); };
        contest.Check = [&] { return drag.IsMoving(); };
        contest.Peers.push_back({"ours, one among 100", [&] { fewDrag.Step(); }, {}, {}});
        contest.AtMost = count <= 10000 ? 1.5 : 0.0;    // beyond, more lie beneath it than are drawn of 100
        peers.Compare(contest);
    }
}

// By the allocator's own count: polygons of five nodes on a canvas, and as items of a scene whose index is
// made.
void CompareMemory(bench::PeerBench& peers)
{
    constexpr int    Count = 100000;
    constexpr int    Nodes = 5;
    constexpr int    Number = 1;
    constexpr double Bound = 1.0;
    const auto       inUse = [] {
        const struct mallinfo2 counts = mallinfo2();
        return static_cast<double>(counts.uordblks) + static_cast<double>(counts.hblkhd);
    };
    const auto star = [](std::mt19937& random, int i) {
        return Star(random, Nodes, 5.0 * (i % 380 + 0.5), 5.0 * (i / 380 % 210 + 0.5), 12, 0.3);
    };
    std::vector<unsigned char> gray(static_cast<std::size_t>(ViewWidth) * ViewHeight, 64);
    MemoryBitmap               window(ViewWidth, ViewHeight);
    CRect                      client(0, 0, ViewWidth, ViewHeight);
    gCVSSetClient(Number, client, window.Dc);
    gCVSShowUCGray(Number, gray.data(), ViewWidth, ViewHeight, true);
    gCVSOnDraw(Number, nullptr);
    std::mt19937 random(421);
    const double before = inUse();
    for (int i = 0; i < Count; ++i) {
        gCVSAddPoly(Number);
        GiveNodes(*gCanvasTable[Number].Elements.back(), star(random, i));
    }
    gCVSOnMouseMove(Number, 0, CPoint(1, 1));
    gCVSOnDraw(Number, nullptr);
    const double ours = inUse() - before;
    gCVSDelAllElement(Number);
    gCVSSetClient(Number, client, nullptr);

    random.seed(421);
    QGraphicsScene scene(0, 0, ViewWidth, ViewHeight);
    const double   sceneBefore = inUse();
    for (int i = 0; i < Count; ++i) {
        QPolygonF polygon;
        for (const Point& p : star(random, i))
            polygon << QPointF(p.x, p.y);
        scene.addPolygon(polygon, QPen(Qt::blue, 0));
    }
    scene.items(QPointF(1, 1));
    const double theirs = inUse() - sceneBefore;
    const auto   figure = [](double value) { return std::to_string(static_cast<int>(std::lround(value))); };
    peers.Note("memory of 100,000 polygons of 5 nodes: " + figure(ours / Count) +
               " bytes each, qt graphics view " + figure(theirs / Count) + ", " +
               figure(100 * ours / theirs) + " % of it, at most " + figure(100 * Bound) + " %");
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication     application(argc, argv);
    bench::PeerBench peers(argc, argv);
    CompareFills(peers);
    CompareSpline(peers);
    CompareLabelImage(peers);
    ComparePaints(peers);
    CompareMoves(peers);
    CompareCrowds(peers);
    CompareDrags(peers);
    CompareMemory(peers);
    return peers.Finish();
}
