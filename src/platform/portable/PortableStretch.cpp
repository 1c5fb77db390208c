// The stretch modes.
//
// 3 (COLORONCOLOR) takes one source pixel per target pixel: of the source pixels whose centres fall on a
// target pixel the last column and the first row, as GDI does. 1 and 2 take the AND and the OR of all of
// them. 4 (HALFTONE) is the smooth one. Systems differ in it; here it averages over the area of the target
// pixel when shrinking and interpolates linearly between pixel centres when enlarging, each axis for itself,
// in integers: weights have 14 bits, the value between the two passes 15. The high byte of its pixels is 0.

#include "platform/portable/PortableStretch.h"

#include "platform/portable/StretchRows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vostel::gdi {
namespace {

// Buffers that calls share; their size is bounded by the bitmaps of this thread.
struct Scratch {
    AxisRuns                         ColumnRuns, RowRuns;
    AxisTaps                         ColumnTaps, RowTaps;
    std::vector<std::uint32_t>       Words;      // a source row
    std::vector<std::uint32_t>       Picked;     // a target row
    std::vector<std::uint32_t>       Pairs;      // column weights as BlendColumns takes them
    std::vector<std::uint16_t>       Blended;    // a source row between the passes
    std::vector<std::uint16_t>       Triples;    // the same of a 24-bit source
    std::vector<const std::uint8_t*> Rows;
};

Scratch& SharedScratch()
{
    thread_local Scratch scratch;
    return scratch;
}

template <class T>
T* Sized(std::vector<T>& buffer, std::size_t count)
{
    if (buffer.size() < count)
        buffer.resize(count);
    return buffer.data();
}

std::uint32_t* WordsOf(const Bitmap& bitmap, int y)
{
    return reinterpret_cast<std::uint32_t*>(bitmap.Row(y));
}

void Nearest(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis)
{
    Scratch&  scratch = SharedScratch();
    AxisRuns& columns = scratch.ColumnRuns;
    AxisRuns& rows = scratch.RowRuns;
    columns.Find(columnAxis);
    rows.Find(rowAxis);
    if (columns.Count == 0 || rows.Count == 0)
        return;
    const StretchVariant& variant = ActiveStretchVariant();
    const Bitmap&         target = *copy.Target;
    const Bitmap&         source = *copy.Source;
    const std::size_t     count = static_cast<std::size_t>(columns.Count);
    const bool            inPlace = source.BitsPerPixel == 32;
    const bool            direct = target.BitsPerPixel == 32;
    const bool            straight = columnAxis.KeepsSize() && !columnAxis.Mirrors();
    const bool            picks =
        std::abs(std::int64_t{columnAxis.SourceExtent}) > std::abs(std::int64_t{columnAxis.TargetExtent});

    // A row that has to be widened first is widened only where it is needed.
    std::vector<int>& taken = columns.Far;
    int               firstColumn = 0;
    int               width = source.Width;
    if (!inPlace) {
        const auto ends = std::minmax(taken.front(), taken.back());
        firstColumn = ends.first;
        width = ends.second - ends.first + 1;
        for (int& column : taken)
            column -= firstColumn;
        Sized(scratch.Words, static_cast<std::size_t>(width));
    }
    // Rows of a large enlarged picture are made once beside it and streamed to every place.
    const bool streams = direct && !picks && std::int64_t{columns.Count} * rows.Count >= StreamedPixels;
    if (!direct || streams)
        Sized(scratch.Picked, count);

    const std::size_t pixelBytes = static_cast<std::size_t>(target.BitsPerPixel) / 8;
    // In memory order of the target: caches like ascending addresses better.
    const int step = target.TopDown ? 1 : -1;
    const int begin = target.TopDown ? 0 : rows.Count - 1;
    const int end = target.TopDown ? rows.Count : -1;
    for (int i = begin; i != end; i += step) {
        const int sourceRow = rows.Near[static_cast<std::size_t>(i)];
        const int y = rows.Target + i;
        if (i != begin && pixelBytes > 0 && sourceRow == rows.Near[static_cast<std::size_t>(i - step)]) {
            const std::size_t at = static_cast<std::size_t>(columns.Target) * pixelBytes;
            if (streams)
                variant.StreamPixels(WordsOf(target, y) + columns.Target, scratch.Picked.data(),
                                     columns.Count, nullptr);
            else
                std::memcpy(target.Row(y) + at, target.Row(y - step) + at, count * pixelBytes);
            continue;
        }
        const std::uint32_t* from = scratch.Words.data();
        if (inPlace)
            from = WordsOf(source, sourceRow);
        else
            LoadWords(scratch.Words.data(), copy, sourceRow, firstColumn, width);
        std::uint32_t* to = scratch.Picked.data();
        if (direct && !streams)
            to = WordsOf(target, y) + columns.Target;
        const std::uint32_t* ahead = nullptr;
        if (inPlace && i + step != end)
            ahead = WordsOf(source, rows.Near[static_cast<std::size_t>(i + step)]);
        if (straight) {
            variant.CopyPixels(to, from + taken.front(), columns.Count,
                               ahead != nullptr ? ahead + taken.front() : nullptr);
        } else if (picks) {
            variant.PickPixels(to, from, taken.data(), columns.Count, ahead);
        } else {
            variant.RepeatPixels(to, from, width, taken.data(), columns.Count);
        }
        if (streams)
            variant.StreamPixels(WordsOf(target, y) + columns.Target, to, columns.Count, nullptr);
        else if (!direct)
            StoreWords(copy, y, columns.Target, to, columns.Count);
    }
    if (streams)
        variant.Fence();
}

// All source pixels of a target pixel joined: by AND if both is true, else by OR.
void Combined(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis, bool both)
{
    Scratch&  scratch = SharedScratch();
    AxisRuns& columns = scratch.ColumnRuns;
    AxisRuns& rows = scratch.RowRuns;
    columns.Find(columnAxis);
    rows.Find(rowAxis);
    if (columns.Count == 0 || rows.Count == 0)
        return;
    const auto join = [both](std::uint32_t a, std::uint32_t b) { return both ? a & b : a | b; };
    // The runs of one axis follow each other without gaps, so the outer two tell the range.
    const int firstColumn =
        std::min({columns.Near.front(), columns.Far.front(), columns.Near.back(), columns.Far.back()});
    const int lastColumn =
        std::max({columns.Near.front(), columns.Far.front(), columns.Near.back(), columns.Far.back()});
    const int      width = lastColumn - firstColumn + 1;
    std::uint32_t* words = Sized(scratch.Words, static_cast<std::size_t>(width) * 2);
    std::uint32_t* added = words + width;
    std::uint32_t* picked = Sized(scratch.Picked, static_cast<std::size_t>(columns.Count));
    for (int i = 0; i < rows.Count; ++i) {
        const auto run =
            std::minmax(rows.Near[static_cast<std::size_t>(i)], rows.Far[static_cast<std::size_t>(i)]);
        const int firstRow = run.first;
        const int lastRow = run.second;
        LoadWords(words, copy, firstRow, firstColumn, width);
        for (int row = firstRow + 1; row <= lastRow; ++row) {
            LoadWords(added, copy, row, firstColumn, width);
            for (int x = 0; x < width; ++x)
                words[x] = join(words[x], added[x]);
        }
        for (int x = 0; x < columns.Count; ++x) {
            const auto    ends = std::minmax(columns.Near[static_cast<std::size_t>(x)],
                                             columns.Far[static_cast<std::size_t>(x)]);
            const int     first = ends.first - firstColumn;
            const int     last = ends.second - firstColumn;
            std::uint32_t joined = words[first];
            for (int column = first + 1; column <= last; ++column)
                joined = join(joined, words[column]);
            picked[x] = joined;
        }
        StoreWords(copy, rows.Target + i, columns.Target, picked, columns.Count);
    }
}

// Column weights two by two and eight pixels side by side, as the kernel reads them.
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

// The source has 24 or 32 bits a pixel.
void Smooth(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis)
{
    Scratch&  scratch = SharedScratch();
    AxisTaps& columns = scratch.ColumnTaps;
    AxisTaps& rows = scratch.RowTaps;
    columns.Find(columnAxis);
    rows.Find(rowAxis);
    if (columns.Count == 0 || rows.Count == 0)
        return;
    const StretchVariant& variant = ActiveStretchVariant();
    const Bitmap&         target = *copy.Target;
    const Bitmap&         source = *copy.Source;

    const auto ends = std::minmax(columns.First.front(), columns.First.back());
    const int  firstColumn = ends.first;
    const int  endColumn = std::min(ends.second + columns.Each, source.Width);
    const int  width = endColumn - firstColumn;
    for (int& column : columns.First)
        column -= firstColumn;
    PackPairs(columns, scratch.Pairs);

    const int      channels = source.BitsPerPixel / 8;
    std::uint16_t* blended = Sized(
        scratch.Blended, (static_cast<std::size_t>(width) + static_cast<std::size_t>(columns.Each)) * 4);
    std::uint16_t* sums =
        channels == 4 ? blended : Sized(scratch.Triples, static_cast<std::size_t>(width) * 3);
    scratch.Rows.resize(static_cast<std::size_t>(rows.Each));
    const bool direct = target.BitsPerPixel == 32;
    if (!direct)
        Sized(scratch.Picked, static_cast<std::size_t>(columns.Count));

    for (int i = 0; i < rows.Count; ++i) {
        const int first = rows.First[static_cast<std::size_t>(i)];
        for (int k = 0; k < rows.Each; ++k)
            scratch.Rows[static_cast<std::size_t>(k)] = source.Row(std::min(first + k, source.Height - 1)) +
                                                        static_cast<std::ptrdiff_t>(firstColumn) * channels;
        const std::int16_t* weights = rows.Weights.data() + static_cast<std::ptrdiff_t>(i) * rows.Each;
        int                 used = rows.Each;
        while (used > 2 && weights[used - 1] == 0 && weights[used - 2] == 0)
            used -= 2;
        const std::ptrdiff_t ahead =
            i + 1 < rows.Count ? source.Row(rows.First[static_cast<std::size_t>(i) + 1]) - source.Row(first)
                               : 0;
        variant.BlendRows(sums, scratch.Rows.data(), weights, used, width * channels, ahead);
        if (channels == 3) {
            for (int x = 0; x < width; ++x)
                for (int channel = 0; channel < 3; ++channel)
                    blended[4 * x + channel] = sums[3 * x + channel];
        }
        const int      y = rows.Target + i;
        std::uint32_t* to = direct ? WordsOf(target, y) + columns.Target : scratch.Picked.data();
        variant.BlendColumns(to, blended, columns.First.data(), scratch.Pairs.data(), columns.Each / 2,
                             columns.Count);
        if (!direct)
            StoreWords(copy, y, columns.Target, to, columns.Count);
    }
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
            LoadWords(WordsOf(coloured, y), copy, y, 0, source.Width);
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
