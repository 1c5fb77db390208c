#include "geometry/ShapeMeasures.h"

#include "geometry/Calipers.h"
#include "geometry/InteriorMoments.h"
#include "geometry/Lengths.h"

#include <numbers>

namespace vostel {

ShapeMeasures MeasureShape(const Outline& outline)
{
    const InteriorMoments interior = MomentsOf(outline);
    const CaliperWidths   calipers = CalipersOf(outline);
    ShapeMeasures         measures;
    measures.Area = interior.Area;
    measures.Centroid = interior.Centroid;
    measures.Perimeter = PerimeterOf(outline);
    // One quotient after the other: the square could overflow or underflow.
    if (measures.Perimeter > 0.0)
        measures.Circularity =
            4.0 * std::numbers::pi * (interior.Area / measures.Perimeter) / measures.Perimeter;
    measures.Box = outline.BoundingBox();
    measures.FeretMost = calipers.Most;
    measures.FeretLeast = calipers.Least;
    return measures;
}

}
