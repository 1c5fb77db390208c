// A canvas in a widget of Qt: vostel-example-qt PICTURE. Shift and a drag draw a rectangle, a press selects,
// R deletes; Control pans and zooms. VostelWidget does all this and more; what it takes is seen here.
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <vostel.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace {

class CanvasWidget : public QWidget {
public:
    explicit CanvasWidget(const char* picture)
    {
        setMouseTracking(true);    // read-outs follow the pointer
        setFocusPolicy(Qt::StrongFocus);
        resize(640, 480);
        TakeArea();
        Canvas.image_open(picture);
        Canvas.view_fit();
    }

protected:
    void resizeEvent(QResizeEvent*) override { TakeArea(); }

    void paintEvent(QPaintEvent*) override
    {
        const QSize area = DeviceSize();
        QImage      frame(area, QImage::Format_RGB32);
        Canvas.frame_render_to(frame.bits(), area.width(), area.height(), frame.bytesPerLine());
        frame.setDevicePixelRatio(devicePixelRatio());
        QPainter(this).drawImage(0, 0, frame);
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() != Qt::LeftButton)
            return;
        const std::uint32_t flags = Flags(*event);
        if ((flags & VOSTEL_SHIFT) != 0 && Canvas.selection().empty())
            Canvas.draw_next(VOSTEL_RECTANGLE);    // what the drag draws
        Canvas.event_press(At(*event), flags);
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton)
            Canvas.event_release(At(*event), Flags(*event));
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        const bool held = event->buttons().testFlag(Qt::LeftButton);
        Canvas.event_move(At(*event), Flags(*event) | (held ? VOSTEL_LEFT_BUTTON : 0));
    }
    void wheelEvent(QWheelEvent* event) override
    {
        WheelRest +=
            event->angleDelta().y();    // touch pads send parts of a step, the canvas takes whole ones
        const int steps = WheelRest / 120;
        WheelRest -= steps * 120;
        Canvas.event_wheel(At(*event), steps, Flags(*event));
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() < Qt::Key_A || event->key() > Qt::Key_Z || event->modifiers() != Qt::NoModifier)
            return QWidget::keyPressEvent(event);
        Canvas.event_key(static_cast<std::uint32_t>(event->key()));    // both count letters as capitals
    }

private:
    QSize DeviceSize() const { return (QSizeF(size()) * devicePixelRatio()).toSize(); }

    // The canvas counts device px, Qt logical ones.
    void TakeArea()
    {
        Canvas.set_pixel_ratio(devicePixelRatio());
        Canvas.resize(std::max(DeviceSize().width(), 1), std::max(DeviceSize().height(), 1));
    }
    vostel::Point At(const QSinglePointEvent& event) const
    {
        const QPointF at = event.position() * devicePixelRatio();
        return {at.x(), at.y()};
    }
    static std::uint32_t Flags(const QInputEvent& event)
    {
        return (event.modifiers().testFlag(Qt::ShiftModifier) ? VOSTEL_SHIFT : 0) |
               (event.modifiers().testFlag(Qt::ControlModifier) ? VOSTEL_CONTROL : 0);
    }

    int                  WheelRest = 0;    // eighths of a degree
    vostel::Canvas       Canvas{640, 480};
    vostel::Subscription Repaints =
        Canvas.listen(VOSTEL_FRAME_STALE, [this](const vostel::Event&) { update(); });
};

}

int main(int argc, char** argv)
try {
    QApplication application(argc, argv);
    CanvasWidget widget(argc > 1 ? argv[1] : "samples/coins.png");
    widget.show();
    return QApplication::exec();
} catch (const vostel::Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
