#pragma once

#include "geometry/ImagePoint.h"
#include "geometry/PlaneView.h"

#include <cstdint>
#include <span>

namespace vostel {

// Samples along a straight line, about one a pixel of its length, both ends included.
struct ProfileLine {
    ImagePoint   From;
    ImagePoint   To;
    double       Length = 0.0;
    std::int64_t Count = 1;        // floor(Length) + 1, at most 2^53
    double       Spacing = 0.0;    // Length / (Count - 1), 0 for a single sample

    ProfileLine(ImagePoint from, ImagePoint to);
};

// Bilinear between the four pixel centres around the point; beyond the outermost centres the nearest one
// counts. Not a number outside the image, and where a centre that counts is not a number.
double InterpolatedAt(const PlaneView& plane, int channel, ImagePoint point);

// The first samples of the line, as many as fit into the result: each is the mean over so many lines, one
// pixel apart and evenly on both sides. Width is at least 1.
void SampleProfile(const PlaneView& plane, int channel, const ProfileLine& line, int width,
                   std::span<double> samples);

}
