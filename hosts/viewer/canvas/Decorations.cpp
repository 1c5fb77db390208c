#include "canvas/Decorations.h"

#include "canvas/CanvasView.h"

#include <QLocale>
#include <QPainter>

#include <cmath>

namespace vostel::viewer {

double RoundLength(double most)
{
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    const double lead = most / power;
    return power * (lead >= 5.0 ? 5.0 : lead >= 2.0 ? 2.0 : 1.0);
}

void PaintGrid(QPainter& painter, const CanvasView& view)
{
    const std::optional<VostelPlane> image = view.Model().Image();
    if (!image)
        return;
    constexpr double LeastGap = 8.0;    // layout px between lines
    const double     scale = view.Scale() / view.devicePixelRatioF();
    const double     gap = std::max(1.0, RoundLength(5.0 * LeastGap / scale));
    const QPointF    corner = view.ImageAt(QPointF(0, 0));
    const QPointF    end = view.ImageAt(QPointF(view.width(), view.height()));
    const double     left = std::max(0.0, corner.x()), right = std::min<double>(image->width, end.x());
    const double     top = std::max(0.0, corner.y()), bottom = std::min<double>(image->height, end.y());
    painter.setPen(QPen(QColor(128, 200, 255, 110), 0.0));
    for (double x = std::ceil(left / gap) * gap; x <= right; x += gap)
        painter.drawLine(view.PositionOf({x, top}), view.PositionOf({x, bottom}));
    for (double y = std::ceil(top / gap) * gap; y <= bottom; y += gap)
        painter.drawLine(view.PositionOf({left, y}), view.PositionOf({right, y}));
}

void PaintScaleBar(QPainter& painter, const CanvasView& view)
{
    if (!view.Model().HasImage())
        return;
    constexpr double Most = 160.0, Margin = 16.0, Thick = 5.0;    // layout px
    const auto [units, name] = view.Open().scale();
    const double  perUnit = view.Scale() / view.devicePixelRatioF() / units;    // layout px
    const double  length = RoundLength(Most / perUnit);
    const double  wide = length * perUnit;
    const QString text =
        QStringLiteral("%1 %2").arg(QLocale::c().toString(length, 'g', 6), QString::fromStdString(name));
    const QRectF words = painter.fontMetrics().boundingRect(text);
    const double widest = std::max(wide, words.width());
    const QRectF box(view.width() - Margin - widest - 12.0, view.height() - Margin - words.height() - 20.0,
                     widest + 12.0, words.height() + 20.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 150));
    painter.drawRoundedRect(box, 4.0, 4.0);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(box.center().x() - wide / 2.0, box.bottom() - 6.0 - Thick, wide, Thick));
    painter.setPen(Qt::white);
    painter.drawText(QRectF(box.left(), box.top() + 3.0, box.width(), words.height()), Qt::AlignCenter, text);
}

void PaintCross(QPainter& painter, const CanvasView& view, QPointF image)
{
    const QPointF at = view.PositionOf({image.x(), image.y()});
    for (const QPen& pen : {QPen(QColor(0, 0, 0, 160), 3.0), QPen(QColor(120, 255, 160), 1.0)}) {
        painter.setPen(pen);
        painter.drawLine(at - QPointF(12, 0), at + QPointF(12, 0));
        painter.drawLine(at - QPointF(0, 12), at + QPointF(0, 12));
    }
}

}
