#include "plots/CurvePlot.h"

#include <QIODevice>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

QString Escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

double TickStep(const std::vector<double>& ticks)
{
    return ticks.size() > 1 ? ticks[1] - ticks[0] : 0.0;
}

}

CurvePlot::CurvePlot(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
}

void CurvePlot::SetCurve(std::vector<double> values, double spacing, const QString& unit)
{
    Curve = std::move(values);
    Spacing = spacing;
    Unit = unit;
    Least = INFINITY;
    Most = -INFINITY;
    for (const double value : Curve)
        if (std::isfinite(value)) {
            Least = std::min(Least, value);
            Most = std::max(Most, value);
        }
    if (Least > Most)
        Least = Most = 0.0;
    if (Least == Most) {
        Least -= 0.5;
        Most += 0.5;
    }
    if (Pointed && *Pointed >= Curve.size())
        Pointed.reset();
    update();
}

QSize CurvePlot::sizeHint() const
{
    return QSize(26 * fontMetrics().averageCharWidth(), 10 * fontMetrics().height());
}

QSize CurvePlot::minimumSizeHint() const
{
    return QSize(16 * fontMetrics().averageCharWidth(), 5 * fontMetrics().height());
}

CurvePlot::Frame CurvePlot::FrameOf(QSizeF size, const QFontMetricsF& metrics) const
{
    const Axis rough(Least, Most, size.height(), 0.0);
    double     wide = 0.0;
    const auto ticks = rough.Ticks(metrics.height());
    for (const double value : ticks)
        wide = std::max(wide, metrics.horizontalAdvance(TickText(value, TickStep(ticks))));
    const double left = wide + 12.0 + metrics.height(), below = 2.0 * metrics.height() + 8.0,
                 above = metrics.height() / 2.0 + 2.0;
    const QRectF area(left, above, std::max(10.0, size.width() - left - 12.0),
                      std::max(10.0, size.height() - above - below));
    const double length = Spacing * static_cast<double>(std::max<std::size_t>(Curve.size(), 2) - 1);
    const double margin = 0.03 * (Most - Least);
    return {area, Axis(0.0, length, area.left(), area.right()),
            Axis(Least - margin, Most + margin, area.bottom(), area.top())};
}

std::vector<double> CurvePlot::UpTicks(const Frame& frame, double lineHeight)
{
    std::vector<double> ticks = frame.Up.Ticks(2.5 * lineHeight);
    return ticks.size() > 1 ? ticks : frame.Up.Ticks(lineHeight);
}

QPoint CurvePlot::PlaceOf(std::size_t sample) const
{
    const Frame frame = FrameOf(size(), QFontMetricsF(font()));
    return QPointF(frame.Across.At(Spacing * static_cast<double>(sample)), frame.Up.At(Curve[sample]))
        .toPoint();
}

void CurvePlot::PaintCurve(QPainter& painter, const Frame& frame) const
{
    QPainterPath path;
    bool         begun = false;
    for (std::size_t i = 0; i < Curve.size(); ++i) {
        if (!std::isfinite(Curve[i])) {
            begun = false;
            continue;
        }
        const QPointF at(frame.Across.At(Spacing * static_cast<double>(i)), frame.Up.At(Curve[i]));
        if (begun)
            path.lineTo(at);
        else
            path.moveTo(at);
        begun = true;
    }
    painter.drawPath(path);
}

void CurvePlot::Paint(QPainter& painter, const Frame& frame, const QFontMetricsF& metrics,
                      const QPalette& colors) const
{
    const QRectF& area = frame.Area;
    painter.fillRect(area, colors.color(QPalette::Base));
    QColor grid = colors.color(QPalette::Text);
    grid.setAlpha(40);
    const QColor ink = colors.color(QPalette::WindowText);
    const auto   across = frame.Across.Ticks(1.6 * metrics.horizontalAdvance(QStringLiteral("0000.00")));
    for (const double value : across) {
        const double  x = frame.Across.At(value);
        const QString text = TickText(value, TickStep(across));
        painter.setPen(QPen(grid, 1.0));
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.setPen(ink);
        painter.drawText(
            QPointF(x - metrics.horizontalAdvance(text) / 2.0, area.bottom() + 3.0 + metrics.ascent()), text);
    }
    const auto up = UpTicks(frame, metrics.height());
    for (const double value : up) {
        const double  y = frame.Up.At(value);
        const QString text = TickText(value, TickStep(up));
        painter.setPen(QPen(grid, 1.0));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(ink);
        painter.drawText(QPointF(area.left() - 5.0 - metrics.horizontalAdvance(text),
                                 y + (metrics.ascent() - metrics.descent()) / 2.0),
                         text);
    }
    const QString title = tr("Length (%1)").arg(Unit);
    painter.drawText(QPointF(area.center().x() - metrics.horizontalAdvance(title) / 2.0,
                             area.bottom() + 5.0 + metrics.height() + metrics.ascent()),
                     title);
    const QString upTitle = tr("Value");
    painter.save();
    painter.translate(metrics.ascent(), area.center().y());
    painter.rotate(-90.0);
    painter.drawText(QPointF(-metrics.horizontalAdvance(upTitle) / 2.0, 0.0), upTitle);
    painter.restore();
}

void CurvePlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (Curve.empty())
        return;
    const QFontMetricsF metrics(font());
    const Frame         frame = FrameOf(size(), metrics);
    Paint(painter, frame, metrics, palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.6));
    PaintCurve(painter, frame);
    if (Pointed) {
        const QPointF at(frame.Across.At(Spacing * static_cast<double>(*Pointed)),
                         frame.Up.At(std::isfinite(Curve[*Pointed]) ? Curve[*Pointed] : Least));
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1.0, Qt::DashLine));
        painter.drawLine(QPointF(at.x(), frame.Area.top()), QPointF(at.x(), frame.Area.bottom()));
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::WindowText));
        painter.drawEllipse(at, 3.5, 3.5);
    }
}

void CurvePlot::Point(std::optional<std::size_t> sample)
{
    if (sample == Pointed)
        return;
    Pointed = sample;
    update();
    Q_EMIT pointed(sample);
}

void CurvePlot::mouseMoveEvent(QMouseEvent* event)
{
    if (Curve.empty())
        return;
    const Frame  frame = FrameOf(size(), QFontMetricsF(font()));
    const double sample =
        Spacing > 0.0 ? std::round(frame.Across.ValueAt(event->position().x()) / Spacing) : 0.0;
    Point(static_cast<std::size_t>(std::clamp(sample, 0.0, static_cast<double>(Curve.size() - 1))));
}

void CurvePlot::keyPressEvent(QKeyEvent* event)
{
    const std::size_t at = Pointed.value_or(0);
    if (event->key() == Qt::Key_Right && at + 1 < Curve.size())
        Point(at + 1);
    else if (event->key() == Qt::Key_Left && at > 0)
        Point(at - 1);
    else
        QWidget::keyPressEvent(event);
}

void CurvePlot::leaveEvent(QEvent*)
{
    Point(std::nullopt);
}

bool CurvePlot::WriteSvg(QIODevice& file, QSize size, const QString& title) const
{
    const QFontMetricsF metrics(font());
    const double        head = 1.5 * metrics.height();
    const Frame         frame = FrameOf(QSizeF(size.width(), size.height() - head), metrics);
    const QRectF&       area = frame.Area;
    QString             text;
    QTextStream         svg(&text);
    svg.setRealNumberPrecision(6);
    const auto line = [&](double x1, double y1, double x2, double y2) {
        svg << "<line x1=\"" << x1 << "\" y1=\"" << y1 << "\" x2=\"" << x2 << "\" y2=\"" << y2
            << "\" stroke=\"#ddd\"/>\n";
    };
    const auto label = [&](double x, double y, const char* anchor, const QString& words) {
        svg << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\">" << Escaped(words)
            << "</text>\n";
    };
    svg << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""
        << size.width() << "\" height=\"" << size.height() << "\" viewBox=\"0 0 " << size.width() << ' '
        << size.height() << "\" font-family=\"sans-serif\" font-size=\"" << metrics.height() * 0.8
        << "\">\n<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
    label(size.width() / 2.0, metrics.ascent() + 2.0, "middle", title);
    svg << "<g transform=\"translate(0 " << head << ")\">\n";
    const auto across = frame.Across.Ticks(60.0);
    for (const double value : across) {
        line(frame.Across.At(value), area.top(), frame.Across.At(value), area.bottom());
        label(frame.Across.At(value), area.bottom() + metrics.height(), "middle",
              TickText(value, TickStep(across)));
    }
    const auto up = UpTicks(frame, metrics.height());
    for (const double value : up) {
        line(area.left(), frame.Up.At(value), area.right(), frame.Up.At(value));
        label(area.left() - 5.0, frame.Up.At(value) + metrics.ascent() / 3.0, "end",
              TickText(value, TickStep(up)));
    }
    label(area.center().x(), area.bottom() + 2.0 * metrics.height(), "middle", tr("Length (%1)").arg(Unit));
    svg << "<g transform=\"translate(" << metrics.ascent() << ' ' << area.center().y()
        << ") rotate(-90)\">\n";
    label(0.0, 0.0, "middle", tr("Value"));
    svg << "</g>\n";
    svg << "<path fill=\"none\" stroke=\"#1f5fbf\" stroke-width=\"1.5\" d=\"";
    bool begun = false;
    for (std::size_t i = 0; i < Curve.size(); ++i) {
        const bool is = std::isfinite(Curve[i]);
        if (is)
            svg << (begun ? 'L' : 'M') << frame.Across.At(Spacing * static_cast<double>(i)) << ' '
                << frame.Up.At(Curve[i]);
        begun = is;
    }
    svg << "\"/>\n</g>\n</svg>\n";
    svg.flush();
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size();
}

}
