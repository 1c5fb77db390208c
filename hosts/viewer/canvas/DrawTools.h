#pragma once

#include "canvas/Shape.h"
#include "canvas/Tool.h"

#include <memory>
#include <vector>

namespace vostel::viewer {

// The tool that draws a shape, one after another.
std::unique_ptr<Tool> MakeDrawTool(CanvasView& view, Shape shape);

// What the tools share.
double Between(Point a, Point b);
// Adds an object in the look of drawn ones, selected.
Object AddDrawn(CanvasView& view, Canvas& canvas, Shape shape, const std::vector<Point>& points);
// The same as one step; false, with the reason told, when it fails.
bool AddWhole(CanvasView& view, Shape shape, const std::vector<Point>& points);
// A line that is no object yet. Points in image px.
void PaintPath(QPainter& painter, const CanvasView& view, const std::vector<Point>& nodes, bool closed);

}
