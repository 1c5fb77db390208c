#include "ViewerTour.h"

#include "CanvasArea.h"
#include "MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPixmap>
#include <QTextStream>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

namespace vostel::viewer {

namespace {

QList<QPointF> Ring(QPointF centre, double radius, int count)
{
    constexpr double Turn = 6.283185307179586;
    QList<QPointF>   points;
    for (int i = 0; i <= count; ++i)
        points << centre + radius * QPointF(std::cos(Turn * i / count), std::sin(Turn * i / count));
    return points;
}

void SendMouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButton  button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent            event(type, at, widget.mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

}

ViewerTour::ViewerTour(MainWindow& window, const QString& folder) : Window(window), Folder(folder)
{
    constexpr int Reaction = 150;    // ms; a dialog has then been laid out and painted
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

bool ViewerTour::Run()
{
    if (!Window.Area().Canvas().hasImage())
        return false;
    QApplication::processEvents();
    Write("opened");
    DrawShapes();
    Measure();
    Process();
    ShowPages();
    return !Failed;
}

QPointF ViewerTour::At(double x, double y) const
{
    const QSize size = Window.Area().Canvas().imageSize();
    return QPointF(x * size.width(), y * size.height());
}

void ViewerTour::Press(QPointF image, Qt::KeyboardModifiers modifiers)
{
    Drag({image}, modifiers);
}

void ViewerTour::Drag(const QList<QPointF>& image, Qt::KeyboardModifiers modifiers)
{
    QList<QPointF> path;
    for (const QPointF& point : image)
        path << Window.Area().Canvas().widgetPosition(point);
    DragOnCanvas(path, modifiers);
}

void ViewerTour::DragOnCanvas(const QList<QPointF>& path, Qt::KeyboardModifiers modifiers)
{
    VostelWidget& canvas = Window.Area().Canvas();
    SendMouse(canvas, QEvent::MouseButtonPress, path.front(), modifiers);
    for (qsizetype i = 1; i < path.size(); ++i)
        SendMouse(canvas, QEvent::MouseMove, path[i], modifiers);
    SendMouse(canvas, QEvent::MouseButtonRelease, path.back(), modifiers);
}

void ViewerTour::Zoom(int steps, QPointF image)
{
    VostelWidget& canvas = Window.Area().Canvas();
    const QPointF at = canvas.widgetPosition(image);
    for (int step = 0; step < std::abs(steps); ++step) {
        QWheelEvent event(at, canvas.mapToGlobal(at), QPoint(), QPoint(0, steps > 0 ? 120 : -120),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas, &event);
        QApplication::processEvents();
    }
}

void ViewerTour::Write(const char* name)
{
    Write(name, Window);
}

void ViewerTour::Write(const char* name, QWidget& widget)
{
    QApplication::processEvents();
    const QString path = QDir(Folder).filePath(
        QStringLiteral("%1-%2.png").arg(++Pictures, 2, 10, QLatin1Char('0')).arg(QLatin1String(name)));
    const bool written = widget.grab().save(path);
    QTextStream(stdout) << (written ? "  " : "  not written: ") << path << '\n';
    Failed = Failed || !written;
}

void ViewerTour::DrawShapes()
{
    Window.Carry(Command::FitImage);
    const double radius = Window.Area().Canvas().imageSize().height() * 0.09;
    Window.Carry(Command::DrawPolygon);
    for (const QPointF& corner : Ring(At(0.14, 0.2), radius, 6).mid(1))
        Press(corner, Qt::ShiftModifier);
    Window.Carry(Command::DrawSpline);
    for (const QPointF& point : Ring(At(0.38, 0.2), radius, 5).mid(1))
        Press(point, Qt::ShiftModifier);
    Window.Carry(Command::DrawRectangle);
    Drag({At(0.55, 0.1), At(0.6, 0.2), At(0.74, 0.33)}, Qt::ShiftModifier);
    Window.Carry(Command::DrawFreeRegion);
    Drag(Ring(At(0.14, 0.55), radius, 24), Qt::ShiftModifier);
    Window.Carry(Command::DrawFreeStroke);
    Drag({At(0.8, 0.15), At(0.86, 0.2), At(0.9, 0.12), At(0.95, 0.22)}, Qt::ShiftModifier);
    Write("shapes");
}

void ViewerTour::Measure()
{
    Window.Carry(Command::MeasureLength);
    Drag({At(0.3, 0.5), At(0.4, 0.48), At(0.5, 0.44)}, Qt::ShiftModifier);
    Window.Carry(Command::MeasureAngle3);
    Press(At(0.7, 0.62), Qt::ShiftModifier);
    Window.Carry(Command::LineProfile);
    Drag({At(0.08, 0.85), At(0.3, 0.85), At(0.6, 0.85)}, Qt::ShiftModifier);
    Write("measures-and-profile");
    Zoom(3, At(0.5, 0.5));
    Write("zoomed");
    Zoom(-3, At(0.5, 0.5));
    Window.Carry(Command::DeleteAll);
}

void ViewerTour::WaitForRoutine()
{
    constexpr qint64 Patience = 60000;    // ms
    QElapsedTimer    waited;
    waited.start();
    while (Window.State().RoutineRuns() && waited.elapsed() < Patience)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

void ViewerTour::Process()
{
    PictureOfDialog = "parameters-of-a-routine";
    Window.Carry(Command::Gauss);
    WaitForRoutine();
    Window.Carry(Command::ContrastSlider);
    // The dark thumb: the track begins 62 px into the slider, which stands 20 px from the corner.
    VostelWidget& canvas = Window.Area().Canvas();
    const double  ratio = canvas.devicePixelRatioF();
    const QPointF thumb(87.0 / ratio, canvas.height() - 36.0 / ratio);
    DragOnCanvas({thumb, thumb + QPointF(40, 0) / ratio, thumb + QPointF(90, 0) / ratio}, Qt::NoModifier);
    Write("smoothed-with-contrast");
    Window.Carry(Command::ContrastSlider);
}

void ViewerTour::ShowPages()
{
    const QString file = Window.Area().Current().File();
    Window.Carry(Command::TileCanvases);
    Window.Carry(Command::FitImage);
    for (const Command canvas : {Command::Canvas2, Command::Canvas3}) {
        Window.Carry(canvas);
        Window.OpenFiles({file});
    }
    Window.Carry(Command::FourierTransform);
    WaitForRoutine();
    Write("side-by-side");
    Window.Carry(Command::OneCanvas);
    Window.Carry(Command::Canvas1);
    Window.Carry(Command::HelpGestures);
    QApplication::processEvents();
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->inherits("vostel::viewer::GesturePage"))
            Write("gestures", *widget);
}

}
