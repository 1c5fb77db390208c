#pragma once

// Which source pixels a target pixel of a stretch is made of, one axis at a time. Positions count from the
// start of each extent in its own direction, so that a negative extent walks towards lower coordinates and
// nothing else has to know of mirroring. Products are 64 bits wide: extents may be any 32-bit values.

#include <cstdint>
#include <vector>

namespace vostel::gdi {

// One axis of a StretchBlt in device pixels. Extents are not zero; the sign is the direction.
struct StretchAxis {
    std::int64_t TargetStart = 0;
    int          TargetExtent = 0;
    std::int64_t SourceStart = 0;
    int          SourceExtent = 0;
    int          TargetSize = 0;    // pixels of the target bitmap along this axis
    int          SourceSize = 0;    // pixels of the source bitmap along this axis

    bool KeepsSize() const;    // as many source as target pixels
    bool Mirrors() const { return (TargetExtent < 0) != (SourceExtent < 0); }
};

// The whole source pixels that fall on each target pixel: at least one, several when shrinking. A source
// pixel falls on the target pixel that holds its centre.
struct AxisRuns {
    int              Target = 0;    // first target pixel that is drawn
    int              Count = 0;     // target pixels that are drawn
    std::vector<int> Near;          // per target pixel the first source pixel in walking direction ...
    std::vector<int> Far;           // ... and the last, both inside the bitmap

    void Find(const StretchAxis& axis);
};

// Weighted source pixels of each target pixel. When shrinking, a weight is the part of the source pixel
// that the target pixel covers (the average over an area); when enlarging, the two nearest source pixels
// share by distance between centres. Weights of a target pixel add up to One. Source pixels beyond the
// source extent or the bitmap hand their weight to the nearest one inside.
struct AxisTaps {
    static constexpr int One = 1 << 14;

    int              Target = 0;
    int              Count = 0;
    int              Each = 0;            // taps per target pixel, even; unused ones at the end weigh nothing
    std::vector<int> First;               // per target pixel its first source pixel; the taps follow upward
    std::vector<std::int16_t> Weights;    // Each per target pixel

    void Find(const StretchAxis& axis);
};

}
