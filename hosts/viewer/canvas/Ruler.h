#pragma once

#include <QPointF>
#include <QWidget>

#include <optional>

namespace vostel::viewer {

class CanvasView;

// A ruler along one edge of a canvas, in the unit of its measures, with a mark where the pointer is.
class Ruler : public QWidget {
    Q_OBJECT

public:
    Ruler(CanvasView& view, Qt::Orientation along, QWidget* parent = nullptr);

    void ShowPointer(std::optional<QPointF> image);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CanvasView&            View;
    Qt::Orientation        Along;
    std::optional<QPointF> At;    // image px
};

}
