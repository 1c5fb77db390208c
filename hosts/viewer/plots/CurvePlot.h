#pragma once

#include "plots/Axis.h"

#include <QWidget>

#include <optional>
#include <vector>

class QIODevice;

namespace vostel::viewer {

// A curve of evenly spaced values over a length, with axes and a cursor that reads it.
class CurvePlot : public QWidget {
    Q_OBJECT

public:
    explicit CurvePlot(QWidget* parent = nullptr);

    // Values that are not finite leave gaps. An empty list shows nothing.
    void SetCurve(std::vector<double> values, double spacing, const QString& unit);

    const std::vector<double>& Values() const { return Curve; }
    QPoint                     PlaceOf(std::size_t sample) const;    // px of the widget

    // As a drawing in dark ink on white, for reports.
    bool WriteSvg(QIODevice& file, QSize size, const QString& title) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void pointed(std::optional<std::size_t> sample);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    struct Frame {
        QRectF Area;
        Axis   Across;
        Axis   Up;
    };

    Frame FrameOf(QSizeF size, const QFontMetricsF& metrics) const;
    void  Paint(QPainter& painter, const Frame& frame, const QFontMetricsF& metrics,
                const QPalette& colors) const;
    // Round values up the axis: some even of a plot that is hardly high enough for two.
    static std::vector<double> UpTicks(const Frame& frame, double lineHeight);
    void                       PaintCurve(QPainter& painter, const Frame& frame) const;
    void                       Point(std::optional<std::size_t> sample);

    std::vector<double>        Curve;
    double                     Spacing = 1.0;    // in the unit
    QString                    Unit;
    double                     Least = 0.0, Most = 1.0;    // of the finite values
    std::optional<std::size_t> Pointed;
};

}
