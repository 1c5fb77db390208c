#include "canvas/Ruler.h"

#include "canvas/CanvasView.h"
#include "canvas/Decorations.h"

#include <QLocale>
#include <QPainter>

#include <cmath>

namespace vostel::viewer {

Ruler::Ruler(CanvasView& view, Qt::Orientation along, QWidget* parent)
    : QWidget(parent), View(view), Along(along)
{
    setAccessibleName(along == Qt::Horizontal ? tr("Horizontal ruler") : tr("Vertical ruler"));
    setSizePolicy(along == Qt::Horizontal ? QSizePolicy::Ignored : QSizePolicy::Fixed,
                  along == Qt::Horizontal ? QSizePolicy::Fixed : QSizePolicy::Ignored);
    connect(&view.Model(), &CanvasModel::viewChanged, this, qOverload<>(&QWidget::update));
    connect(&view.Model(), &CanvasModel::frameStale, this, qOverload<>(&QWidget::update));
    connect(&view, &CanvasView::cursorMoved, this, [this](QPointF image) { ShowPointer(image); });
    connect(&view, &CanvasView::cursorLeft, this, [this] { ShowPointer(std::nullopt); });
}

void Ruler::ShowPointer(std::optional<QPointF> image)
{
    At = image;
    update();
}

QSize Ruler::sizeHint() const
{
    const int thick = fontMetrics().height() + 8;
    return QSize(thick, thick);
}

void Ruler::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    if (!View.Model().HasImage())
        return;
    const bool   level = Along == Qt::Horizontal;
    const double length = level ? width() : height();
    const double thick = level ? height() : width();
    const auto [units, name] = View.Open().scale();
    const double perUnit = View.Scale() / View.devicePixelRatioF() / units;    // layout px
    const double labelled =
        RoundLength(fontMetrics().horizontalAdvance(QStringLiteral("00000.0")) * 2.4 / perUnit);
    const double step = labelled / 5.0;
    const auto   alongAt = [&](QPointF point) { return level ? point.x() : point.y(); };
    const auto   placeOf = [&](double image) {
        return alongAt(View.PositionOf({level ? image : 0.0, level ? 0.0 : image}));
    };
    // The view and this ruler begin at the same px, since the layout puts them edge to edge.
    const double first = alongAt(View.ImageAt(QPointF(0, 0))) * units;
    const double last = alongAt(View.ImageAt(QPointF(length, length))) * units;
    painter.setPen(palette().color(QPalette::WindowText));
    for (double tick = std::floor(first / step); tick * step <= last; ++tick) {
        const bool   isLabelled = std::fmod(std::fabs(tick), 5.0) < 0.5;
        const double place = placeOf(tick * step / units);
        const double size = isLabelled ? thick : thick / 4.0;
        painter.drawLine(level ? QLineF(place, thick - size, place, thick)
                               : QLineF(thick - size, place, thick, place));
        if (!isLabelled)
            continue;
        const QString text = QLocale::c().toString(tick == 0.0 ? 0.0 : tick * step, 'g', 6);
        painter.save();
        painter.translate(level ? QPointF(place + 3.0, fontMetrics().ascent() + 1.0)
                                : QPointF(fontMetrics().ascent() + 1.0, place - 3.0));
        if (!level)
            painter.rotate(-90.0);
        painter.drawText(QPointF(0, 0), text);
        painter.restore();
    }
    painter.drawLine(level ? QLineF(0, thick - 1, length, thick - 1)
                           : QLineF(thick - 1, 0, thick - 1, length));
    if (At) {
        const double place = placeOf(alongAt(*At));
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawLine(level ? QLineF(place, 0, place, thick) : QLineF(0, place, thick, place));
    }
}

}
