// Copies. SRCCOPY is the one raster operation; any other fails. There is no clipping region: the
// bitmap clips. Every depth converts to every other. The high byte of 32-bit pixels is
// copied; it is 0 where the source has none.

#include "platform/portable/PortableContext.h"
#include "platform/portable/PortableStretch.h"
#include "platform/portable/StretchRows.h"

#include <algorithm>
#include <cstring>

namespace vostel::gdi {
namespace {

// What the columns or rows of a copy come down to.
struct Overlap {
    int Target = 0;
    int Source = 0;
    int Count = 0;
};

Overlap FindOverlap(const StretchAxis& axis)
{
    // A negative extent includes its start and walks down, on both sides.
    const std::int64_t back = axis.TargetExtent < 0 ? axis.TargetExtent + std::int64_t{1} : 0;
    const std::int64_t length = axis.TargetExtent < 0 ? 1 - back : axis.TargetExtent;
    const std::int64_t target = axis.TargetStart + back;
    const std::int64_t source = axis.SourceStart + back;
    const std::int64_t skip = std::max<std::int64_t>({0, -target, -source});
    const std::int64_t end = std::min({length, axis.TargetSize - target, axis.SourceSize - source});
    Overlap            overlap;
    if (skip < end) {
        overlap.Target = static_cast<int>(target + skip);
        overlap.Source = static_cast<int>(source + skip);
        overlap.Count = static_cast<int>(end - skip);
    }
    return overlap;
}

// Memory order of the rows and their padding allow one block for all rows.
bool FillsWholeRows(const Bitmap& target, const Bitmap& source, const Overlap& columns)
{
    return target.TopDown == source.TopDown && columns.Count == target.Width &&
           columns.Count == source.Width && target.RowBytes == source.RowBytes;
}

}

void CopyPixels(const PixelCopy& copy, const StretchAxis& columnAxis, const StretchAxis& rowAxis)
{
    const Overlap columns = FindOverlap(columnAxis);
    const Overlap rows = FindOverlap(rowAxis);
    if (columns.Count == 0 || rows.Count == 0)
        return;
    const Bitmap& target = *copy.Target;
    const Bitmap& source = *copy.Source;
    const bool    wholeBytes = target.BitsPerPixel == source.BitsPerPixel && target.BitsPerPixel >= 8;

    if (wholeBytes && FillsWholeRows(target, source, columns)) {
        unsigned char*       to = std::min(target.Row(rows.Target), target.Row(rows.Target + rows.Count - 1));
        const unsigned char* from =
            std::min(source.Row(rows.Source), source.Row(rows.Source + rows.Count - 1));
        std::memmove(to, from,
                     static_cast<std::size_t>(target.RowBytes) * static_cast<std::size_t>(rows.Count));
        return;
    }
    if (target.BitsPerPixel == 32 && source.BitsPerPixel == 32 && copy.Target != copy.Source) {
        const StretchVariant& variant = ActiveStretchVariant();
        const auto            from = [&](int row) {
            return reinterpret_cast<const std::uint32_t*>(source.Row(rows.Source + row)) + columns.Source;
        };
        // In memory order of the target: caches like ascending addresses better. Two rows ahead are early
        // enough for memory and not too early for the cache.
        const int  step = target.TopDown ? 1 : -1;
        const bool streams = std::int64_t{columns.Count} * rows.Count >= StreamedPixels;
        const auto copyRow = streams ? variant.StreamPixels : variant.CopyPixels;
        for (int i = 0; i < rows.Count; ++i) {
            const int row = target.TopDown ? i : rows.Count - 1 - i;
            copyRow(reinterpret_cast<std::uint32_t*>(target.Row(rows.Target + row)) + columns.Target,
                    from(row), columns.Count, i + 2 < rows.Count ? from(row + 2 * step) : nullptr);
        }
        if (streams)
            variant.Fence();
        return;
    }
    std::vector<std::uint32_t> words(wholeBytes ? 0 : static_cast<std::size_t>(columns.Count));
    // Downward within one bitmap the last row goes first, so that no row is overwritten before it is read.
    const bool lastFirst = rows.Target > rows.Source;
    for (int i = 0; i < rows.Count; ++i) {
        const int row = lastFirst ? rows.Count - 1 - i : i;
        if (wholeBytes) {
            const int bytes = target.BitsPerPixel / 8;
            std::memmove(target.Row(rows.Target + row) + static_cast<std::ptrdiff_t>(columns.Target) * bytes,
                         source.Row(rows.Source + row) + static_cast<std::ptrdiff_t>(columns.Source) * bytes,
                         static_cast<std::size_t>(columns.Count) * static_cast<std::size_t>(bytes));
        } else {
            LoadWords(words.data(), copy, rows.Source + row, columns.Source, columns.Count);
            StoreWords(copy, rows.Target + row, columns.Target, words.data(), columns.Count);
        }
    }
}

namespace {

// Null pointers in it when one of the contexts cannot be copied with.
PixelCopy CopyBetween(const Context* target, const Context* source)
{
    PixelCopy copy;
    if (!target || !source)
        return copy;
    copy.Target = target->Surface;
    copy.Source = source->Surface;
    copy.Ink = target->TextColor;
    copy.Paper = target->BkColor;
    copy.Key = source->BkColor;
    // One bit to one bit copies the bit.
    if (copy.Target && copy.Source && copy.Target->BitsPerPixel == 1 && copy.Source->BitsPerPixel == 1) {
        copy.Ink = 0;
        copy.Paper = copy.Key = 0xFFFFFF;
    }
    return copy;
}

StretchAxis Axis(std::int64_t target, int targetExtent, std::int64_t source, int sourceExtent, int targetSize,
                 int sourceSize)
{
    StretchAxis axis;
    axis.TargetStart = target;
    axis.TargetExtent = targetExtent;
    axis.SourceStart = source;
    axis.SourceExtent = sourceExtent;
    axis.TargetSize = targetSize;
    axis.SourceSize = sourceSize;
    return axis;
}

}
}

using namespace vostel::gdi;

int SetStretchBltMode(HDC dc, int mode)
{
    Context* context = FindContext(dc);
    if (!context || mode < BLACKONWHITE || mode > HALFTONE)
        return 0;
    const int before = context->StretchMode;
    context->StretchMode = mode;
    return before;
}

BOOL BitBlt(HDC targetDc, int x, int y, int width, int height, HDC sourceDc, int sourceX, int sourceY,
            DWORD operation)
{
    return StretchBlt(targetDc, x, y, width, height, sourceDc, sourceX, sourceY, width, height, operation);
}

BOOL StretchBlt(HDC targetDc, int x, int y, int width, int height, HDC sourceDc, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, DWORD operation)
{
    const Context*  target = FindContext(targetDc);
    const Context*  source = FindContext(sourceDc);
    const PixelCopy copy = CopyBetween(target, source);
    if (!copy.Target || !copy.Source || operation != SRCCOPY)
        return FALSE;
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0)
        return TRUE;
    const StretchAxis columns =
        Axis(std::int64_t{x} + target->Origin.x, width, std::int64_t{sourceX} + source->Origin.x, sourceWidth,
             copy.Target->Width, copy.Source->Width);
    const StretchAxis rows =
        Axis(std::int64_t{y} + target->Origin.y, height, std::int64_t{sourceY} + source->Origin.y,
             sourceHeight, copy.Target->Height, copy.Source->Height);
    if (width == sourceWidth && height == sourceHeight)
        CopyPixels(copy, columns, rows);
    else
        StretchPixels(copy, columns, rows, target->StretchMode);
    return TRUE;
}
