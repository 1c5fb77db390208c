#include "canvas/DrawTools.h"

#include "canvas/CanvasView.h"
#include "canvas/CountTool.h"
#include "canvas/DragTool.h"
#include "canvas/FreehandTool.h"
#include "canvas/PanelTool.h"
#include "canvas/PathTool.h"
#include "canvas/TextTool.h"

#include <QPainter>

#include <cmath>

namespace vostel::viewer {

std::unique_ptr<Tool> MakeDrawTool(CanvasView& view, Shape shape)
{
    switch (shape) {
    case Shape::Polygon:
    case Shape::Spline:
    case Shape::Polyline:
    case Shape::Angle:
    case Shape::AngleOfLines:
        return std::make_unique<PathTool>(view, shape);
    case Shape::FreeRegion:
    case Shape::Strokes:
        return std::make_unique<FreehandTool>(view, shape);
    case Shape::Text:
        return std::make_unique<TextTool>(view);
    case Shape::Points:
        return std::make_unique<CountTool>(view);
    case Shape::Panel:
    case Shape::Neighbours:
        return std::make_unique<PanelTool>(view, shape);
    default:
        return std::make_unique<DragTool>(view, shape);
    }
}

double Between(Point a, Point b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

Object AddDrawn(CanvasView& view, Canvas& canvas, Shape shape, const std::vector<Point>& points)
{
    Object added = canvas.object_add(KindOf(shape), points);
    if (shape == Shape::Ellipse)
        added.set_flags(VOSTEL_ELLIPSE);
    view.Dress(added);
    canvas.select({added});
    return added;
}

bool AddWhole(CanvasView& view, Shape shape, const std::vector<Point>& points)
{
    return view.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("");
        AddDrawn(view, canvas, shape, points);
    });
}

void PaintPath(QPainter& painter, const CanvasView& view, const std::vector<Point>& nodes, bool closed)
{
    QPolygonF line;
    for (const Point& node : nodes)
        line << view.PositionOf(node);
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen :
         {QPen(QColor(0, 0, 0, 140), 3.5), QPen(QColor::fromRgb(view.Drawn().Selected), 1.5)}) {
        painter.setPen(pen);
        if (closed)
            painter.drawPolygon(line);
        else
            painter.drawPolyline(line);
    }
}

}
