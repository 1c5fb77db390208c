#include "plots/HistogramPlot.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double Side = 8.0;      // layout px beside the bars, where a handle at the end is grasped
constexpr double Strip = 10.0;    // height of the color bar
constexpr double Grasp = 6.0;     // reach of a handle

}

HistogramPlot::HistogramPlot(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void HistogramPlot::SetCounts(std::vector<std::uint64_t> counts, double low, double high)
{
    Bins = std::move(counts);
    First = low;
    Last = high;
    FitAxis();
    MakeBars();
    update();
}

void HistogramPlot::SetLogarithmic(bool logarithmic)
{
    Logarithmic = logarithmic;
    MakeBars();
    update();
}

void HistogramPlot::SetWindow(double low, double high)
{
    Low = low;
    High = high;
    FitAxis();
    update();
}

void HistogramPlot::SetShades(const QImage& shades)
{
    Shades = shades;
    update();
}

void HistogramPlot::SetMarks(const QColor& below, const QColor& above)
{
    Below = below;
    Above = above;
    update();
}

QSize HistogramPlot::sizeHint() const
{
    return QSize(20 * fontMetrics().averageCharWidth(), 9 * fontMetrics().height());
}

QSize HistogramPlot::minimumSizeHint() const
{
    return QSize(12 * fontMetrics().averageCharWidth(), 5 * fontMetrics().height());
}

QRectF HistogramPlot::Area() const
{
    const double below = Strip + 4.0 + fontMetrics().height() + 4.0;
    return QRectF(Side, 2.0, std::max(10.0, width() - 2.0 * Side), std::max(10.0, height() - below - 2.0));
}

Axis HistogramPlot::Values() const
{
    const QRectF area = Area();
    return Axis(AxisLow, AxisHigh, area.left(), area.right());
}

void HistogramPlot::FitAxis()
{
    const double low = std::min(First, Low), high = std::max(Last, High);
    if (Dragged != Part::None || (low == AxisLow && high == AxisHigh))
        return;
    AxisLow = low;
    AxisHigh = high;
    MakeBars();
}

int HistogramPlot::PlaceOf(double value) const
{
    return static_cast<int>(std::lround(Values().At(value)));
}

// The highest of the bins under each column of device px.
void HistogramPlot::MakeBars()
{
    const QRectF  area = Area();
    const double  ratio = devicePixelRatioF();
    const QSize   size = (area.size() * ratio).toSize();
    const Axis    values(AxisLow, AxisHigh, 0.0, size.width());
    const double  width = Bins.empty() ? 1.0 : (Last - First) / static_cast<double>(Bins.size());
    std::uint64_t most = 0;
    for (const std::uint64_t count : Bins)
        most = std::max(most, count);
    Bars = QImage(size, QImage::Format_ARGB32_Premultiplied);
    Bars.fill(Qt::transparent);
    if (most == 0)
        return;
    QPainter     painter(&Bars);
    const QColor ink = palette().color(QPalette::Text);
    const double top = Logarithmic ? std::log1p(static_cast<double>(most)) : static_cast<double>(most);
    for (int x = 0; x < size.width(); ++x) {
        const double from = (values.ValueAt(x) - First) / width, to = (values.ValueAt(x + 1) - First) / width;
        if (to < 0.0 || from >= static_cast<double>(Bins.size()))
            continue;
        const std::size_t first = static_cast<std::size_t>(std::max(0.0, from));
        const std::size_t last =
            std::min(Bins.size(), std::max(first + 1, static_cast<std::size_t>(std::max(0.0, to))));
        const auto count =
            static_cast<double>(*std::max_element(Bins.begin() + static_cast<std::ptrdiff_t>(first),
                                                  Bins.begin() + static_cast<std::ptrdiff_t>(last)));
        const double part = (Logarithmic ? std::log1p(count) : count) / top;
        const int    tall = count > 0.0 ? std::max(1, static_cast<int>(part * size.height())) : 0;
        painter.fillRect(x, size.height() - tall, 1, tall, ink);
    }
    painter.end();
    Bars.setDevicePixelRatio(ratio);
}

void HistogramPlot::paintEvent(QPaintEvent*)
{
    QPainter     painter(this);
    const QRectF area = Area();
    const Axis   values = Values();
    painter.fillRect(area, palette().color(QPalette::Base));
    const double left = std::clamp(values.At(Low), area.left(), area.right());
    const double right = std::clamp(values.At(High), area.left(), area.right());
    QColor       tint = palette().color(QPalette::Highlight);
    tint.setAlpha(60);
    painter.fillRect(QRectF(left, area.top(), right - left, area.height()), tint);
    if (!Bars.isNull()) {
        painter.setOpacity(0.45);    // paler beside the window
        painter.drawImage(area.topLeft(), Bars);
        painter.setOpacity(1.0);
        painter.setClipRect(QRectF(left, area.top(), right - left, area.height()));
        painter.drawImage(area.topLeft(), Bars);
        painter.setClipping(false);
    }

    const QRectF strip(area.left(), area.bottom() + 3.0, area.width(), Strip);
    if (!Shades.isNull()) {
        const QColor dark = Below.alpha() != 0 ? Below : Shades.pixelColor(0, 0);
        const QColor bright = Above.alpha() != 0 ? Above : Shades.pixelColor(Shades.width() - 1, 0);
        painter.fillRect(QRectF(strip.left(), strip.top(), left - strip.left(), Strip), dark);
        painter.fillRect(QRectF(right, strip.top(), strip.right() - right, Strip), bright);
        painter.drawImage(QRectF(left, strip.top(), right - left, Strip), Shades);
    }
    PaintAxis(painter, area);

    painter.setRenderHint(QPainter::Antialiasing);
    const QColor edge = palette().color(QPalette::Highlight);
    for (const double x : {left, right}) {
        painter.setPen(QPen(edge, 2.0));
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.setPen(QPen(palette().color(QPalette::Base), 1.0));
        painter.setBrush(edge);
        painter.drawEllipse(QPointF(x, area.top() + 5.0), 5.0, 5.0);
    }
    if (hasFocus()) {
        painter.setPen(QPen(edge, 1.0, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void HistogramPlot::PaintAxis(QPainter& painter, const QRectF& area) const
{
    const QFontMetrics        metrics = fontMetrics();
    const Axis                values = Values();
    const std::vector<double> ticks =
        values.Ticks(1.4 * metrics.horizontalAdvance(QStringLiteral("-00000.0")));
    const double step = ticks.size() > 1 ? ticks[1] - ticks[0] : 0.0;
    const double y = area.bottom() + 3.0 + Strip;
    painter.setPen(palette().color(QPalette::WindowText));
    for (const double value : ticks) {
        const double  x = values.At(value);
        const QString text = TickText(value, step);
        const double  wide = metrics.horizontalAdvance(text);
        painter.drawLine(QPointF(x, y), QPointF(x, y + 4.0));
        painter.drawText(QPointF(std::clamp(x - wide / 2.0, 0.0, std::max(0.0, width() - wide)),
                                 y + 4.0 + metrics.ascent()),
                         text);
    }
}

HistogramPlot::Part HistogramPlot::PartAt(QPointF at) const
{
    const Axis   values = Values();
    const double low = std::abs(values.At(Low) - at.x()), high = std::abs(values.At(High) - at.x());
    if (std::min(low, high) <= Grasp) {
        if (low != high)
            return low < high ? Part::Low : Part::High;
        return at.x() < values.At(Low) ? Part::Low : Part::High;
    }
    return at.x() > values.At(Low) && at.x() < values.At(High) ? Part::Middle : Part::None;
}

// A press beside the window fetches the nearer edge.
void HistogramPlot::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    Dragged = PartAt(event->position());
    DragFrom = Values().ValueAt(event->position().x());
    LowAtStart = Low;
    HighAtStart = High;
    Q_EMIT dragBegun();
    if (Dragged == Part::None) {
        Dragged = DragFrom < Low ? Part::Low : Part::High;
        (Dragged == Part::Low ? LowAtStart : HighAtStart) = DragFrom;
        MoveWindow(Dragged, 0.0);
    }
}

void HistogramPlot::mouseMoveEvent(QMouseEvent* event)
{
    const Axis   values = Values();
    const double value = values.ValueAt(event->position().x());
    if (Dragged != Part::None) {
        MoveWindow(Dragged, value - DragFrom);
    } else {
        const Part part = PartAt(event->position());
        setCursor(part == Part::None     ? Qt::ArrowCursor
                  : part == Part::Middle ? Qt::OpenHandCursor
                                         : Qt::SizeHorCursor);
    }
    const double width = Bins.empty() ? 0.0 : (Last - First) / static_cast<double>(Bins.size());
    const double bin = width > 0.0 ? std::floor((value - First) / width) : -1.0;
    if (bin < 0.0 || bin >= static_cast<double>(Bins.size())) {
        Q_EMIT pointed(QString());
        return;
    }
    const double  from = First + bin * width;
    const QString count = QString::number(Bins[static_cast<std::size_t>(bin)]);
    Q_EMIT pointed(
        width == 1.0 ? tr("%1: %2 pixels").arg(QString::number(from, 'g', 10), count)
                     : tr("%1 to %2: %3 pixels")
                           .arg(QString::number(from, 'g', 5), QString::number(from + width, 'g', 5), count));
}

void HistogramPlot::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || Dragged == Part::None)
        return;
    Dragged = Part::None;
    FitAxis();
    update();
    Q_EMIT dragEnded();
}

void HistogramPlot::MoveWindow(Part part, double by)
{
    const double least = std::max(LeastWidth, (Last - First) * 1e-6);
    double       low = LowAtStart + (part == Part::High ? 0.0 : by);
    double       high = HighAtStart + (part == Part::Low ? 0.0 : by);
    if (part == Part::Middle) {
        const double back = std::max(0.0, std::min(First, LowAtStart) - low) -
                            std::max(0.0, high - std::max(Last, HighAtStart));
        low += back;
        high += back;
    } else if (part == Part::Low) {
        low = std::clamp(low, std::min(First, LowAtStart), high - least);
    } else {
        high = std::clamp(high, low + least, std::max(Last, HighAtStart));
    }
    if (low == Low && high == High)
        return;
    Q_EMIT windowDragged(low, high);
}

// Left and right move the window, with Shift its upper edge, with Control its lower one.
void HistogramPlot::keyPressEvent(QKeyEvent* event)
{
    const double way = event->key() == Qt::Key_Right ? 1.0 : event->key() == Qt::Key_Left ? -1.0 : 0.0;
    if (way == 0.0)
        return QWidget::keyPressEvent(event);
    LowAtStart = Low;
    HighAtStart = High;
    const Part part = event->modifiers().testFlag(Qt::ShiftModifier)     ? Part::High
                      : event->modifiers().testFlag(Qt::ControlModifier) ? Part::Low
                                                                         : Part::Middle;
    Q_EMIT     dragBegun();
    MoveWindow(part, way * std::max(LeastWidth, (Last - First) / 100.0));
    Q_EMIT dragEnded();
}

void HistogramPlot::leaveEvent(QEvent*)
{
    Q_EMIT pointed(QString());
}

void HistogramPlot::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        MakeBars();
}

void HistogramPlot::resizeEvent(QResizeEvent*)
{
    MakeBars();
}

}
