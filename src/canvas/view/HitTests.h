#pragma once

// Hit tests that shapes share, on client points.

#include "vostel/platform.h"

#include <vector>

namespace vostel {

// One square of side 2 * radius around each point.
void CalcHandleRects(const std::vector<CPoint>& points, std::vector<CRect>& rects, int radius);

// Index of the first rectangle that holds the point, left and top edge included; -1 for none.
int HitRectList(const std::vector<CRect>& rects, CPoint p);

// Whether the closed polygon goes round the point, by a winding sum over quadrants. Edges and vertices
// count as inside; fewer than 3 points have no inside.
bool PointInPolygon(const std::vector<CPoint>& points, CPoint p);

// Whether the pixel lies within the distance of the open line through the points.
bool IsNearLine(const std::vector<CPoint>& points, CPoint p, double distance);

}
