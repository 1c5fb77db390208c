// What the viewer does in its window of 1920 x 1080 on a screen of the window system: the time from an event
// of the mouse to the frame that answers it, with whatever else the window does for it, and how long the
// window keeps waiting while a large picture is opened. A screen of 60 frames a second leaves 16.7 ms.
//
// Flags: --only=TEXT (rows that contain it), --markdown=FILE (appends the table), --strict (a row over its
// bound counts as failure).

#include "plots/HistogramPlot.h"
#include "support/Machine.h"
#include "window/CanvasPane.h"
#include "window/DockSet.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"

#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace vostel;
using namespace vostel::viewer;

namespace {

constexpr double FrameTime = 16.7;    // ms
constexpr int    Side = 4096;         // image px

struct Row {
    std::string Title;
    double      Median = 0.0, Late = 0.0, Longest = 0.0, AtMost = 0.0;    // ms; late: 95 of 100 are earlier
};

// Counts the paints of a widget.
class PaintCounter : public QObject {
public:
    int Count = 0;

    explicit PaintCounter(QWidget& watched) : Watched(watched) { watched.installEventFilter(this); }
    ~PaintCounter() override { Watched.removeEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        Count += event->type() == QEvent::Paint;
        return false;
    }

private:
    QWidget& Watched;
};

void Send(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton held)
{
    const Qt::MouseButton  button = type == QEvent::MouseMove ? Qt::NoButton : held;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : held;
    QMouseEvent            event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void Turn(CanvasView& view, int steps)
{
    const QPointF middle(view.width() / 2.0, view.height() / 2.0);
    QWheelEvent   event(middle, view.mapToGlobal(middle), QPoint(), QPoint(0, 120 * steps), Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
}

void Settle(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

class ViewerBench {
public:
    ViewerBench(int argc, char** argv)
    {
        for (int i = 1; i < argc; ++i) {
            const std::string argument = argv[i];
            if (argument.rfind("--only=", 0) == 0)
                OnlyTitle = argument.substr(7);
            else if (argument.rfind("--markdown=", 0) == 0)
                MarkdownFile = argument.substr(11);
            else if (argument == "--strict")
                Strict = true;
        }
    }

    bool IsWanted(const std::string& title) const { return title.find(OnlyTitle) != std::string::npos; }

    // One frame a step: until the widget has been painted after it, and all that waited by then is done.
    void Frames(const std::string& title, QWidget& painted, const std::function<void(int)>& step)
    {
        constexpr int    Warm = 10, Count = 100;
        constexpr qint64 Forever = 5000;    // ms
        if (!IsWanted(title))
            return;
        PaintCounter        paints(painted);
        std::vector<double> times;
        for (int i = 0; i < Warm + Count; ++i) {
            QElapsedTimer time;
            time.start();
            const int before = paints.Count;
            step(i);
            do
                QApplication::processEvents();
            while (paints.Count == before && time.elapsed() < Forever);
            if (paints.Count == before)
                return Fail(title, "no frame comes");
            if (i >= Warm)
                times.push_back(static_cast<double>(time.nsecsElapsed()) * 1e-6);
        }
        std::sort(times.begin(), times.end());
        Add({title, times[Count / 2], times[Count * 95 / 100], times.back(), FrameTime});
    }

    void Add(const Row& row)
    {
        std::printf("%-60s median %8.2f ms   95 %% %8.2f ms   longest %8.2f ms   at most %.1f%s\n",
                    row.Title.c_str(), row.Median, row.Late, row.Longest, row.AtMost,
                    row.Late > row.AtMost ? "   OVER" : "");
        std::fflush(stdout);
        Over = Over || row.Late > row.AtMost;
        Rows.push_back(row);
    }

    void Fail(const std::string& title, const char* reason)
    {
        std::printf("%-60s WRONG: %s\n", title.c_str(), reason);
        Failed = true;
    }

    int Finish() const
    {
        std::ostringstream out;
        out << "\n### ViewerBench, " << bench::MachineAndDate() << "\n\n"
            << "The window of 1920 x 1080 under Xvfb, ms. The bound holds for 95 of 100 frames.\n\n"
            << "| Work | Median | 95 of 100 | Longest | At most |\n|---|---|---|---|---|\n";
        char line[256];
        for (const Row& row : Rows) {
            std::snprintf(line, sizeof line, "| %s | %.1f | %.1f | %.1f | %.1f |\n", row.Title.c_str(),
                          row.Median, row.Late, row.Longest, row.AtMost);
            out << line;
        }
        if (!MarkdownFile.empty())
            std::ofstream(MarkdownFile, std::ios::app) << out.str();
        return Failed || (Strict && Over) ? EXIT_FAILURE : EXIT_SUCCESS;
    }

private:
    std::string      OnlyTitle;
    std::string      MarkdownFile;
    bool             Strict = false;
    bool             Over = false;
    bool             Failed = false;
    std::vector<Row> Rows;
};

// The window over the whole screen, with the panels of a first start beside and below the canvas or none.
class Shown {
public:
    MainWindow Window;

    explicit Shown(bool docks)
    {
        for (const char* const name : {"Histogram", "Objects", "Measures", "Profile", "History", "Overview"})
            if (!docks)
                Window.Docks().Of(name).hide();
        Window.setGeometry(0, 0, 1920, 1080);
        Window.show();
        Settle(200);
    }

    CanvasView& View() const { return Window.View(); }
    Canvas&     Open() const { return View().Open(); }

    void ShowFloats() const
    {
        std::vector<float> values(std::size_t{Side} * Side);
        std::minstd_rand   random(7);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = static_cast<float>(i % Side + i / Side + random() % 512);
        Open().image_show(VOSTEL_F32, values.data(), Side, Side);
        View().Fit();
        Settle(100);
    }

    // Cells in rows and columns over the image: rectangles, ellipses and polygons of eight corners.
    void AddCells(int count) const
    {
        std::minstd_rand random(8);
        const int        across = static_cast<int>(std::ceil(std::sqrt(count)));
        const double     step = static_cast<double>(Side) / across;
        const double     radius = 0.4 * step;
        const Step       one = Open().step("cells");
        for (int i = 0; i < count; ++i) {
            const double x = step * (i % across + 0.5), y = step * (i / across + 0.5);
            if (i % 3 == 0) {
                Open().add_rectangle(x - radius, y - radius, x + radius, y + radius);
            } else if (i % 3 == 1) {
                Open().add_ellipse(x - radius, y - radius, x + radius, y + radius);
            } else {
                std::vector<Point> corners;
                for (int corner = 0; corner < 8; ++corner) {
                    const double reach = radius * (0.7 + 0.3 * (random() % 100) / 100.0);
                    corners.push_back({x + reach * std::cos(corner * 0.785398163397448),
                                       y + reach * std::sin(corner * 0.785398163397448)});
                }
                Open().add_polygon(corners);
            }
        }
    }

    template <typename Part>
    Part& Of() const
    {
        return *Window.findChild<Part*>();
    }
};

void Pan(ViewerBench& bench, const Shown& shown, const std::string& title)
{
    CanvasView&   view = shown.View();
    const QPointF start(view.width() / 2.0, view.height() / 2.0);
    const View    before = shown.Open().view_get();
    Send(view, QEvent::MouseButtonPress, start, Qt::MiddleButton);
    QPointF at = start;
    bench.Frames(title, view, [&](int i) {
        at = start + QPointF(3 * (i % 40) + 3, 2 * (i % 40) + 2);
        Send(view, QEvent::MouseMove, at, Qt::MiddleButton);
    });
    const View after = shown.Open().view_get();
    if (bench.IsWanted(title) && after.left == before.left && after.top == before.top)
        bench.Fail(title, "the view stays where it was");
    Send(view, QEvent::MouseButtonRelease, at, Qt::MiddleButton);
}

void Zoom(ViewerBench& bench, const Shown& shown, const std::string& title)
{
    CanvasView& view = shown.View();
    bench.Frames(title, view, [&](int i) { Turn(view, i % 8 < 4 ? 1 : -1); });
}

// Of the object in the middle of the canvas.
void Drag(ViewerBench& bench, const Shown& shown, const std::string& title)
{
    if (!bench.IsWanted(title))
        return;
    CanvasView&   view = shown.View();
    const QPointF middle(view.width() / 2.0, view.height() / 2.0);
    QPointF       start = middle;
    for (int i = 0; i < 400 && !shown.Open().object_at(view.ClientAt(start)); ++i)
        start = middle + QPointF(i % 20, i / 20);
    const std::optional<Object> object = shown.Open().object_at(view.ClientAt(start));
    if (!object)
        return bench.Fail(title, "no object is there");
    const std::vector<Point> before = object->points();
    Send(view, QEvent::MouseButtonPress, start, Qt::LeftButton);
    QPointF at = start;
    bench.Frames(title, view, [&](int i) {
        at = start + QPointF(3 * (i % 40) + 6, 2 * (i % 40) + 4);
        Send(view, QEvent::MouseMove, at, Qt::LeftButton);
    });
    const std::vector<Point> after = object->points();
    if (std::equal(after.begin(), after.end(), before.begin(),
                   [](Point a, Point b) { return a.x == b.x && a.y == b.y; }))
        bench.Fail(title, "the object stays where it was");
    Send(view, QEvent::MouseButtonRelease, at, Qt::LeftButton);
    shown.Open().undo();
    Settle(100);
}

void MeasureMany(ViewerBench& bench, bool docks)
{
    constexpr int     Many = 100000;
    const std::string tail = docks ? ", docks open" : "";
    const Shown       shown(docks);
    shown.ShowFloats();
    shown.AddCells(Many);
    Settle(2000);    // until all rows of the tables are measured or at least most
    Pan(bench, shown, "pan, 100,000 objects, all in view" + tail);
    Drag(bench, shown, "drag one of 100,000 objects, all in view" + tail);
    Zoom(bench, shown, "zoom, 100,000 objects, all in view" + tail);
    shown.View().ShowActual();
    Settle(100);
    Pan(bench, shown, "pan, 100,000 objects, image at its size" + tail);
    Drag(bench, shown, "drag one of 100,000 objects, image at its size" + tail);
    Zoom(bench, shown, "zoom, 100,000 objects, image at its size" + tail);
    shown.Window.Shown().Close();
}

void MeasureDocks(ViewerBench& bench)
{
    const Shown shown(true);
    shown.ShowFloats();
    shown.AddCells(1000);
    Settle(500);
    Drag(bench, shown, "drag one of 1,000 objects, floats of 4096 x 4096, docks open");
    auto&     plot = shown.Of<HistogramPlot>();
    const int middle = plot.height() / 2;
    const int right = plot.PlaceOf(plot.HighValue());
    Send(plot, QEvent::MouseButtonPress, QPointF(right, middle), Qt::LeftButton);
    const auto handle = [&](int i) {
        Send(plot, QEvent::MouseMove, QPointF(right - i % 20 - 1, middle), Qt::LeftButton);
    };
    const double before = plot.HighValue();
    bench.Frames("contrast handle dragged, floats of 4096 x 4096: the canvas", shown.View(), handle);
    bench.Frames("contrast handle dragged, floats of 4096 x 4096: the histogram", plot, handle);
    if (bench.IsWanted("contrast handle") && plot.HighValue() == before)
        bench.Fail("contrast handle", "the window stays as it was");
    Send(plot, QEvent::MouseButtonRelease, QPointF(right - 5, middle), Qt::LeftButton);
    shown.Window.Shown().Close();
}

// From the command to the first sight of the picture, and the longest time that the window hears nothing.
void MeasureOpening(ViewerBench& bench)
{
    constexpr int       Width = 12000, Height = 9000;
    const QTemporaryDir folder;
    QImage              made(Width, Height, QImage::Format_Grayscale8);
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            made.scanLine(y)[x] = static_cast<uchar>((x / 16 + y / 16 + (x * y) % 23) & 255);
    for (const char* const ending : {"jpg", "png"}) {
        const QString     file = folder.filePath(QStringLiteral("large.") + QLatin1String(ending));
        const std::string title = std::string("12,000 x 9,000, ") + ending;
        if (!bench.IsWanted(title) || !made.save(file))
            continue;
        Shown         shown(true);
        QElapsedTimer since, sinceTurn;
        double        first = 0.0, longest = 0.0;
        since.start();
        sinceTurn.start();
        shown.Window.OpenFiles({file});
        while (shown.Window.Shown().IsReading() || !shown.Window.Shown().Model().HasImage()) {
            QApplication::processEvents(QEventLoop::AllEvents, 5);
            if (first == 0.0 && shown.View().ShowsPicture())
                first = static_cast<double>(since.nsecsElapsed()) * 1e-6;
            longest = std::max(longest, static_cast<double>(sinceTurn.nsecsElapsed()) * 1e-6);
            sinceTurn.restart();
        }
        QElapsedTimer after;
        for (after.start(); after.elapsed() < 1500;) {
            QApplication::processEvents(QEventLoop::AllEvents, 5);
            if (first == 0.0 && shown.View().ShowsPicture())
                first = static_cast<double>(since.nsecsElapsed()) * 1e-6;
            longest = std::max(longest, static_cast<double>(sinceTurn.nsecsElapsed()) * 1e-6);
            sinceTurn.restart();
        }
        bench.Add({"open " + title + ": something is seen", first, first, first, 1000.0});
        bench.Add({"open " + title + ": the window waits", longest, longest, longest, 100.0});
        shown.Window.Shown().Close();
    }
}

}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) {
        std::fprintf(stderr, "run it on a screen: xvfb-run --server-args=\"-screen 0 1920x1080x24\" %s\n",
                     argv[0]);
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Vostel"));
    QApplication::setApplicationName(QStringLiteral("vostel-viewer-bench"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    ViewerBench bench(argc, argv);
    MeasureMany(bench, false);
    MeasureMany(bench, true);
    MeasureDocks(bench);
    MeasureOpening(bench);
    return bench.Finish();
}
