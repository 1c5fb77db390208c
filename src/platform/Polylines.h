#pragma once

// Lines in a row, one source per platform.

#include "vostel/platform.h"

#include <span>

namespace vostel {

// Draws from point to point with the pen of the context, and back to the first one if closed, as MoveToEx and
// a LineTo for each line do.
void DrawPolyline(HDC dc, std::span<const CPoint> points, bool closed);

}
