#pragma once

#include "plots/Axis.h"

#include <QImage>
#include <QWidget>

#include <cstdint>
#include <vector>

namespace vostel::viewer {

// Bars of counts with the window of the contrast over them: both edges and the middle can be dragged, by the
// mouse or with the arrow keys.
class HistogramPlot : public QWidget {
    Q_OBJECT

public:
    explicit HistogramPlot(QWidget* parent = nullptr);

    // Counts of equal bins from low to high.
    void SetCounts(std::vector<std::uint64_t> counts, double low, double high);
    void SetLogarithmic(bool logarithmic);
    void SetWindow(double low, double high);
    void SetShades(const QImage& shades);    // of the window, from low to high
    void SetMarks(const QColor& below, const QColor& above);
    void SetLeastWidth(double values) { LeastWidth = values; }    // of the window

    double                            LowValue() const { return Low; }
    double                            HighValue() const { return High; }
    int                               PlaceOf(double value) const;    // px
    const std::vector<std::uint64_t>& Counts() const { return Bins; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void dragBegun();
    void windowDragged(double low, double high);
    void dragEnded();
    void pointed(const QString& text);    // what lies under the pointer; empty when it has left

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Part { None, Low, High, Middle };

    QRectF Area() const;
    Axis   Values() const;
    void   FitAxis();    // to bins and window, while nothing is dragged
    Part   PartAt(QPointF at) const;
    void   MakeBars();
    void   PaintAxis(QPainter& painter, const QRectF& area) const;
    void   MoveWindow(Part part, double by);

    std::vector<std::uint64_t> Bins;
    double                     First = 0.0, Last = 1.0;    // values of the bins
    double                     Low = 0.0, High = 1.0;      // of the window
    double                     AxisLow = 0.0, AxisHigh = 1.0;
    double                     LeastWidth = 0.0;
    bool                       Logarithmic = false;
    QImage                     Shades;
    QColor                     Below, Above;
    QImage                     Bars;    // drawn once, as long as counts and size stay
    Part                       Dragged = Part::None;
    double                     DragFrom = 0.0;    // value under the pointer
    double                     LowAtStart = 0.0, HighAtStart = 0.0;
};

}
