#pragma once

#include "output/FloatRange.h"
#include "vostel/DisplayMapping.h"

#include <cstddef>

namespace vostel {

// Float planes onto a canvas surface through the contrast window. The planes of data lie top row first, the
// surface and the label image bottom row first, all without padding: data row Height - 1 - y goes to surface
// row y. A pixel becomes g | g<<8 | g<<16, with g the low byte of entry trunc(value) & 0xFFFF of UsMap; not a
// number and what lies outside 32 bits take entry 0.

// What a redraw needs of a mapping; rebuilt whenever UsMap is. 64 KiB: keep one beside the mapping.
struct ContrastTable {
    static constexpr int EntryCount = 65536;

    unsigned char Gray[EntryCount + 64] =
        {};    // low bytes of UsMap; vector gathers read past the last entry
    // True where trunc(min(max(i - Low, 0), Span) * Factor + Bias), in float, equals every entry of Gray.
    bool  IsRamp = false;
    float Low = 0.0f;
    float Span = 0.0f;
    float Factor = 0.0f;
    float Bias = 0.0f;

    void Build(const ZEKMAPIMA& map);
};

// Redraws every pixel. Label, unless null, is filled with ones in the same pass: nothing is selected, so the
// whole image counts as one region.
void ContrastShowAll(const ContrastTable& table, const float* raw, int width, int height, unsigned* pixels,
                     int* label);

// Redraws the pixels whose label is at least 1 and leaves the others.
void ContrastShowLabelled(const ContrastTable& table, const float* raw, int width, int height,
                          unsigned* pixels, const int* label);

// raw = rule(source), then ContrastShowAll of raw, in one pass over the memory. Source and raw may be the
// same plane, or disjoint.
void ContrastShowRemapped(const ContrastTable& table, const RemapRule& rule, const float* source, float* raw,
                          int width, int height, unsigned* pixels, int* label);

// The same on rows, without the order of rows; with streaming, FenceStreamingStores (see PixelFill.h) has to
// follow.
struct ContrastVariant {
    void (*Row)(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                bool streaming);
    void (*RowLabelled)(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                        std::size_t count);
};
const ContrastVariant& ActiveContrastVariant();

extern const ContrastVariant ContrastPlain;
extern const ContrastVariant ContrastAvx2;

}
