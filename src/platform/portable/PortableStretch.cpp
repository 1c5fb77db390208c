// The stretch modes.
//
// 3 (COLORONCOLOR) takes one source pixel per target pixel: of the source pixels whose centres fall on a
// target pixel the last column and the first row, as GDI does. 1 and 2 take the AND and the OR of all of
// them. 4 (HALFTONE) is the smooth one. Systems differ in it; here it averages over the area of the target
// pixel when shrinking and interpolates linearly between pixel centres when enlarging, each axis for itself,
// in integers: weights have 14 bits, the value between the two passes 15. The high byte of its pixels is 0.

#include "platform/portable/PortableStretch.h"

#include "base/ReusedMemory.h"
#include "platform/portable/StretchRows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vostel::gdi {
namespace {

// Buffers of a call; their size is bounded by the bitmaps that were stretched.
struct Scratch {
    AxisRuns                         ColumnRuns, RowRuns;
    AxisTaps                         ColumnTaps, RowTaps;
    std::vector<std::uint32_t>       SourceRow;
    std::vector<std::uint32_t>       TargetRow;
    std::vector<std::uint32_t>       Pairs;      // column weights as BlendColumns takes them
    std::vector<std::uint16_t>       Blended;    // a source row between the passes
    std::vector<std::uint16_t>       Triples;    // the same of a 24-bit source
    std::vector<const std::uint8_t*> Rows;
};

constinit ReusedMemory<Scratch> gScratch;

template <typename T>
T* Sized(std::vector<T>& buffer, std::size_t count)
{
    if (buffer.size() < count)
        buffer.resize(count);
    return buffer.data();
}

std::uint32_t* PixelsOf(const Bitmap& bitmap, int y)
{
    return reinterpret_cast<std::uint32_t*>(bitmap.Row(y));
}

// False if no target pixel is drawn.
template <typename Axis>
bool FindBoth(Axis& columns, const StretchAxis& columnAxis, Axis& rows, const StretchAxis& rowAxis)
{
    columns.Find(columnAxis);
    rows.Find(rowAxis);
    return columns.Count > 0 && rows.Count > 0;
}

// Source rows of mode 3 as 32-bit pixels: where they lie, or widened from the first to the last column that
// is taken.
class NearestSource {
public:
    // Makes the columns count from the first pixel of the rows.
    NearestSource(const PixelCopy& copy, std::vector<int>& columns, std::vector<std::uint32_t>& buffer)
        : Copy(copy), LiesReady(copy.Source->BitsPerPixel == 32), Width(copy.Source->Width)
    {
        if (LiesReady)
            return;
        const auto ends = std::minmax(columns.front(), columns.back());
        FirstColumn = ends.first;
        Width = ends.second - ends.first + 1;
        for (int& column : columns)
            column -= FirstColumn;
        Widened = Sized(buffer, static_cast<std::size_t>(Width));
    }

    int RowWidth() const { return Width; }

    const std::uint32_t* Row(int y) const
    {
        if (LiesReady)
            return PixelsOf(*Copy.Source, y);
        LoadWords(Widened, Copy, y, FirstColumn, Width);
        return Widened;
    }

    // Null where there is nothing to fetch ahead.
    const std::uint32_t* RowAhead(int y) const { return LiesReady ? PixelsOf(*Copy.Source, y) : nullptr; }

private:
    const PixelCopy& Copy;
    bool             LiesReady;
    int              Width;
    int              FirstColumn = 0;
    std::uint32_t*   Widened = nullptr;
};

// How the columns of a target row come from those of a source row.
struct NearestColumns {
    enum class Spacing { Same, Shrunk, Enlarged };    // Enlarged also stands for the same size mirrored

    const StretchVariant&   Variant;
    Spacing                 Spaced;
    const std::vector<int>& Taken;    // per target pixel
    int                     SourceWidth;

    int  Count() const { return static_cast<int>(Taken.size()); }
    void Take(std::uint32_t* to, const std::uint32_t* from, const std::uint32_t* ahead) const
    {
        if (Spaced == Spacing::Same)
            Variant.CopyPixels(to, from + Taken[0], Count(), ahead ? ahead + Taken[0] : nullptr);
        else if (Spaced == Spacing::Shrunk)
            Variant.PickPixels(to, from, Taken.data(), Count(), ahead);
        else
            Variant.RepeatPixels(to, from, SourceWidth, Taken.data(), Count());
    }
};

NearestColumns::Spacing SpacingOf(const StretchAxis& axis)
{
    if (axis.KeepsSize() && !axis.Mirrors())
        return NearestColumns::Spacing::Same;
    return std::abs(std::int64_t{axis.SourceExtent}) > std::abs(std::int64_t{axis.TargetExtent})
               ? NearestColumns::Spacing::Shrunk
               : NearestColumns::Spacing::Enlarged;
}

// The three ways to write target rows of mode 3. Again writes the row at y as the one at before, which was
// written last.
struct DirectRows {
    const NearestColumns& Columns;
    const Bitmap&         Target;
    int                   X;

    void Write(int y, const std::uint32_t* from, const std::uint32_t* ahead) const
    {
        Columns.Take(PixelsOf(Target, y) + X, from, ahead);
    }
    void Again(int y, int before) const
    {
        std::memcpy(PixelsOf(Target, y) + X, PixelsOf(Target, before) + X,
                    static_cast<std::size_t>(Columns.Count()) * 4);
    }
    void Finish() const {}
};

// For a large picture that is not shrunk: made once in a row of their own and streamed to every place.
struct StreamedRows {
    const NearestColumns& Columns;
    const Bitmap&         Target;
    int                   X;
    std::uint32_t*        RowBuffer;

    void Write(int y, const std::uint32_t* from, const std::uint32_t* ahead) const
    {
        Columns.Take(RowBuffer, from, ahead);
        Again(y, y);
    }
    void Again(int y, int) const
    {
        Columns.Variant.StreamPixels(PixelsOf(Target, y) + X, RowBuffer, Columns.Count(), nullptr);
    }
    void Finish() const { Columns.Variant.Fence(); }
};

// RowBuffer in a row of their own and brought to the depth of the target.
struct ConvertedRows {
    const NearestColumns& Columns;
    const PixelCopy&      Copy;
    int                   X;
    std::uint32_t*        RowBuffer;

    void Write(int y, const std::uint32_t* from, const std::uint32_t* ahead) const
    {
        Columns.Take(RowBuffer, from, ahead);
        StoreWords(Copy, y, X, RowBuffer, Columns.Count());
    }
    void Again(int y, int before) const
    {
        const int pixelBytes = Copy.Target->BitsPerPixel / 8;
        if (pixelBytes == 0) {
            StoreWords(Copy, y, X, RowBuffer, Columns.Count());
            return;
        }
        const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(X) * pixelBytes;
        std::memcpy(Copy.Target->Row(y) + at, Copy.Target->Row(before) + at,
                    static_cast<std::size_t>(Columns.Count()) * static_cast<std::size_t>(pixelBytes));
    }
    void Finish() const {}
};

template <typename Writer>
void WriteRows(const Writer& writer, const NearestSource& source, const AxisRuns& rows, bool topDown)
{
    // In memory order of the target: caches like ascending addresses better.
    const int step = topDown ? 1 : -1;
    const int begin = topDown ? 0 : rows.Count - 1;
    const int end = topDown ? rows.Count : -1;
    for (int i = begin; i != end; i += step) {
        const int sourceRow = rows.Near[static_cast<std::size_t>(i)];
        const int y = rows.Target + i;
        if (i != begin && sourceRow == rows.Near[static_cast<std::size_t>(i - step)]) {
            writer.Again(y, y - step);
            continue;
        }
        const bool last = i + step == end;
        writer.Write(y, source.Row(sourceRow),
                     last ? nullptr : source.RowAhead(rows.Near[static_cast<std::size_t>(i + step)]));
    }
    writer.Finish();
}

void Nearest(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis)
{
    const ReusedMemory<Scratch>::Loan loan(gScratch);
    Scratch&                          scratch = *loan;
    AxisRuns&                         runs = scratch.ColumnRuns;
    const AxisRuns&                   rows = scratch.RowRuns;
    if (!FindBoth(runs, columnAxis, scratch.RowRuns, rowAxis))
        return;
    const Bitmap&        target = *copy.Target;
    const NearestSource  source(copy, runs.Far, scratch.SourceRow);
    const NearestColumns columns{ActiveStretchVariant(), SpacingOf(columnAxis), runs.Far, source.RowWidth()};
    const auto           buffer = [&] { return Sized(scratch.TargetRow, runs.Far.size()); };
    const bool           streams = columns.Spaced != NearestColumns::Spacing::Shrunk &&
                         std::int64_t{runs.Count} * rows.Count >= StreamedPixels;
    if (target.BitsPerPixel != 32)
        WriteRows(ConvertedRows{columns, copy, runs.Target, buffer()}, source, rows, target.TopDown);
    else if (streams)
        WriteRows(StreamedRows{columns, target, runs.Target, buffer()}, source, rows, target.TopDown);
    else
        WriteRows(DirectRows{columns, target, runs.Target}, source, rows, target.TopDown);
}

// All source pixels of a target pixel joined: by AND if both is true, else by OR.
void Combined(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis, bool both)
{
    const ReusedMemory<Scratch>::Loan loan(gScratch);
    Scratch&                          scratch = *loan;
    AxisRuns&                         columns = scratch.ColumnRuns;
    AxisRuns&                         rows = scratch.RowRuns;
    if (!FindBoth(columns, columnAxis, rows, rowAxis))
        return;
    const auto join = [both](std::uint32_t a, std::uint32_t b) { return both ? a & b : a | b; };
    // The runs of one axis follow each other without gaps, so the outer two give the range.
    const int firstColumn =
        std::min({columns.Near.front(), columns.Far.front(), columns.Near.back(), columns.Far.back()});
    const int lastColumn =
        std::max({columns.Near.front(), columns.Far.front(), columns.Near.back(), columns.Far.back()});
    const int      width = lastColumn - firstColumn + 1;
    std::uint32_t* joinedRows = Sized(scratch.SourceRow, static_cast<std::size_t>(width) * 2);
    std::uint32_t* added = joinedRows + width;
    std::uint32_t* picked = Sized(scratch.TargetRow, static_cast<std::size_t>(columns.Count));
    for (int i = 0; i < rows.Count; ++i) {
        const auto run =
            std::minmax(rows.Near[static_cast<std::size_t>(i)], rows.Far[static_cast<std::size_t>(i)]);
        const int firstRow = run.first;
        const int lastRow = run.second;
        LoadWords(joinedRows, copy, firstRow, firstColumn, width);
        for (int row = firstRow + 1; row <= lastRow; ++row) {
            LoadWords(added, copy, row, firstColumn, width);
            for (int x = 0; x < width; ++x)
                joinedRows[x] = join(joinedRows[x], added[x]);
        }
        for (int x = 0; x < columns.Count; ++x) {
            const auto    ends = std::minmax(columns.Near[static_cast<std::size_t>(x)],
                                             columns.Far[static_cast<std::size_t>(x)]);
            const int     first = ends.first - firstColumn;
            const int     last = ends.second - firstColumn;
            std::uint32_t joined = joinedRows[first];
            for (int column = first + 1; column <= last; ++column)
                joined = join(joined, joinedRows[column]);
            picked[x] = joined;
        }
        StoreWords(copy, rows.Target + i, columns.Target, picked, columns.Count);
    }
}

// Column weights two by two and eight pixels side by side, as BlendColumns reads them.
void PackPairs(const AxisTaps& columns, std::vector<std::uint32_t>& pairs)
{
    const std::size_t each = static_cast<std::size_t>(columns.Each) / 2;
    const std::size_t count = static_cast<std::size_t>(columns.Count);
    pairs.assign((count + StretchBlock - 1) / StretchBlock * StretchBlock * each, 0);
    for (std::size_t i = 0; i < count; ++i) {
        const std::int16_t* weights = columns.Weights.data() + i * each * 2;
        for (std::size_t p = 0; p < each; ++p)
            pairs[(i / StretchBlock * each + p) * StretchBlock + i % StretchBlock] =
                static_cast<std::uint32_t>(weights[2 * p]) | static_cast<std::uint32_t>(weights[2 * p + 1])
                                                                 << 16;
    }
}

// The two passes of mode 4 for each target row: source rows into one, then its columns. The source has 24 or
// 32 bits per pixel.
class SmoothPasses {
public:
    SmoothPasses(const PixelCopy& copy, Scratch& scratch)
        : Copy(copy), Variant(ActiveStretchVariant()), Columns(scratch.ColumnTaps), Rows(scratch.RowTaps),
          Channels(copy.Source->BitsPerPixel / 8), SourceRows(scratch.Rows), Pairs(scratch.Pairs)
    {
        const auto ends = std::minmax(Columns.First.front(), Columns.First.back());
        FirstColumn = ends.first;
        Width = std::min(ends.second + Columns.Each, copy.Source->Width) - FirstColumn;
        for (int& column : Columns.First)
            column -= FirstColumn;
        PackPairs(Columns, Pairs);
        SourceRows.resize(static_cast<std::size_t>(Rows.Each));
        Blended = Sized(scratch.Blended,
                        (static_cast<std::size_t>(Width) + static_cast<std::size_t>(Columns.Each)) * 4);
        Sums = Channels == 4 ? Blended : Sized(scratch.Triples, static_cast<std::size_t>(Width) * 3);
        if (copy.Target->BitsPerPixel != 32)
            RowBuffer = Sized(scratch.TargetRow, static_cast<std::size_t>(Columns.Count));
    }

    // Row i of the drawn ones.
    void WriteRow(int i)
    {
        BlendRows(i);
        if (Channels == 3)
            SpreadTriples();
        const int      y = Rows.Target + i;
        std::uint32_t* to = RowBuffer ? RowBuffer : PixelsOf(*Copy.Target, y) + Columns.Target;
        Variant.BlendColumns(to, Blended, Columns.First.data(), Pairs.data(), Columns.Each / 2,
                             Columns.Count);
        if (RowBuffer)
            StoreWords(Copy, y, Columns.Target, RowBuffer, Columns.Count);
    }

private:
    void BlendRows(int i)
    {
        const Bitmap& source = *Copy.Source;
        const int     first = Rows.First[static_cast<std::size_t>(i)];
        for (int k = 0; k < Rows.Each; ++k)
            SourceRows[static_cast<std::size_t>(k)] = source.Row(std::min(first + k, source.Height - 1)) +
                                                      static_cast<std::ptrdiff_t>(FirstColumn) * Channels;
        const std::int16_t* weights = Rows.Weights.data() + static_cast<std::ptrdiff_t>(i) * Rows.Each;
        int                 used = Rows.Each;
        while (used > 2 && weights[used - 1] == 0 && weights[used - 2] == 0)
            used -= 2;
        const std::ptrdiff_t ahead =
            i + 1 < Rows.Count ? source.Row(Rows.First[static_cast<std::size_t>(i) + 1]) - source.Row(first)
                               : 0;
        Variant.BlendRows(Sums, SourceRows.data(), weights, used, Width * Channels, ahead);
    }

    // Three channels to the four that BlendColumns takes.
    void SpreadTriples()
    {
        for (int x = 0; x < Width; ++x)
            for (int channel = 0; channel < 3; ++channel)
                Blended[4 * x + channel] = Sums[3 * x + channel];
    }

    const PixelCopy&                  Copy;
    const StretchVariant&             Variant;
    AxisTaps&                         Columns;
    const AxisTaps&                   Rows;
    int                               Channels;
    int                               FirstColumn;    // of the source, from which on its rows are blended
    int                               Width;
    std::vector<const std::uint8_t*>& SourceRows;
    std::vector<std::uint32_t>&       Pairs;
    std::uint16_t*                    Blended;
    std::uint16_t*                    Sums;                   // Blended, if it has as many channels
    std::uint32_t*                    RowBuffer = nullptr;    // for targets that are not written directly
};

void Smooth(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis)
{
    const ReusedMemory<Scratch>::Loan loan(gScratch);
    Scratch&                          scratch = *loan;
    if (!FindBoth(scratch.ColumnTaps, columnAxis, scratch.RowTaps, rowAxis))
        return;
    SmoothPasses passes(copy, scratch);
    for (int i = 0; i < scratch.RowTaps.Count; ++i)
        passes.WriteRow(i);
}

// A bitmap of its own memory, for a source that cannot be read where it lies.
struct OwnBitmap : Bitmap {
    std::vector<std::uint32_t> Memory;

    OwnBitmap(int width, int height, int bitsPerPixel, int rowBytes, bool topDown)
        : Memory(static_cast<std::size_t>(rowBytes) / 4 * static_cast<std::size_t>(height))
    {
        Width = width;
        Height = height;
        BitsPerPixel = bitsPerPixel;
        RowBytes = rowBytes;
        TopDown = topDown;
        Bits = reinterpret_cast<unsigned char*>(Memory.data());
    }
};

}

void StretchPixels(const PixelCopy& copy, const StretchAxis& columns, const StretchAxis& rows, int mode)
{
    const Bitmap& source = *copy.Source;
    if (source.BitsPerPixel == 1) {
        OwnBitmap coloured(source.Width, source.Height, 32, source.Width * 4, true);
        for (int y = 0; y < source.Height; ++y)
            LoadWords(PixelsOf(coloured, y), copy, y, 0, source.Width);
        PixelCopy fromColoured = copy;
        fromColoured.Source = &coloured;
        StretchPixels(fromColoured, columns, rows, mode);
        return;
    }
    if (copy.Source == copy.Target) {
        OwnBitmap before(source.Width, source.Height, source.BitsPerPixel, source.RowBytes, source.TopDown);
        std::memcpy(before.Bits, source.Bits, before.Memory.size() * 4);
        PixelCopy fromBefore = copy;
        fromBefore.Source = &before;
        StretchPixels(fromBefore, columns, rows, mode);
        return;
    }
    if (mode == HALFTONE && !(columns.KeepsSize() && rows.KeepsSize()))
        Smooth(copy, columns, rows);
    else if (mode == COLORONCOLOR || mode == HALFTONE)
        Nearest(copy, columns, rows);
    else
        Combined(copy, columns, rows, mode == BLACKONWHITE);
}

}
