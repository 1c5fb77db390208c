#include "VostelWidget.h"

#include "CanvasKeys.h"
#include "FramePainter.h"
#include "HostServices.h"
#include "QtText.h"
#include "common/CanvasFacts.h"
#include "dialogs/DialogScope.h"
#include "dialogs/ParameterDialogs.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

using namespace vostel::hosts;
using namespace vostel::widget;

namespace {

QPointer<VostelWidget>& Current()
{
    static QPointer<VostelWidget> widget;
    return widget;
}

void InstallOnce()
{
    static const bool installed = [] {
        InstallHostServices();
        InstallParameterDialogs();
        return true;
    }();
    static_cast<void>(installed);
}

unsigned int MouseFlags(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    unsigned int flags = 0;
    if (buttons & Qt::LeftButton)
        flags |= MK_LBUTTON;
    if (modifiers & Qt::ShiftModifier)
        flags |= MK_SHIFT;
    if (modifiers & Qt::ControlModifier)
        flags |= MK_CONTROL;
    return flags;
}

VostelWidget::KeyGroup GroupOf(int virtualKey)
{
    switch (virtualKey) {
    case 'R':
        return VostelWidget::DeleteKey;
    case 'C':
        return VostelWidget::DeleteAllKey;
    case 'A':
    case 'D':
        return VostelWidget::PenKeys;
    case 'E':
        return VostelWidget::EllipseKey;
    case VK_TAB:
    case 'X':
        return VostelWidget::SliderKeys;
    case 'I':
    case 'T':
        return VostelWidget::OverwriteKeys;
    default:
        return VostelWidget::NoKeys;
    }
}

}

VostelWidget::VostelWidget(int canvas, QWidget* parent) : QWidget(parent), Number(canvas)
{
    InstallOnce();
    RememberWindow(this);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    KnownZoom = zoom();
    KnownImage = imageSize();
}

VostelWidget::~VostelWidget()
{
    ForgetWindow(this);
    CRect nothing(0, 0, 0, 0);
    gCVSSetClient(Number, nothing, nullptr);    // the canvas outlives the widget; its frame need not
}

HWND VostelWidget::handle() const
{
    return WindowHandle(this);
}

VostelWidget* VostelWidget::current()
{
    return Current();
}

bool VostelWidget::open(const QString& path)
{
    GiveArea();
    DialogScope scope(this, imageSize(), path);
    CString     name = FromQt(path);
    if (!QFileInfo(path).isFile() || !AskRawLayoutBefore(scope))
        return false;
    if (hasImage() && !IsRawFile(name) && !IsPictureFile(name))
        return false;
    gCVSReadFile(Number, name, true);
    refresh();
    return hasImage();
}

void VostelWidget::refresh()
{
    // A wheel step without Control moves nothing and hands the view to every object.
    gCVSOnMouseWheel(Number, 0, 0, CPoint(0, 0));
    ShowChanges();
}

void VostelWidget::ShowChanges()
{
    FrameIsOld = true;
    update();
    ReportChanges();
}

void VostelWidget::setTickInterval(int milliseconds)
{
    if (milliseconds > 0)
        Tick.start(milliseconds, this);
    else
        Tick.stop();
}

double VostelWidget::zoom() const
{
    return ScaleOf(Number);
}

bool VostelWidget::hasImage() const
{
    return gCVSGetFileType(Number) != FileTypeNone;
}

QSize VostelWidget::imageSize() const
{
    return hasImage() ? QSize(gCVSGetCanvasWidth(Number), gCVSGetCanvasHeight(Number)) : QSize();
}

QPointF VostelWidget::imagePosition(QPointF position) const
{
    double x = 0.0, y = 0.0;
    gCVSGetOriPt(Number, CanvasPoint(position), x, y);
    return QPointF(x, y);
}

QPointF VostelWidget::widgetPosition(QPointF image) const
{
    CPoint point;
    gCVSGetDisplayPt(Number, image.x(), image.y(), point);
    return QPointF(point.x, point.y) / devicePixelRatioF();
}

float VostelWidget::valueAt(QPointF position) const
{
    return gCVSGetImaPixelValue(Number, CanvasPoint(position));
}

bool VostelWidget::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        // Tab means something to a canvas; Shift and Tab leave it.
        if (Keys.testFlag(SliderKeys) && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
            keyPressEvent(static_cast<QKeyEvent*>(event));
            return event->isAccepted();
        }
        break;
    case QEvent::Show:
    case QEvent::ScreenChangeInternal:    // another screen may have another device pixel ratio
        GiveArea();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void VostelWidget::GiveArea()
{
    // As many whole device pixels as a paint can reach.
    const double ratio = devicePixelRatioF();
    const QSize  area(qMax(1, qRound(width() * ratio)), qMax(1, qRound(height() * ratio)));
    if (area == Area)
        return;
    Area = area;
    CRect client(0, 0, area.width(), area.height());
    gCVSSetClient(Number, client, nullptr);    // the frame is taken from the canvas itself
    ShowChanges();
}

void VostelWidget::resizeEvent(QResizeEvent*)
{
    GiveArea();
}

void VostelWidget::paintEvent(QPaintEvent*)
{
    GiveArea();    // a window that moved to another screen
    ComposeFrame();
    QPainter painter(this);
    PaintFrame(painter, Number, devicePixelRatioF());
    painter.end();
    Q_EMIT painted();
}

void VostelWidget::ComposeFrame()
{
    const PaintScope painting;
    gCVSOnDraw(Number, nullptr);
    FrameIsOld = false;
}

// Objects take their boxes, a length where its caption goes, and the zoom what limits it from the last frame.
void VostelWidget::ComposeBeforeInput()
{
    if (FrameIsOld)
        ComposeFrame();
}

CPoint VostelWidget::CanvasPoint(QPointF position) const
{
    const double ratio = devicePixelRatioF();
    return CPoint(qFloor(position.x() * ratio), qFloor(position.y() * ratio));
}

void VostelWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    ComposeBeforeInput();
    // New objects learn of the view by a move, which a touch screen or a program may leave out.
    const CPoint point = CanvasPoint(event->position());
    gCVSOnMouseMove(Number, MouseFlags(event->modifiers(), Qt::NoButton), point);
    gCVSOnLButtonDown(Number, MouseFlags(event->modifiers(), event->buttons()), point);
    ShowChanges();
}

void VostelWidget::mouseMoveEvent(QMouseEvent* event)
{
    const unsigned int flags = MouseFlags(event->modifiers(), event->buttons());
    gCVSOnMouseMove(Number, flags, CanvasPoint(event->position()));
    ShowCursorFor(event->modifiers());
    ReportCursor(event->position());
    ShowChanges();
    if ((flags & MK_LBUTTON) && (flags & MK_CONTROL))
        Q_EMIT viewDragged();
}

void VostelWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    ComposeBeforeInput();
    gCVSOnLButtonUp(Number, MouseFlags(event->modifiers(), event->buttons()), CanvasPoint(event->position()));
    ShowChanges();
}

void VostelWidget::leaveEvent(QEvent*)
{
    if (CursorInside)
        Q_EMIT cursorLeft();
    CursorInside = false;
}

void VostelWidget::wheelEvent(QWheelEvent* event)
{
    constexpr int Step = 120;
    const int     turned = event->angleDelta().y();
    if ((turned > 0) != (WheelRest > 0))
        WheelRest = 0;    // a turn back counts from its own start
    WheelRest += turned;
    const unsigned int flags = MouseFlags(event->modifiers(), event->buttons());
    for (; std::abs(WheelRest) >= Step; WheelRest -= WheelRest > 0 ? Step : -Step) {
        ComposeBeforeInput();
        gCVSOnMouseWheel(Number, flags, static_cast<short>(WheelRest > 0 ? Step : -Step),
                         CanvasPoint(event->position()));
        ShowChanges();
        if (flags & MK_CONTROL)
            Q_EMIT viewDragged();
    }
    ReportCursor(event->position());
    event->accept();
}

void VostelWidget::keyPressEvent(QKeyEvent* event)
{
    ShowCursorFor(event->modifiers());
    const int key = VirtualKey(event->key());
    NoteKey(key, true);
    // With Control a letter is a menu's shortcut, and the canvas would take R and C for deletions.
    const bool shortcut = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (shortcut || !(Keys & GroupOf(key))) {
        QWidget::keyPressEvent(event);
        return;
    }
    gCVSOnKeyDown(Number, static_cast<unsigned int>(key), static_cast<unsigned int>(event->count()), 0);
    ShowChanges();
}

void VostelWidget::keyReleaseEvent(QKeyEvent* event)
{
    ShowCursorFor(event->modifiers());
    if (!event->isAutoRepeat())
        NoteKey(VirtualKey(event->key()), false);
    QWidget::keyReleaseEvent(event);
}

void VostelWidget::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != Tick.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    gCVSOnTimer(Number, 1);
}

void VostelWidget::focusInEvent(QFocusEvent* event)
{
    Current() = this;
    QWidget::focusInEvent(event);
    Q_EMIT activated();
}

void VostelWidget::focusOutEvent(QFocusEvent* event)
{
    ForgetKeys();    // their releases go elsewhere
    QWidget::focusOutEvent(event);
}

// What the next press would do.
void VostelWidget::ShowCursorFor(Qt::KeyboardModifiers modifiers)
{
    const Qt::CursorShape shape = modifiers & Qt::ControlModifier ? Qt::SizeAllCursor
                                  : modifiers & Qt::ShiftModifier ? Qt::CrossCursor
                                                                  : Qt::ArrowCursor;
    if (cursor().shape() != shape)
        setCursor(shape);
}

void VostelWidget::ReportCursor(QPointF position)
{
    const QPointF image = imagePosition(position);
    const bool    inside = rect().contains(position.toPoint()) && hasImage() && image.x() >= 0.0 &&
                        image.y() >= 0.0 && image.x() < gCVSGetCanvasWidth(Number) &&
                        image.y() < gCVSGetCanvasHeight(Number);
    if (inside)
        Q_EMIT cursorMoved(image, valueAt(position));
    else if (CursorInside)
        Q_EMIT cursorLeft();
    CursorInside = inside;
}

void VostelWidget::ReportChanges()
{
    const QSize image = imageSize();
    if (image != KnownImage) {
        KnownImage = image;
        Q_EMIT imageChanged(image);
    }
    const double scale = zoom();
    if (scale != KnownZoom) {
        KnownZoom = scale;
        Q_EMIT viewChanged(scale);
    }
}
