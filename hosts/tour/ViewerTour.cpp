#include "ViewerTour.h"

#include "canvas/CanvasView.h"
#include "documents/Document.h"
#include "help/HelpWindow.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/Processing.h"
#include "window/Workspace.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QTextStream>

#include <cmath>

namespace vostel::viewer {

namespace {

QList<QPointF> Ring(QPointF centre, double radius, int count)
{
    constexpr double Turn = 6.283185307179586;
    QList<QPointF>   points;
    for (int i = 0; i < count; ++i)
        points << centre + radius * QPointF(std::cos(Turn * i / count), std::sin(Turn * i / count));
    return points;
}

void SendMouse(QWidget& widget, QEvent::Type type, QPointF at)
{
    const Qt::MouseButton  button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent            event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

}

ViewerTour::ViewerTour(MainWindow& window, const QString& folder) : Window(window), Folder(folder)
{
    constexpr int Reaction = 600;    // ms; a dialog has then been laid out and shows its preview
    QDir().mkpath(Folder);
    QObject::connect(&Dialogs, &QTimer::timeout, &window, [this] { ConfirmDialog(); });
    Dialogs.start(Reaction);
}

void ViewerTour::ConfirmDialog()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    if (PictureOfDialog)
        Write(PictureOfDialog, *dialog);
    PictureOfDialog = nullptr;
    dialog->accept();
}

bool ViewerTour::Run(const QString& file)
{
    Window.OpenFiles({file});
    WaitWhile([this] { return Window.Shown().IsReading(); });
    if (!Window.Shown().Model().HasImage())
        return false;
    Write("opened");
    DrawRegions();
    Measure();
    SetContrast();
    Process();
    ShowSideBySide();
    ShowGuide();
    return !Failed;
}

QPointF ViewerTour::At(double x, double y) const
{
    const std::optional<VostelPlane> image = Window.Shown().Model().Image();
    return QPointF(x * image->width, y * image->height);
}

void ViewerTour::Carry(const char* command)
{
    Window.Commands().Of(command).trigger();
    QApplication::processEvents();
}

void ViewerTour::Click(const QList<QPointF>& image)
{
    for (const QPointF& point : image)
        Drag({point});
}

void ViewerTour::Drag(const QList<QPointF>& image)
{
    CanvasView& view = Window.View();
    const auto  at = [&view](QPointF point) { return view.PositionOf({point.x(), point.y()}); };
    SendMouse(view, QEvent::MouseButtonPress, at(image.front()));
    for (const QPointF& point : image.mid(1))
        SendMouse(view, QEvent::MouseMove, at(point));
    SendMouse(view, QEvent::MouseButtonRelease, at(image.back()));
}

void ViewerTour::Press(int key)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(&Window.View(), &event);
    }
    QApplication::processEvents();
}

void ViewerTour::WaitWhile(const std::function<bool()>& busy)
{
    constexpr qint64 Patience = 60000;    // ms
    QElapsedTimer    waited;
    waited.start();
    while (busy() && waited.elapsed() < Patience)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    Failed = Failed || busy();
}

void ViewerTour::Write(const char* name)
{
    Write(name, Window);
}

void ViewerTour::Write(const char* name, QWidget& widget)
{
    // Panels follow the canvas some time after it has changed.
    constexpr qint64 Rest = 300;    // ms
    QElapsedTimer    rested;
    rested.start();
    while (rested.elapsed() < Rest)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    const QString path = QDir(Folder).filePath(
        QStringLiteral("%1-%2.png").arg(++Pictures, 2, 10, QLatin1Char('0')).arg(QLatin1String(name)));
    const bool written = widget.grab().save(path);
    QTextStream(stdout) << (written ? "  " : "  not written: ") << path << '\n';
    Failed = Failed || !written;
}

void ViewerTour::DrawRegions()
{
    const double radius = At(0, 0.1).y();
    Carry("draw.rectangle");
    Drag({At(0.51, 0.06), At(0.57, 0.15), At(0.63, 0.22)});
    Drag({At(0.67, 0.07), At(0.7, 0.15), At(0.78, 0.24)});    // the tool is still armed
    Carry("draw.ellipse");
    Drag({At(0.8, 0.05), At(0.9, 0.15), At(0.95, 0.24)});
    Carry("draw.polygon");
    Click(Ring(At(0.12, 0.39), radius, 6));
    Press(Qt::Key_Return);
    Carry("draw.spline");
    Click(Ring(At(0.12, 0.62), radius, 5));
    Press(Qt::Key_Return);
    Carry("draw.freeRegion");
    Drag(Ring(At(0.9, 0.6), radius * 1.1, 24));
    Write("regions");
}

void ViewerTour::Measure()
{
    Carry("measure.length");
    Drag({At(0.24, 0.42), At(0.5, 0.42), At(0.7, 0.42)});
    Carry("measure.angle");
    Click({At(0.35, 0.85), At(0.25, 0.62), At(0.5, 0.68)});
    Carry("measure.profile");
    Drag({At(0.06, 0.85), At(0.3, 0.85), At(0.6, 0.85)});
    Carry("draw.select");
    Write("measures");
}

void ViewerTour::SetContrast()
{
    auto* const percent = Window.findChild<QAbstractButton*>(QStringLiteral("percent1"));
    if (percent)
        percent->click();
    Failed = Failed || !percent;
    Write("contrast");
}

void ViewerTour::Process()
{
    PictureOfDialog = "values-of-a-routine";
    Carry("process.gaussian");
    WaitWhile([this] { return Window.Runs().IsRunning(); });
    Write("smoothed");
}

void ViewerTour::ShowSideBySide()
{
    Carry("window.link");
    Carry("window.tiles");
    Carry("view.fit");
    Write("side-by-side");
    Carry("window.tiles");
}

void ViewerTour::ShowGuide()
{
    Carry("help.guide");
    auto* const guide = Window.findChild<HelpWindow*>();
    if (guide)
        Write("guide", *guide);
    Failed = Failed || !guide;
}

}
