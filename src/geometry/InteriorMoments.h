#pragma once

#include "geometry/Outline.h"

namespace vostel {

// Of the even-odd interior of an outline, in the outline's own px.
struct InteriorMoments {
    double     Area = 0.0;
    ImagePoint Centroid;    // where the area is 0: the middle of the bounds
};

// The interior of a self-crossing outline is what an odd number of windings encloses: a figure of eight has
// the area of both halves, and an outline drawn twice has none.
InteriorMoments MomentsOf(const Outline& outline);

}
