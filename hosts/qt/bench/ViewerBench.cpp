// What a frame costs while the mouse drags over a canvas of 1920 x 1080 device pixels that shows a float
// image of 4096 x 4096 with 100 objects: the event, the composition, and the way to the window. A screen of
// 60 frames a second leaves 16.6 ms. Works under any platform plug-in; without a display it takes
// "offscreen".
//
// The composition and the presentation are also timed apart, the latter beside two other ways to present.

#include "FramePainter.h"
#include "VostelWidget.h"

#include "common/MemoryBitmap.h"

#include <VostelObj.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace vostel::widget;

namespace {

constexpr int Canvas = 0;
constexpr int Width = 1920, Height = 1080;    // device px
constexpr int Side = 4096;                    // image px
constexpr int Objects = 100;

std::unique_ptr<VostelWidget> Widget;

void Send(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButton  button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent            event(type, at, Widget->mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(Widget.get(), &event);
}

void Turn(int steps)
{
    const QPointF middle(Width / 2.0, Height / 2.0);
    for (int i = 0; i < std::abs(steps); ++i) {
        QWheelEvent event(middle, Widget->mapToGlobal(middle), QPoint(), QPoint(0, steps > 0 ? 120 : -120),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Widget.get(), &event);
        Widget->repaint();
    }
}

// Zooms by wheel steps to the scale next to the wanted one.
void ZoomTo(double scale)
{
    const int steps = static_cast<int>(std::lround(std::log(scale / Widget->zoom()) / std::log(1.2)));
    Turn(steps);
}

void ShowImage()
{
    ClassData2DIO<float> image;
    image.Allocate(Side, Side);
    std::minstd_rand random(7);
    for (int y = 0; y < Side; ++y)
        for (int x = 0; x < Side; ++x)
            image.Ptr2D[y][x] = static_cast<float>(x + y) + static_cast<float>(random() % 512);
    gCVSShowRawFloat(Canvas, image, true, true);
}

void DrawObjects()
{
    std::minstd_rand random(8);
    for (int i = 0; i < Objects; ++i) {
        QPointF at(100 + random() % (Width - 300), 100 + random() % (Height - 300));
        int     kind = i % 5;
        if (i == Objects - 1) {    // the topmost is a rectangle round the middle, which the drags take
            at = QPointF(Width / 2.0 - 48, Height / 2.0 - 36);
            kind = 0;
        }
        switch (kind) {
        case 0:
            gCVSAddMRectangle(Canvas);
            break;
        case 1:
            gCVSAddPoly(Canvas);
            break;
        case 2:
            gCVSAddSpline(Canvas);
            break;
        case 3:
            gCVSAddFreeRegion(Canvas);
            break;
        default:
            gCVSAddMeasureLine(Canvas, 0.0);
        }
        Widget->refresh();
        const bool clicks = kind == 1 || kind == 2;
        if (clicks) {
            for (const QPointF& corner : {QPointF(0, 0), QPointF(90, 10), QPointF(80, 80), QPointF(10, 60)}) {
                Send(QEvent::MouseButtonPress, at + corner, Qt::ShiftModifier);
                Send(QEvent::MouseButtonRelease, at + corner, Qt::ShiftModifier);
            }
            continue;
        }
        Send(QEvent::MouseButtonPress, at, Qt::ShiftModifier);
        for (int step = 1; step <= 12; ++step)
            Send(QEvent::MouseMove, at + QPointF(8 * step, 6 * step), Qt::ShiftModifier);
        Send(QEvent::MouseButtonRelease, at + QPointF(96, 72), Qt::ShiftModifier);
    }
}

std::vector<unsigned int> Frame()
{
    const unsigned int* const pixels = gCVSGetClientPixelPtr(Canvas);
    return std::vector<unsigned int>(pixels, pixels + std::size_t{Width} * Height);
}

// One step of a drag as the window system would bring it, and the frame that answers.
void DragFrames(benchmark::State& state, double scale, bool fast, Qt::KeyboardModifiers modifiers)
{
    gCVSSetCanvasFastDisplayMode(Canvas, fast);
    ZoomTo(scale);
    const QPointF middle(Width / 2.0, Height / 2.0);
    Widget->repaint();
    const std::vector<unsigned int> before = Frame();
    Send(QEvent::MouseButtonPress, middle, modifiers);
    Send(QEvent::MouseMove, middle + QPointF(40, 30), modifiers);
    Widget->repaint();
    if (Frame() == before)
        state.SkipWithError("the drag moves nothing");
    int step = 0;
    for (auto _ : state) {
        ++step;
        Send(QEvent::MouseMove, middle + QPointF(step % 2 * 40, step % 2 * 30), modifiers);
        Widget->repaint();
        QApplication::processEvents();
    }
    Send(QEvent::MouseMove, middle, modifiers);
    Send(QEvent::MouseButtonRelease, middle, modifiers);
    state.counters["scale"] = Widget->zoom();
}

void Compose(benchmark::State& state, double scale, bool fast)
{
    gCVSSetCanvasFastDisplayMode(Canvas, fast);
    ZoomTo(scale);
    for (auto _ : state)
        gCVSOnDraw(Canvas, nullptr);
}

void PresentFrame(benchmark::State& state)
{
    QImage window(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&window);
        PaintFrame(painter, Canvas, 1.0);
        painter.end();
        benchmark::ClobberMemory();
    }
}

// A context of the host with a top-down bitmap, which the canvas copies to, drawn as one image.
void PresentByTopDownBitmap(benchmark::State& state)
{
    const MemoryBitmap bitmap(Width, Height, 32, true);
    QImage             window(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        BitBlt(bitmap.Dc, 0, 0, Width, Height, gCVSGetClientMemDC(Canvas), 0, 0, SRCCOPY);
        QPainter painter(&window);
        painter.drawImage(0, 0, QImage(bitmap.Bits, Width, Height, QImage::Format_RGB32));
        painter.end();
        benchmark::ClobberMemory();
    }
}

// The client surface as one image, turned over by the painter.
void PresentByTransform(benchmark::State& state)
{
    QImage window(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&window);
        painter.translate(0, Height);
        painter.scale(1, -1);
        painter.drawImage(0, 0,
                          QImage(reinterpret_cast<const uchar*>(gCVSGetClientPixelPtr(Canvas)), Width, Height,
                                 QImage::Format_RGB32));
        painter.end();
        benchmark::ClobberMemory();
    }
}

// A present that shows another picture than the canvas composed is worth no time.
bool PresentsTheFrame()
{
    gCVSOnDraw(Canvas, nullptr);
    QImage window(Width, Height, QImage::Format_RGB32);
    window.fill(Qt::magenta);
    QPainter painter(&window);
    PaintFrame(painter, Canvas, 1.0);
    painter.end();
    const unsigned int* const pixels = gCVSGetClientPixelPtr(Canvas);
    for (int y = 0; y < Height; ++y)
        if (std::memcmp(window.constScanLine(y), pixels + static_cast<std::size_t>(Height - 1 - y) * Width,
                        std::size_t{Width} * 4) != 0)
            return false;
    return true;
}

}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Widget = std::make_unique<VostelWidget>(Canvas);
    Widget->setFixedSize(Width, Height);
    Widget->show();
    QApplication::processEvents();
    ShowImage();
    Widget->refresh();
    ZoomTo(1.0);
    DrawObjects();
    if (!PresentsTheFrame()) {
        std::fprintf(stderr, "the widget does not present what the canvas composed\n");
        return EXIT_FAILURE;
    }
    for (const double scale : {0.28, 1.0, 3.6})
        for (const bool fast : {true, false}) {
            const std::string tail =
                "/scale:" + std::to_string(scale).substr(0, 4) + (fast ? "/fast" : "/quality");
            const auto add = [&](const std::string& name, auto run) {
                benchmark::RegisterBenchmark((name + tail).c_str(), run)->Unit(benchmark::Millisecond);
            };
            add("DragObject", [=](benchmark::State& s) { DragFrames(s, scale, fast, Qt::NoModifier); });
            add("DragView", [=](benchmark::State& s) { DragFrames(s, scale, fast, Qt::ControlModifier); });
            add("ComposeAlone", [=](benchmark::State& s) { Compose(s, scale, fast); });
        }
    benchmark::RegisterBenchmark("PresentAlone", PresentFrame)->Unit(benchmark::Millisecond);
    benchmark::RegisterBenchmark("PresentByTopDownBitmap", PresentByTopDownBitmap)
        ->Unit(benchmark::Millisecond);
    benchmark::RegisterBenchmark("PresentByTransform", PresentByTransform)->Unit(benchmark::Millisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    Widget.reset();
    return EXIT_SUCCESS;
}
