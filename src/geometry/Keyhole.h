#pragma once

#include "geometry/ImagePoint.h"

#include <span>
#include <vector>

namespace vostel {

// Rings are closed from the last point to the first. A polygon has one; one with holes stands for them by a
// keyhole: from a point of its ring a bridge leads to the hole, around it, and back by the same bridge. The
// two ways along it cancel out exactly, so that the even-odd interior is that of all rings together.
using Ring = std::vector<ImagePoint>;

// The ring of the polygon first, then its holes; each hole hangs on the nearest point of the ring, or, where
// there are very many, on the first one. Rings without points are left out.
Ring JoinRings(std::span<const Ring> rings);

// The ring and the holes of a keyhole polygon. One ring, the polygon as it is, where there are no bridges or
// where it does not clearly consist of a ring and holes within it.
std::vector<Ring> SplitRings(const Ring& polygon);

// Positive where the interior lies to the left with y upwards, which is clockwise on an image.
double SignedArea(std::span<const ImagePoint> ring);

// Whether two rings are the same to a tolerance in each coordinate, wherever they begin and whichever way
// they go.
bool AreSameRing(std::span<const ImagePoint> a, std::span<const ImagePoint> b, double tolerance);

}
