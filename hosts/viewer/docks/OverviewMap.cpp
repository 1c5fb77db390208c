#include "docks/OverviewMap.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

OverviewMap::OverviewMap(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void OverviewMap::SetCanvas(CanvasModel* canvas)
{
    Model = canvas;
    Grip.reset();
}

QSize OverviewMap::sizeHint() const
{
    return QSize(12 * fontMetrics().height(), 9 * fontMetrics().height());
}

QSize OverviewMap::minimumSizeHint() const
{
    return QSize(5 * fontMetrics().height(), 4 * fontMetrics().height());
}

// As large as fits; small images are enlarged, but not beyond what shows single pixels.
void OverviewMap::DrawPicture()
{
    constexpr double Most = 8.0;    // layout px per image px
    Picture = QImage();
    Size = QSize();
    update();
    VostelPlane plane = {};
    plane.size = sizeof plane;
    if (!Model || vostel_image_plane(Model->Open().number(), &plane) != VOSTEL_OK)
        return;
    Size = QSize(plane.width, plane.height);
    const double ratio = devicePixelRatioF();
    const double scale =
        std::min({Most * ratio, width() * ratio / plane.width, height() * ratio / plane.height});
    const auto side = [&](int px) { return std::max(1, static_cast<int>(std::lround(px * scale))); };
    QImage     picture(side(plane.width), side(plane.height), QImage::Format_RGB32);
    try {
        Model->Open().picture_render_to(picture.bits(), picture.width(), picture.height(), scale, 0,
                                        picture.bytesPerLine());
    } catch (const Error&) {
        return;    // too small a room
    }
    picture.setDevicePixelRatio(ratio);
    Picture = picture;
}

QRectF OverviewMap::Place() const
{
    const QSizeF size = Picture.deviceIndependentSize();
    return QRectF(QPointF((width() - size.width()) / 2.0, (height() - size.height()) / 2.0), size);
}

QPointF OverviewMap::PlaceOf(Point image) const
{
    const QRectF place = Place();
    return QPointF(place.left() + image.x / Size.width() * place.width(),
                   place.top() + image.y / Size.height() * place.height());
}

QPointF OverviewMap::ImageAt(QPointF at) const
{
    const QRectF place = Place();
    return QPointF((at.x() - place.left()) / place.width() * Size.width(),
                   (at.y() - place.top()) / place.height() * Size.height());
}

QRectF OverviewMap::Visible() const
{
    const View       view = Model->Open().view_get();
    const CanvasInfo area = Model->Open().info();
    return QRectF(-view.left / view.scale, -view.top / view.scale, area.width / view.scale,
                  area.height / view.scale);
}

QRectF OverviewMap::FramePlace() const
{
    const QRectF seen = Visible();
    return QRectF(PlaceOf({seen.left(), seen.top()}), PlaceOf({seen.right(), seen.bottom()}))
        .intersected(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0));
}

void OverviewMap::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (Picture.isNull() || !Model) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         Model ? tr("No image") : tr("No canvas"));
        return;
    }
    painter.drawImage(Place().topLeft(), Picture);
    const QRectF frame = FramePlace();
    QRegion      beside(rect());
    beside -= frame.toRect();
    painter.setClipRegion(beside);
    painter.fillRect(Place(), QColor(0, 0, 0, 110));
    painter.setClipping(false);
    painter.setPen(QPen(Qt::black, 4.0));
    painter.drawRect(frame);
    painter.setPen(QPen(QColor(255, 210, 30), 2.0));
    painter.drawRect(frame);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0, Qt::DotLine));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void OverviewMap::Centre(QPointF image)
{
    Model->Try([&](Canvas& canvas) {
        const CanvasInfo area = canvas.info();
        const double     scale = canvas.view_get().scale;
        canvas.view_set(scale, area.width / 2.0 - image.x() * scale, area.height / 2.0 - image.y() * scale);
    });
}

void OverviewMap::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || Picture.isNull())
        return;
    const QPointF at = ImageAt(event->position());
    if (FramePlace().contains(event->position())) {
        Grip = at - Visible().center();
        return;
    }
    Grip = QPointF();
    Centre(at);
}

void OverviewMap::mouseMoveEvent(QMouseEvent* event)
{
    if (Grip && !Picture.isNull())
        Centre(ImageAt(event->position()) - *Grip);
}

void OverviewMap::mouseReleaseEvent(QMouseEvent*)
{
    Grip.reset();
}

void OverviewMap::wheelEvent(QWheelEvent* event)
{
    constexpr double Notch = 120.0, Factor = 1.2;
    if (Picture.isNull())
        return;
    Model->Try([&](Canvas& canvas) {
        const CanvasInfo area = canvas.info();
        canvas.view_zoom(std::pow(Factor, event->angleDelta().y() / Notch),
                         {area.width / 2.0, area.height / 2.0});
    });
    event->accept();
}

void OverviewMap::keyPressEvent(QKeyEvent* event)
{
    constexpr double Part = 0.1;    // of what is visible
    const int        key = event->key();
    const double     x = key == Qt::Key_Left ? -Part : key == Qt::Key_Right ? Part : 0.0;
    const double     y = key == Qt::Key_Up ? -Part : key == Qt::Key_Down ? Part : 0.0;
    if (Picture.isNull() || (x == 0.0 && y == 0.0))
        return QWidget::keyPressEvent(event);
    const QRectF seen = Visible();
    Centre(seen.center() + QPointF(x * seen.width(), y * seen.height()));
}

}
