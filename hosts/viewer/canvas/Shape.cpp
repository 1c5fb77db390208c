#include "canvas/Shape.h"

namespace vostel::viewer {

VostelKind KindOf(Shape shape)
{
    switch (shape) {
    case Shape::Rectangle:
    case Shape::Ellipse:
        return VOSTEL_RECTANGLE;
    case Shape::Polygon:
        return VOSTEL_POLYGON;
    case Shape::Spline:
        return VOSTEL_SPLINE;
    case Shape::FreeRegion:
        return VOSTEL_FREE_REGION;
    case Shape::Polyline:
        return VOSTEL_POLYLINE;
    case Shape::Arrow:
        return VOSTEL_ARROW;
    case Shape::Strokes:
        return VOSTEL_FREE_STROKES;
    case Shape::Text:
        return VOSTEL_TEXT;
    case Shape::Length:
        return VOSTEL_LENGTH;
    case Shape::Angle:
        return VOSTEL_ANGLE;
    case Shape::AngleOfLines:
        return VOSTEL_ANGLE_LINES;
    case Shape::Profile:
        return VOSTEL_PROFILE;
    case Shape::Points:
        return VOSTEL_POINTS;
    case Shape::Panel:
        return VOSTEL_PANEL;
    case Shape::Neighbours:
        return VOSTEL_NEIGHBOURS;
    }
    return VOSTEL_RECTANGLE;
}

}
