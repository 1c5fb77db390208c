#pragma once

#include "geometry/PlaneView.h"
#include "output/ContrastState.h"
#include "platform/ImageSamples.h"

#include <cstdint>

namespace vostel {

// Of channel 0.
struct SampleRange {
    double       Min = 0.0;    // of the finite values; both are 0 where there is none
    double       Max = 0.0;
    std::int64_t NotFinite = 0;
    bool         AnyFinite = false;
};

PlaneView   ViewOf(const ImageSamples& samples);
SampleRange RangeOf(const PlaneView& plane);

// What CopySamples finds on its way. Low and High are those of FloatMinMax.
struct CopiedRange {
    float  Low = 0.0f;
    float  High = 0.0f;
    double Min = 0.0;    // of the finite values, of deep types only
    double Max = 0.0;
    bool   AnyFinite = false;
};

// Copies samples of the same shape, from rows that need not be aligned. The two do not overlap.
CopiedRange CopySamples(const PlaneView& source, ImageSamples& target);

// The same for samples that are there already.
CopiedRange RangeOfSamples(const ImageSamples& samples);

// The window of an image that has just been shown: 0 to 255 for 8 bits, else the range of the finite values,
// and 0 to 1 where there is none.
ContrastState FirstContrast(SampleType type, const CopiedRange& range);

}
