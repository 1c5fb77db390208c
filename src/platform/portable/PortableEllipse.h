#pragma once

// The pixels of an ellipse as far as they are on a bitmap.

#include "platform/portable/PortableLines.h"

#include <vector>

namespace vostel::gdi {

class EllipseRows {
public:
    // The box is in device coordinates; right and bottom are left out.
    EllipseRows(const Bitmap& surface, std::int64_t left, std::int64_t top, std::int64_t right,
                std::int64_t bottom);

    void Fill(const Paint& paint) const;       // outline and inside
    void Outline(const Paint& paint) const;    // one pixel wide

private:
    // The outline's pixels left of the middle; those on the right mirror them.
    struct Run {
        std::int64_t Outer = INT64_MAX, Inner = INT64_MIN;    // both included
    };
    void MeasureFar();
    void Note(std::int64_t x, std::int64_t y);

    const Bitmap&    Surface;
    std::int64_t     Left, Top, Right, Bottom;    // right and bottom included
    std::int64_t     FirstRow = 0;                // row of runs[0]
    std::vector<Run> Runs;
};

// The outline as a closed ring of neighbouring pixels, from the middle of the right side over the top.
// Empty for an ellipse too large to be walked.
std::vector<DevicePoint> EllipseRing(std::int64_t left, std::int64_t top, std::int64_t right,
                                     std::int64_t bottom);

}
