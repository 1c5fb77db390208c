#pragma once

#include "geometry/Outline.h"

namespace vostel {

// What can be said of a region without an image, of its exact outline and in image px. A region without an
// interior has the area 0, and the middle of its bounds for a centroid.
struct ShapeMeasures {
    double     Area = 0.0;    // of the even-odd interior
    double     Perimeter = 0.0;
    double     Circularity = 0.0;    // 4 pi area / perimeter^2, 0 where there is no perimeter
    ImagePoint Centroid;             // of the even-odd interior
    Bounds     Box;
    double     FeretMost = 0.0;
    double     FeretLeast = 0.0;
};

ShapeMeasures MeasureShape(const Outline& outline);

}
