#include "output/ContrastRows.h"

#include "base/CacheLimits.h"
#include "base/CpuVariants.h"
#include "base/PixelFill.h"
#include "base/Truncate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vostel {

namespace {

// Pixels at a time. Small blocks keep reading going while what was written drains, and a remapped block stays
// in the first-level cache.
constexpr std::size_t Block = 1024;

// Elements of a cache line; all planes here have four bytes per element.
constexpr std::size_t LineElements = CacheLineBytes / sizeof(std::uint32_t);

// The arithmetic of the fast variants, for every entry; a table of another shape than a ramp fails.
bool RampGivesTable(const ContrastTable& table)
{
    int differences = 0;
    for (int i = 0; i < ContrastTable::EntryCount; ++i) {
        float distance = static_cast<float>(i) - table.Low;
        distance = distance > 0.0f ? distance : 0.0f;
        distance = distance < table.Span ? distance : table.Span;
        differences |= static_cast<int>(distance * table.Factor + table.Bias) ^ table.Gray[i];
    }
    return differences == 0;
}

// Where a multiplication can only miss the table, a step of the ramp is one off. Looking at the two ends of
// each step finds that at a 128th of the price of the whole table.
bool RampMeetsSteps(const ContrastTable& table, int span)
{
    for (int gray = 1; gray <= 255; ++gray) {
        const int first = (gray * span + 254) / 255;    // the lowest distance with this gray
        const int here = static_cast<int>(static_cast<float>(first) * table.Factor + table.Bias);
        const int before = static_cast<int>(static_cast<float>(first - 1) * table.Factor + table.Bias);
        if (here < gray || before >= gray)
            return false;
    }
    return true;
}

bool IsEmpty(int width, int height)
{
    return width <= 0 || height <= 0;
}

// The part of a plane that belongs to the run from begin to end when each cache line goes whole to the run
// that holds its end. Runs that meet in a line would otherwise both have to read it.
struct LineRun {
    std::size_t Begin;
    std::size_t Count;
};

LineRun WholeLines(const void* plane, std::size_t begin, std::size_t end, std::size_t all)
{
    const std::size_t skew = reinterpret_cast<std::uintptr_t>(plane) % CacheLineBytes / sizeof(std::uint32_t);
    const auto        up = [&](std::size_t i) {
        return i == 0 || i == all
                          ? i
                          : std::min(all, (i + skew + LineElements - 1) / LineElements * LineElements - skew);
    };
    return {up(begin), up(end) - up(begin)};
}

void GrayRow(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = table.Gray[TruncToUShort(raw[x])] * 0x010101u;
}

void GrayRowLabelled(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                     std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x)
        if (label[x] >= 1)
            pixels[x] = table.Gray[TruncToUShort(raw[x])] * 0x010101u;
}

}

const ContrastVariant ContrastPlain = {.Row = GrayRow, .RowLabelled = GrayRowLabelled};

// Registers wider than AVX2's do not pay: memory is the limit.
const ContrastVariant& ActiveContrastVariant()
{
    return Choose<ContrastVariant>({.Plain = &ContrastPlain, .Avx2 = VOSTEL_X86(&ContrastAvx2)});
}

void ContrastTable::Build(const ZEKMAPIMA& map)
{
    const int* entries = map.UsMap->Ptr1D;
    for (int i = 0; i < EntryCount; ++i)
        Gray[i] = static_cast<unsigned char>(entries[i]);

    IsRamp = false;
    if (map.RangeLow < 0 || map.RangeHigh > 65535 || map.RangeHigh <= map.RangeLow)
        return;
    const int span = map.RangeHigh - map.RangeLow;
    Low = static_cast<float>(map.RangeLow);
    Span = static_cast<float>(span);
    // The quotient truncates just below a whole number where the product of rounded factors does. The next
    // larger factor, or a bias of half the smallest distance to a whole number, mends all but a few spans.
    const float quotient = 255.0f / Span;
    const float factors[] = {quotient, std::nextafter(quotient, 1000.0f)};
    const float biases[] = {0.0f, 0.5f / Span};
    for (float bias : biases) {
        for (float factor : factors) {
            Factor = factor;
            Bias = bias;
            if (RampMeetsSteps(*this, span)) {
                IsRamp = RampGivesTable(*this);
                return;
            }
        }
    }
}

namespace {

// What a redraw of every pixel reads and writes.
struct Redraw {
    const ContrastTable& Table;
    const RemapRule*     Rule;    // null: the values are shown as they are
    const float*         Source;
    float*               Raw;    // takes the remapped values; null if not needed
    unsigned*            Pixels;
    int*                 Label;    // takes ones; null if not needed
    std::size_t          Row;      // pixels
    std::size_t          All;      // pixels

    void Run() const;

private:
    void ShowRow(std::size_t at, bool streaming, bool wholeLines) const;
    void ShowRun(const float* values, std::size_t pixel, std::size_t count, bool streaming) const;
    void KeepRun(std::size_t begin, std::size_t end, bool streaming) const;
};

void Redraw::ShowRun(const float* values, std::size_t pixel, std::size_t count, bool streaming) const
{
    alignas(64) float remapped[Block];
    if (Rule) {
        // Remapped here and again for Raw: cheaper than a copy, the source is at hand in the first-level
        // cache.
        ActiveFloatRangeVariant().Remap(*Rule, values, remapped, count, false);
        values = remapped;
    }
    ActiveContrastVariant().Row(Table, values, Pixels + pixel, count, streaming);
}

// Raw and Label for a run of data positions.
void Redraw::KeepRun(std::size_t begin, std::size_t end, bool streaming) const
{
    const bool inPlace = Source == Raw;
    if (Raw && !(inPlace && !Rule)) {
        const LineRun run = inPlace ? LineRun{begin, end - begin} : WholeLines(Raw, begin, end, All);
        if (Rule)
            ActiveFloatRangeVariant().Remap(*Rule, Source + run.Begin, Raw + run.Begin, run.Count,
                                            streaming && !inPlace);
        else
            CopyPixels(reinterpret_cast<const std::uint32_t*>(Source + run.Begin),
                       reinterpret_cast<std::uint32_t*>(Raw + run.Begin), run.Count, streaming);
    }
    if (Label) {
        const LineRun run = WholeLines(Label, begin, end, All);
        FillPixels(reinterpret_cast<std::uint32_t*>(Label + run.Begin), run.Count, 1, streaming);
    }
}

// The data row that starts at a position, onto its surface row. With wholeLines, the cache line that the
// surface row shares with the one above it is written once, from this data row and the one before it.
void Redraw::ShowRow(std::size_t at, bool streaming, bool wholeLines) const
{
    const std::size_t surface = All - Row - at;
    const LineRun run = wholeLines ? WholeLines(Pixels, surface, surface + Row, All) : LineRun{surface, Row};
    const std::size_t skipped = run.Begin - surface;
    const std::size_t above = skipped + run.Count - Row;    // pixels of the next surface row
    const std::size_t own = run.Count - (above > 0 ? LineElements : 0);
    const float*      values = Source + at + skipped;
    for (std::size_t x = 0; x < own; x += Block) {
        const std::size_t count = std::min(Block, own - x);
        ShowRun(values + x, run.Begin + x, count, streaming);
        const bool last = x + count == own;
        KeepRun(x == 0 ? at : at + skipped + x, last ? at + Row : at + skipped + x + count, streaming);
    }
    if (above > 0) {
        float shared[LineElements];
        std::copy_n(values + own, LineElements - above, shared);
        std::copy_n(Source + at - Row, above, shared + LineElements - above);
        ShowRun(shared, run.Begin + own, LineElements, streaming);
    }
}

void Redraw::Run() const
{
    // Three planes and more pass by, so that already those of a core's caches push each other out.
    const bool streaming = All * sizeof(std::uint32_t) >= CoreCacheBytes;
    const bool inPlace = Source == Raw;    // then the data row before is remapped already
    const bool wholeLines = streaming && !inPlace && Row >= 2 * LineElements;
    // Upwards through the data: reading is what the processor has to guess ahead.
    for (std::size_t at = 0; at < All; at += Row)
        ShowRow(at, streaming, wholeLines);
    if (streaming)
        FenceStreamingStores();
}

}

void ContrastShowAll(const ContrastTable& table, const float* raw, int width, int height, unsigned* pixels,
                     int* label)
{
    if (IsEmpty(width, height))
        return;
    const std::size_t row = static_cast<std::size_t>(width);
    Redraw{table, nullptr, raw, nullptr, pixels, label, row, row * static_cast<std::size_t>(height)}.Run();
}

void ContrastShowRemapped(const ContrastTable& table, const RemapRule& rule, const float* source, float* raw,
                          int width, int height, unsigned* pixels, int* label)
{
    if (IsEmpty(width, height))
        return;
    const std::size_t      row = static_cast<std::size_t>(width);
    const RemapRule* const active = rule.Active ? &rule : nullptr;
    Redraw{table, active, source, raw, pixels, label, row, row * static_cast<std::size_t>(height)}.Run();
}

void ContrastShowLabelled(const ContrastTable& table, const float* raw, int width, int height,
                          unsigned* pixels, const int* label)
{
    if (IsEmpty(width, height))
        return;
    const ContrastVariant& variant = ActiveContrastVariant();
    const std::size_t      row = static_cast<std::size_t>(width);
    const std::size_t      all = row * static_cast<std::size_t>(height);
    for (std::size_t at = 0; at < all; at += row)
        variant.RowLabelled(table, raw + (all - row - at), pixels + at, label + at, row);
}

}
