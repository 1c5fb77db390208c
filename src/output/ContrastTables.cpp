#include "output/ContrastTables.h"

#include <limits>

namespace vostel {

template <typename Sample>
void FillTable(const ContrastCurve& curve, std::vector<unsigned>& table)
{
    constexpr int first = std::numeric_limits<Sample>::min();
    constexpr int last = std::numeric_limits<Sample>::max();
    table.clear();
    table.reserve(last - first + 1);
    for (int value = first; value <= last; ++value)
        table.push_back(curve.PixelOf(value));
}

template <typename Sample>
void ShowByTable(const std::vector<unsigned>& table, const Sample* values, unsigned* pixels,
                 std::size_t count)
{
    const unsigned* const zero = table.data() - std::numeric_limits<Sample>::min();
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = zero[values[x]];
}

template void FillTable<std::uint8_t>(const ContrastCurve&, std::vector<unsigned>&);
template void FillTable<std::uint16_t>(const ContrastCurve&, std::vector<unsigned>&);
template void FillTable<std::int16_t>(const ContrastCurve&, std::vector<unsigned>&);
template void ShowByTable(const std::vector<unsigned>&, const std::uint8_t*, unsigned*, std::size_t);
template void ShowByTable(const std::vector<unsigned>&, const std::uint16_t*, unsigned*, std::size_t);
template void ShowByTable(const std::vector<unsigned>&, const std::int16_t*, unsigned*, std::size_t);

ColorTables::ColorTables(const ContrastState& state) : State(state)
{
    const ContrastCurve curve(state);
    for (int value = 0; value < Levels; ++value) {
        const unsigned pixel = curve.Colors[static_cast<std::size_t>(curve.LevelOf(value))];
        Red[value] = pixel & 0xFF0000u;
        Green[value] = pixel & 0xFF00u;
        Blue[value] = pixel & 0xFFu;
    }
    IsIdentity = curve.IsIdentity();
}

namespace {

unsigned Marked(const ContrastState& state, double luma, unsigned pixel)
{
    return luma < state.Low    ? LayOver(state.Below, pixel)
           : luma > state.High ? LayOver(state.Above, pixel)
                               : pixel;
}

}

void ShowColors(const ColorTables& tables, ColorOrder order, const std::uint8_t* samples, unsigned* pixels,
                std::size_t count)
{
    const bool marks = tables.State.HasMarks();
    for (std::size_t x = 0; x < count; ++x, samples += order.PixelBytes) {
        const int red = samples[order.Red];
        const int green = samples[1];
        const int blue = samples[order.Blue];
        pixels[x] = tables.Red[red] | tables.Green[green] | tables.Blue[blue];
        if (marks)
            pixels[x] = Marked(tables.State, (299 * red + 587 * green + 114 * blue) / 1000.0, pixels[x]);
    }
}

}
