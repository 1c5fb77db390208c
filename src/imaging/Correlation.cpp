#include "imaging/Correlation.h"

#include "base/CacheLimits.h"
#include "base/CpuVariants.h"
#include "base/PixelFill.h"
#include "base/Reflect.h"
#include "imaging/PlaneRows.h"

#include <algorithm>
#include <cstdint>

namespace vostel {

namespace {

// Sums of neighbouring columns side by side, which a compiler turns into vectors by itself.
constexpr std::ptrdiff_t StripColumns = 128;

void SumRow(const CorrelationBlock& block)
{
    for (std::ptrdiff_t start = 0; start < block.Columns; start += StripColumns) {
        const std::ptrdiff_t columns = std::min(StripColumns, block.Columns - start);
        float                sums[StripColumns] = {};
        for (int j = 0; j < block.KernelHeight; ++j) {
            const float* const kernel = block.Kernel + static_cast<std::ptrdiff_t>(j) * block.KernelWidth;
            const float* const source = block.Sources[j] + block.Offset + start;
            for (std::ptrdiff_t i = 0; i < block.KernelWidth; ++i) {
                const float tap = kernel[i];
                for (std::ptrdiff_t x = 0; x < columns; ++x)
                    sums[x] += tap * source[x + i];
            }
        }
        std::copy(sums, sums + columns, block.Targets[0] + block.First + start);
    }
}

// Edge columns come in multiples of the widest vector.
constexpr int EdgeStep = 16;

// Columns up to the first whole line of the target.
std::ptrdiff_t ColumnsToLine(const float* row)
{
    const std::uintptr_t line = EdgeStep * sizeof(float);
    return static_cast<std::ptrdiff_t>((line - reinterpret_cast<std::uintptr_t>(row) % line) % line /
                                       sizeof(float));
}

}

const CorrelationVariant CorrelationPlain = {.RowsAtOnce = 1, .Rows = SumRow, .Row = SumRow, .Fence = [] {}};

const CorrelationVariant& ActiveCorrelationVariant()
{
    return Choose<CorrelationVariant>({.Plain = &CorrelationPlain,
                                       .Avx2 = VOSTEL_X86(&CorrelationAvx2),
                                       .Avx512 = VOSTEL_X86(&CorrelationAvx512)});
}

// The samples of the source rows of one block of output rows where taps leave the image: the columns of one
// side with their taps, or whole rows of an image too narrow for two sides.
class Correlation::EdgeCopies {
public:
    EdgeCopies(const Correlation& task, std::ptrdiff_t firstColumn, std::ptrdiff_t columns, std::size_t rows)
        : From(firstColumn - task.HalfWidth), Samples(columns + 2 * task.HalfWidth), Lines(rows),
          Memory(rows * static_cast<std::size_t>(Samples))
    {
        const std::ptrdiff_t imageStart = std::max<std::ptrdiff_t>(-From, 0);
        InsideStart = std::min(imageStart, Samples);
        InsideEnd = std::max(InsideStart, std::min<std::ptrdiff_t>(Samples, task.Width - From));
        for (std::ptrdiff_t k = 0; k < Samples; ++k)
            if (k < InsideStart || k >= InsideEnd)
                Mirrored.push_back(ReflectSkippingEdge(From + k, task.Width));
        for (std::size_t q = 0; q < rows; ++q)
            Lines[q] = Memory.data() + q * static_cast<std::size_t>(Samples);
    }

    // Of the first so many source rows; nothing where there is no line to copy to.
    void Fill(const std::vector<const float*>& sources, std::size_t rows)
    {
        for (std::size_t q = 0; q < std::min(rows, Lines.size()); ++q) {
            const float* const source = sources[q];
            float* const       copy = Memory.data() + q * static_cast<std::size_t>(Samples);
            const int*         mirrored = Mirrored.data();
            for (std::ptrdiff_t k = 0; k < InsideStart; ++k)
                copy[k] = source[*mirrored++];
            if (InsideStart < InsideEnd)
                std::copy(source + From + InsideStart, source + From + InsideEnd, copy + InsideStart);
            for (std::ptrdiff_t k = InsideEnd; k < Samples; ++k)
                copy[k] = source[*mirrored++];
        }
    }

    const float* const* SourceRows() const { return Lines.data(); }

private:
    std::ptrdiff_t            From;           // image column of the first sample of a line
    std::ptrdiff_t            Samples;        // of a line
    std::ptrdiff_t            InsideStart;    // these samples of a line lie in the image
    std::ptrdiff_t            InsideEnd;
    std::vector<int>          Mirrored;    // image columns of the others
    std::vector<const float*> Lines;
    std::vector<float>        Memory;
};

Correlation::Correlation(const StructData2D<float>& image, const StructData2D<float>& kernel)
    : HalfWidth(kernel.Width / 2), HalfHeight(kernel.Height / 2), Width(image.Width), Height(image.Height),
      TapWidth(2 * HalfWidth + 1), TapHeight(2 * HalfHeight + 1),
      Taps(static_cast<std::size_t>(TapWidth) * static_cast<std::size_t>(TapHeight)),
      Rows(static_cast<std::size_t>(Height)), Variant(ActiveCorrelationVariant())
{
    // An even side has its last taps beyond the kernel: they are zero.
    for (int j = 0; j < kernel.Height; ++j)
        std::copy_n(RowOf(kernel, j), kernel.Width, Taps.data() + static_cast<std::ptrdiff_t>(j) * TapWidth);
    for (int y = 0; y < Height; ++y)
        Rows[static_cast<std::size_t>(y)] = RowOf(image, y);
    EdgeWidth = (HalfWidth + EdgeStep - 1) / EdgeStep * EdgeStep;
}

template <typename RowsDone>
void Correlation::DoRows(float* const* targets, int first, int end, bool streaming, RowsDone rowsDone) const
{
    if (first >= end)
        return;
    const std::size_t         rowsOfBlock = static_cast<std::size_t>(Variant.RowsAtOnce + 2 * HalfHeight);
    std::vector<const float*> sources(rowsOfBlock);
    // The left side ends where cache lines of the target start, if they do so in every row.
    const std::ptrdiff_t ahead = Width % EdgeStep == 0 ? ColumnsToLine(targets[first]) : 0;
    std::ptrdiff_t       leftColumns = EdgeWidth + ahead;
    std::ptrdiff_t       rightColumns = EdgeWidth;
    if (Width < leftColumns + rightColumns + EdgeStep) {
        leftColumns = Width;
        rightColumns = 0;
    }
    EdgeCopies leftCopies(*this, 0, leftColumns, leftColumns > 0 ? rowsOfBlock : 0);
    EdgeCopies rightCopies(*this, Width - rightColumns, rightColumns, rightColumns > 0 ? rowsOfBlock : 0);

    const CorrelationBlock inside = {
        .Sources = sources.data(),
        .Offset = leftColumns - HalfWidth,
        .Kernel = Taps.data(),
        .KernelWidth = TapWidth,
        .KernelHeight = TapHeight,
        .Targets = targets,
        .First = leftColumns,
        .Columns = Width - leftColumns - rightColumns,
        .Streaming = streaming,
    };
    const auto edge = [&](const EdgeCopies& copies, std::ptrdiff_t firstColumn, std::ptrdiff_t columns) {
        CorrelationBlock block = inside;
        block.Sources = copies.SourceRows();
        block.Offset = 0;
        block.First = firstColumn;
        block.Columns = columns;
        block.Streaming = false;
        return block;
    };
    const CorrelationBlock left = edge(leftCopies, 0, leftColumns);
    const CorrelationBlock right = edge(rightCopies, Width - rightColumns, rightColumns);

    for (int y = first; y < end;) {
        const int         rows = end - y >= Variant.RowsAtOnce ? Variant.RowsAtOnce : 1;
        const std::size_t sourceRows = static_cast<std::size_t>(rows + 2 * HalfHeight);
        for (std::size_t q = 0; q < sourceRows; ++q) {
            const std::ptrdiff_t row =
                y - static_cast<std::ptrdiff_t>(HalfHeight) + static_cast<std::ptrdiff_t>(q);
            sources[q] = Rows[static_cast<std::size_t>(ReflectSkippingEdge(row, Height))];
        }
        leftCopies.Fill(sources, sourceRows);
        rightCopies.Fill(sources, sourceRows);
        for (CorrelationBlock block : {left, inside, right}) {
            block.Targets = targets + y;
            if (block.Columns > 0)
                (rows == 1 ? Variant.Row : Variant.Rows)(block);
        }
        y += rows;
        rowsDone(y);
    }
    Variant.Fence();
}

void Correlation::DoRows(float* const* targets, int first, int end) const
{
    const std::size_t samples = static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height);
    if (UsesStreamingStores(samples * sizeof(float))) {
        DoRows(targets, first, end, true, [](int) {});
        return;
    }
    // Stores go from row to row within a block, which the processor does not guess ahead.
    DoRows(targets, first, end, false, [&](int y) {
        for (int row = y + Variant.RowsAtOnce; row < std::min(y + 2 * Variant.RowsAtOnce, end); ++row) {
            for (std::ptrdiff_t x = 0; x < Width; x += EdgeStep)
                VOSTEL_PREFETCH_FOR_WRITE(targets[row] + x);
        }
    });
}

// The last results wait in a few lines, which stay in the caches, until no row to come reads the samples that
// they replace. Under a kernel that reaches over the whole height any row may read any other.
void Correlation::DoRowsInPlace(StructData2D<float>& image, int first, int end) const
{
    const int lag = HalfHeight < Height ? HalfHeight : Height;
    const int lines = std::min(Height, lag + Variant.RowsAtOnce);
    // Lines a power of two apart would drive each other out of the caches.
    const std::ptrdiff_t steps = (static_cast<std::ptrdiff_t>(Width) + EdgeStep - 1) / EdgeStep;
    const std::ptrdiff_t length = (steps + 3) * EdgeStep;
    std::vector<float>   memory(static_cast<std::size_t>(lines * length));
    std::vector<float*>  results(static_cast<std::size_t>(Height));
    for (int y = 0; y < Height; ++y)
        results[static_cast<std::size_t>(y)] = memory.data() + y % lines * length;
    int        written = first;
    const auto writeBefore = [&](int y) {
        for (; written < y; ++written)
            std::copy_n(results[static_cast<std::size_t>(written)], Width, RowOf(image, written));
    };
    DoRows(results.data(), first, end, false, [&](int y) { writeBefore(y - lag); });
    writeBefore(end);
}

}
