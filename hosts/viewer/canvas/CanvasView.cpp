#include "canvas/CanvasView.h"

#include "canvas/ClassicTool.h"
#include "canvas/Decorations.h"
#include "canvas/SelectTool.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double ZoomStep = 1.2;    // of one step of the wheel
constexpr double LeastScale = 1e-3, MostScale = 256.0;

}

CanvasView::CanvasView(CanvasModel& model, QWidget* parent)
    : QWidget(parent), Shown(model), Selecting(std::make_unique<SelectTool>(*this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Canvas"));
    setAccessibleDescription(
        tr("The image and the objects on it; the list of objects tells them one by one"));
    connect(&model, &CanvasModel::frameStale, this, qOverload<>(&QWidget::update));
    connect(&model, &CanvasModel::imageChanged, this, qOverload<>(&QWidget::update));
    FollowChanges();
}

CanvasView::~CanvasView() = default;

void CanvasView::Arm(std::unique_ptr<Tool> tool)
{
    Current().Cancel();
    Armed = std::move(tool);
    unsetCursor();
    update();
    Q_EMIT toolChanged();
    TellHint();
}

void CanvasView::StepOut()
{
    if (Current().IsBusy())
        Current().Cancel();
    else if (Armed)
        return Disarm();
    else
        Open().select({});
    update();
    TellHint();
}

void CanvasView::SetClassic(bool classic)
{
    if (classic == Classic)
        return;
    Disarm();
    Classic = classic;
    if (classic)
        Selecting = std::make_unique<ClassicTool>(*this);
    else
        Selecting = std::make_unique<SelectTool>(*this);
    TellHint();
}

void CanvasView::SetGrid(bool shown)
{
    Grid = shown;
    update();
}

void CanvasView::SetScaleBar(bool shown)
{
    ScaleBar = shown;
    update();
}

void CanvasView::ShowCross(std::optional<QPointF> image)
{
    if (image == Cross)
        return;
    Cross = image;
    update();
}

void CanvasView::SetWaiting(bool waiting)
{
    Waiting = waiting;
    setEnabled(!waiting);
    setCursor(waiting ? Qt::BusyCursor : Qt::ArrowCursor);
    Preview = QImage();
    update();
}

void CanvasView::ShowPreview(const QImage& picture)
{
    Preview = picture;
    update();
}

void CanvasView::PaintWithoutImage(QPainter& painter)
{
    painter.fillRect(rect(), palette().window());
    if (!Preview.isNull()) {
        const QSize shown = Preview.size().scaled(size(), Qt::KeepAspectRatio);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(
            QRect(QPoint((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown), Preview);
        return;
    }
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     Waiting ? tr("Opening ...")
                             : tr("Drop a picture, raw data or a session here,\nor open one by Ctrl+O"));
}

void CanvasView::Dress(Object object) const
{
    Style style = object.style();
    style.line_color = Look.Line;
    style.selected_color = Look.Selected;
    style.handle_color = Look.Handle;
    style.line_width = Look.Width;
    style.text_height = Look.TextHeight;
    object.set_style(style);
}

// Without an image there is nothing to look at; the calls would fail.
void CanvasView::Fit()
{
    Fitted = true;
    if (Shown.HasImage())
        Open().view_fit();
}

void CanvasView::ShowActual()
{
    Fitted = false;
    if (Shown.HasImage())
        Open().view_actual();
}

void CanvasView::Zoom(double factor)
{
    ZoomAt(factor, ClientAt(QPointF(width() / 2.0, height() / 2.0)));
}

void CanvasView::ZoomAt(double factor, Point client)
{
    if (!Shown.HasImage())
        return;
    const double scale = Scale();
    Fitted = false;
    Open().view_zoom(std::clamp(scale * factor, LeastScale, MostScale) / scale, client);
}

void CanvasView::Pan(QPointF by)
{
    if (!Shown.HasImage() || by.isNull())
        return;
    const View now = Open().view_get();
    Fitted = false;
    Open().view_set(now.scale, now.left + by.x() * devicePixelRatioF(),
                    now.top + by.y() * devicePixelRatioF());
}

void CanvasView::ShowArea(QRectF image)
{
    if (!Shown.HasImage())
        return;
    constexpr double Margin = 1.1, LeastSide = 1.0;    // image px
    const QSizeF     area = size() * devicePixelRatioF();
    const double     scale = std::clamp(std::min(area.width() / (std::max(image.width(), LeastSide) * Margin),
                                                 area.height() / (std::max(image.height(), LeastSide) * Margin)),
                                        LeastScale, MostScale);
    Fitted = false;
    Open().view_set(scale, area.width() / 2 - image.center().x() * scale,
                    area.height() / 2 - image.center().y() * scale);
}

bool CanvasView::ShowSelection()
{
    QRectF all;
    for (const Object& object : Open().selection()) {
        const ObjectInfo info = object.info();
        if (info.kind != VOSTEL_PANEL && info.kind != VOSTEL_NEIGHBOURS)
            all |= QRectF(QPointF(info.left, info.top), QPointF(info.right, info.bottom))
                       .adjusted(-0.5, -0.5, 0.5, 0.5);
    }
    if (!all.isNull())
        ShowArea(all);
    return !all.isNull();
}

double CanvasView::Scale() const
{
    return Shown.HasImage() ? Open().view_get().scale : 1.0;
}

Point CanvasView::ClientAt(QPointF position) const
{
    return {position.x() * devicePixelRatioF(), position.y() * devicePixelRatioF()};
}

QPointF CanvasView::ImageAt(QPointF position) const
{
    const Point image = Open().view_to_image(ClientAt(position));
    return QPointF(image.x, image.y);
}

QPointF CanvasView::PositionOf(Point image) const
{
    const Point client = Open().view_to_client(image);
    return QPointF(client.x, client.y) / devicePixelRatioF();
}

Point CanvasView::SnappedTo(Point image) const
{
    switch (Snapping) {
    case Snap::PixelCentres:
        return {std::floor(image.x) + 0.5, std::floor(image.y) + 0.5};
    case Snap::PixelEdges:
        return {std::round(image.x), std::round(image.y)};
    default:
        return image;
    }
}

Pointer CanvasView::PointerOf(QPointF position, Qt::KeyboardModifiers modifiers, bool down) const
{
    const Point client = ClientAt(position);
    return {client, SnappedTo(Open().view_to_image(client)), down, modifiers};
}

bool CanvasView::MoveSelection(double x, double y)
{
    const std::vector<Object> selected = Open().selection();
    if (selected.empty())
        return false;
    return Shown.Try([&](Canvas& canvas) {
        const Step one = canvas.step("Move objects");
        for (const Object& object : selected) {
            const ObjectInfo info = object.info();
            if ((info.flags & VOSTEL_LOCKED) != 0 || info.kind == VOSTEL_PANEL ||
                info.kind == VOSTEL_NEIGHBOURS)
                continue;    // those two lie on the window
            std::vector<Point> points = object.points();
            for (Point& point : points)
                point = {point.x + x, point.y + y};
            canvas.object_set_points(object, points);
        }
    });
}

bool CanvasView::RemoveSelection()
{
    const std::vector<Object> selected = Open().selection();
    if (selected.empty())
        return false;
    return Shown.Try([&](Canvas& canvas) {
        const Step one = canvas.step("Remove objects");
        for (const Object& object : selected)
            if ((object.flags() & VOSTEL_LOCKED) == 0)
                canvas.object_remove(object);
    });
}

void CanvasView::SnapSelection()
{
    for (const Object& object : Open().selection()) {
        std::vector<Point> points = object.points();
        for (Point& point : points)
            point = SnappedTo(point);
        Shown.Try([&](Canvas& canvas) { canvas.object_set_points(object, points); });
    }
}

void CanvasView::TellHint()
{
    Q_EMIT hintChanged(Current().Hint());
}

bool CanvasView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::ScreenChangeInternal:    // another screen may have another device pixel ratio
        GiveArea();
        break;
    case QEvent::ShortcutOverride: {
        // Keys of the canvas itself come before shortcuts without modifiers.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
            key == Qt::Key_Backspace)
            event->accept();
        break;
    }
    default:
        break;
    }
    return QWidget::event(event);
}

void CanvasView::GiveArea()
{
    const double ratio = devicePixelRatioF();
    const QSize  area(std::max(1, qRound(width() * ratio)), std::max(1, qRound(height() * ratio)));
    if (area == Frame.size())
        return;
    Frame = QImage(area, QImage::Format_RGB32);
    StandsIn = false;
    Frame.setDevicePixelRatio(ratio);
    Open().set_pixel_ratio(ratio);
    Open().resize(area.width(), area.height());
    if (Fitted)
        Fit();
    update();
}

void CanvasView::FollowChanges()
{
    connect(&Shown, &CanvasModel::viewChanged, this, [this] {
        constexpr qint64 MostCost = 12;     // ms, of the 16 between two frames of a screen
        constexpr int    RestTime = 100;    // ms
        if (FrameCost < MostCost)
            return;
        StandsIn = true;
        Rest.start(RestTime, this);
    });
    const auto end = [this] { StandsIn = false; };
    connect(&Shown, &CanvasModel::selectionChanged, this, end);
    connect(&Shown, &CanvasModel::imageChanged, this, end);
    connect(&Shown, &CanvasModel::contrastChanged, this, end);
    for (const auto change : {&CanvasModel::objectAdded, &CanvasModel::objectChanging,
                              &CanvasModel::objectChanged, &CanvasModel::objectRemoved})
        connect(&Shown, change, this, end);
}

void CanvasView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != Rest.timerId())
        return QWidget::timerEvent(event);
    Rest.stop();
    StandsIn = false;
    update();
}

void CanvasView::Render()
{
    QElapsedTimer time;
    time.start();
    Open().frame_render_to(Frame.bits(), Frame.width(), Frame.height(), Frame.bytesPerLine());
    FrameCost = time.elapsed();
    FrameView = Open().view_get();
}

void CanvasView::PaintStandIn(QPainter& painter) const
{
    const View   now = Open().view_get();
    const double zoom = now.scale / FrameView.scale, ratio = devicePixelRatioF();
    painter.fillRect(rect(), palette().window());
    painter.drawImage(QRectF((now.left - FrameView.left * zoom) / ratio,
                             (now.top - FrameView.top * zoom) / ratio, Frame.width() * zoom / ratio,
                             Frame.height() * zoom / ratio),
                      Frame);
}

void CanvasView::resizeEvent(QResizeEvent*)
{
    GiveArea();
}

void CanvasView::paintEvent(QPaintEvent*)
{
    GiveArea();    // a window that moved to another screen
    QPainter painter(this);
    PictureSeen = Shown.HasImage() || !Preview.isNull();
    if (!Shown.HasImage() && Open().object_list().empty())
        return PaintWithoutImage(painter);
    if (StandsIn) {
        PaintStandIn(painter);
    } else {
        Render();
        painter.drawImage(QPointF(0, 0), Frame);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    if (Grid)
        PaintGrid(painter, *this);
    if (ScaleBar)
        PaintScaleBar(painter, *this);
    if (Cross)
        PaintCross(painter, *this, *Cross);
    Current().Paint(painter);
}

void CanvasView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        PanFrom = event->position();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    Current().Press(PointerOf(event->position(), event->modifiers(), true));
    TellHint();
}

void CanvasView::mouseMoveEvent(QMouseEvent* event)
{
    if (PanFrom) {
        Pan(event->position() - *PanFrom);
        PanFrom = event->position();
        return;
    }
    const Pointer at = PointerOf(event->position(), event->modifiers(), event->buttons() & Qt::LeftButton);
    Current().Move(at);
    setCursor(Current().Cursor(at));
    Q_EMIT cursorMoved(ImageAt(event->position()));
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton && PanFrom) {
        PanFrom.reset();
        unsetCursor();
        return;
    }
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    Current().Release(PointerOf(event->position(), event->modifiers(), false));
    TellHint();
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    Current().DoubleClick(PointerOf(event->position(), event->modifiers(), true));
    TellHint();
}

void CanvasView::contextMenuEvent(QContextMenuEvent* event)
{
    if (Armed && Armed->IsBusy()) {
        Armed->Finish();
        return;
    }
    if (event->reason() == QContextMenuEvent::Mouse) {
        const std::optional<Object> under = Open().object_at(ClientAt(event->pos()));
        if (under && !under->selected())
            Open().select({*under});
    }
    Q_EMIT menuWanted(event->globalPos());
}

void CanvasView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!Shown.HasImage())
        return;
    const QPoint turned = event->angleDelta();
    if (event->modifiers() & Qt::ShiftModifier)
        return Pan(QPointF(turned.y() + turned.x(), 0) / 2.0);
    const double steps = (turned.y() != 0 ? turned.y() : turned.x()) / 120.0;
    ZoomAt(std::pow(ZoomStep, steps), ClientAt(event->position()));
    Q_EMIT cursorMoved(ImageAt(event->position()));
}

bool CanvasView::MoveByArrow(int key, Qt::KeyboardModifiers modifiers)
{
    const double far = modifiers & Qt::ShiftModifier ? 10.0 : modifiers & Qt::AltModifier ? 0.1 : 1.0;
    const double x = key == Qt::Key_Left ? -far : key == Qt::Key_Right ? far : 0.0;
    const double y = key == Qt::Key_Up ? -far : key == Qt::Key_Down ? far : 0.0;
    if (x == 0.0 && y == 0.0)
        return false;
    constexpr double PanStep = 32.0;    // layout px
    if (!MoveSelection(x, y))
        Pan(QPointF(-x, -y) * (PanStep / far));
    return true;
}

void CanvasView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!TakesEscape || !TakesEscape())
            StepOut();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Current().Finish();
        return TellHint();
    case Qt::Key_Backspace:
        if (Current().IsBusy())
            Current().StepBack();
        else
            RemoveSelection();
        return TellHint();
    default:
        if (!MoveByArrow(event->key(), event->modifiers()))
            QWidget::keyPressEvent(event);
    }
}

void CanvasView::leaveEvent(QEvent*)
{
    Q_EMIT cursorLeft();
}

void CanvasView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    Q_EMIT activated();
}

}
