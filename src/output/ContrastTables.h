#pragma once

#include "output/ContrastCurve.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vostel {

// The pixel of each value of a whole-numbered type, by the formula, in memory that is used again.
template <typename Sample>
void FillTable(const ContrastCurve& curve, std::vector<unsigned>& table);

// Pixels of values by such a table; those of signed values start with the lowest one.
template <typename Sample>
void ShowByTable(const std::vector<unsigned>& table, const Sample* values, unsigned* pixels,
                 std::size_t count);

extern template void FillTable<std::uint8_t>(const ContrastCurve&, std::vector<unsigned>&);
extern template void FillTable<std::uint16_t>(const ContrastCurve&, std::vector<unsigned>&);
extern template void FillTable<std::int16_t>(const ContrastCurve&, std::vector<unsigned>&);
extern template void ShowByTable(const std::vector<unsigned>&, const std::uint8_t*, unsigned*, std::size_t);
extern template void ShowByTable(const std::vector<unsigned>&, const std::uint16_t*, unsigned*, std::size_t);
extern template void ShowByTable(const std::vector<unsigned>&, const std::int16_t*, unsigned*, std::size_t);

// Colors of 8 bits: each channel goes through the window and then through its own channel of the color map,
// so that equal channels show as a gray value would. The luma decides which pixels are marked.
struct ColorTables {
    ContrastState State;
    bool          IsIdentity = false;
    unsigned      Red[Levels];    // in their places of a pixel
    unsigned      Green[Levels];
    unsigned      Blue[Levels];

    explicit ColorTables(const ContrastState& state);
};

// Where red and blue lie among the bytes of a pixel; green is the second.
struct ColorOrder {
    int PixelBytes = 3;
    int Red = 0;
    int Blue = 2;
};

void ShowColors(const ColorTables& tables, ColorOrder order, const std::uint8_t* samples, unsigned* pixels,
                std::size_t count);

}
