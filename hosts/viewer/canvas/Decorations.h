#pragma once

#include <QPointF>
#include <QString>

class QPainter;

namespace vostel::viewer {

class CanvasView;

// What lies over the frame of a canvas and is no object. In layout px of the view.
void PaintGrid(QPainter& painter, const CanvasView& view);
void PaintScaleBar(QPainter& painter, const CanvasView& view);
void PaintCross(QPainter& painter, const CanvasView& view, QPointF image);

// The largest of 1, 2 and 5 times a power of ten that is not above a length.
double RoundLength(double most);

}
