#pragma once

#include <vostel.h>

namespace vostel::viewer {

// What can be drawn on a canvas.
enum class Shape {
    Rectangle,
    Ellipse,
    Polygon,
    Spline,
    FreeRegion,
    Polyline,
    Arrow,
    Strokes,
    Text,
    Length,
    Angle,
    AngleOfLines,
    Profile,
    Points,
    Panel,
    Neighbours
};

// The kind of object that a shape becomes; an ellipse is a rectangle with a flag.
VostelKind KindOf(Shape shape);

}
