#include "platform/Polylines.h"

namespace vostel {

// Polyline of GDI is another thing: wide pens join its lines in their own way.
void DrawPolyline(HDC dc, std::span<const CPoint> points, bool closed)
{
    if (points.empty())
        return;
    MoveToEx(dc, points[0].x, points[0].y, nullptr);
    for (const CPoint& point : points.subspan(1))
        LineTo(dc, point.x, point.y);
    if (closed)
        LineTo(dc, points[0].x, points[0].y);
}

}
