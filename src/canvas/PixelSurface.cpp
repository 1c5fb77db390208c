#include "canvas/PixelSurface.h"

#include "base/PixelFill.h"
#include "base/Truncate.h"
#include "canvas/view/CanvasView.h"
#include "canvas/view/SelectedObject.h"
#include "output/PlaneUploads.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vostel {

namespace {

BITMAPINFO CanvasHeader(int width, int height)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;    // positive: bottom-up
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

// One axis of the visible part. The fractions are single, the overhang's product is double.
struct Span {
    int SourceLow, SourceHigh;
    int TargetLow, TargetHigh;
};

Span VisibleSpan(LONG displayLow, LONG displayHigh, LONG clientLow, LONG clientHigh, int extent)
{
    const float shown = static_cast<float>(static_cast<long long>(displayHigh) - displayLow);
    Span        span;
    const float low = static_cast<float>(static_cast<long long>(clientLow) - displayLow) / shown;
    if (low < 0.0f) {
        span.SourceLow = 0;
        span.TargetLow = displayLow;
    } else {
        span.SourceLow = TruncToInt(static_cast<float>(extent) * low);
        span.TargetLow = 0;    // not clientLow: client areas start at the origin
    }
    const float high = static_cast<float>(static_cast<long long>(clientHigh) - displayHigh) / shown;
    if (high < 0.0f) {
        span.TargetHigh = clientHigh;
        span.SourceHigh = TruncToInt((1.0 - static_cast<double>(std::fabs(high))) * extent);
    } else {
        span.SourceHigh = extent;
        span.TargetHigh = displayHigh;
    }
    return span;
}

// The span at a high scale: every source px that is visible at all, and where it lies. What overhangs the
// client area is clipped by the target.
Span OutwardSpan(LONG displayLow, LONG displayHigh, double scale, LONG clientLow, LONG clientHigh, int extent)
{
    const double first = std::floor((static_cast<double>(clientLow) - displayLow) / scale);
    const double end = std::ceil((static_cast<double>(clientHigh) - displayLow) / scale);
    Span         span;
    span.SourceLow = static_cast<int>(std::clamp(first, 0.0, static_cast<double>(extent)));
    span.SourceHigh =
        static_cast<int>(std::clamp(end, static_cast<double>(span.SourceLow), static_cast<double>(extent)));
    span.TargetLow = TruncToInt(displayLow + span.SourceLow * scale);
    span.TargetHigh =
        span.SourceHigh == extent ? displayHigh : TruncToInt(displayLow + span.SourceHigh * scale);
    return span;
}

BytePlaneView RowsFrom(const BytePlaneView& plane, int row)
{
    const std::size_t skipped = plane.Stride * static_cast<std::size_t>(row);
    if (!plane.Data || skipped >= plane.Bytes)
        return BytePlaneView();
    return {plane.Data + skipped, plane.Bytes - skipped, plane.Stride};
}

}

HBITMAP CreateDibPixels(HDC dc, int width, int height, void** bits)
{
    *bits = nullptr;
    if (width < 1 || height < 1)
        return nullptr;
    BITMAPINFO    info = CanvasHeader(width, height);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, bits, nullptr, 0);
    if (!bitmap) {
        *bits = nullptr;
        return nullptr;
    }
    GetDIBits(dc, bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS);
    return bitmap;
}

PixelSurface::~PixelSurface()
{
    DropBitmap();
    if (MemDC)
        DeleteDC(MemDC);
    FreeRowTable();
}

void PixelSurface::Rebuild(HDC dc, int width, int height, bool cleared)
{
    ++Changes;
    // A bitmap of the same size serves again: touching fresh memory costs more than the upload.
    const bool kept = Bitmap && width == Width && height == Height;
    if (!kept)
        DropBitmap();
    else if (OldBitmap)
        SelectObject(MemDC, OldBitmap);
    if (MemDC)
        DeleteDC(MemDC);
    Width = width;
    Height = height;
    MemDC = CreateCompatibleDC(dc);
    if (!kept)
        CreateCanvasBitmap();
    else if (cleared)
        Fill(0);
    OldBitmap = Bitmap ? SelectObject(MemDC, Bitmap) : nullptr;
}

void PixelSurface::Exchange(PixelSurface& other)
{
    std::swap(MemDC, other.MemDC);
    std::swap(Bitmap, other.Bitmap);
    std::swap(OldBitmap, other.OldBitmap);
    std::swap(Pixels, other.Pixels);
    std::swap(Width, other.Width);
    std::swap(Height, other.Height);
    std::swap(IsHandedOut, other.IsHandedOut);
    ++Changes;
    ++other.Changes;
}

bool PixelSurface::CreateCanvasBitmap()
{
    DropBitmap();
    ++Changes;
    IsHandedOut = false;
    void* bits = nullptr;
    if (Width >= 1 && Height >= 1) {
        const BITMAPINFO info = CanvasHeader(Width, Height);
        Bitmap = CreateDIBSection(MemDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    }
    Pixels = Bitmap ? static_cast<unsigned int*>(bits) : nullptr;
    return Bitmap != nullptr;
}

unsigned int** PixelSurface::CreateRowTable()
{
    FreeRowTable();
    const int rows = Pixels ? Height : 0;
    Rows = new unsigned int*[static_cast<std::size_t>(rows)];
    for (int i = 0; i < rows; ++i)
        Rows[i] = Pixels + static_cast<std::size_t>(i) * static_cast<std::size_t>(Width);
    return Rows;
}

void PixelSurface::FreeRowTable()
{
    delete[] Rows;
    Rows = nullptr;
}

// Calls upload(memory row, source row, columns, streaming) for every row that lies on the surface.
void PixelSurface::ForEachUploadRow(int width, int height, auto&& upload)
{
    ++Changes;
    const int columns = std::min(width, Width);
    const int rows = std::min(height, Height);
    if (!Pixels || columns < 1 || rows < 1)
        return;
    const bool streaming = UsesStreamingStores(static_cast<std::size_t>(columns) *
                                               static_cast<std::size_t>(rows) * sizeof *Pixels);
    // The picture's rows upwards through its memory: processors fetch ahead that way.
    for (int y = rows - 1; y >= 0; --y)
        upload(Pixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(Width), height - 1 - y,
               columns, streaming);
    if (streaming)
        FenceStreamingStores();
}

void PixelSurface::UploadGray(const unsigned char* gray, int width, int height)
{
    ForEachUploadRow(width, height, [&](unsigned int* target, int row, int columns, bool streaming) {
        UploadGrayRow(gray + static_cast<std::size_t>(row) * static_cast<std::size_t>(width), target, columns,
                      streaming);
    });
}

void PixelSurface::UploadRows(const unsigned char* const* rows, int width, int height, RowFormat format)
{
    const auto uploadRow = format == GrayRows     ? UploadGrayRow
                           : format == TripleRows ? UploadTripleRow
                           : format == QuadRows   ? UploadQuadRow
                                                  : nullptr;
    if (!uploadRow || !rows)
        return;
    ForEachUploadRow(width, height, [&](unsigned int* target, int row, int columns, bool streaming) {
        uploadRow(rows[row], target, columns, streaming);
    });
}

void PixelSurface::UploadPlanes(const BytePlaneView& red, const BytePlaneView& green,
                                const BytePlaneView& blue, int width, int height)
{
    ForEachUploadRow(width, height, [&](unsigned int* target, int row, int columns, bool streaming) {
        const BytePlaneView a = RowsFrom(red, row);
        const BytePlaneView b = RowsFrom(green, row);
        const BytePlaneView c = RowsFrom(blue, row);
        UploadPlanesRow(a.Data, a.Bytes, b.Data, b.Bytes, c.Data, c.Bytes, target, columns, streaming);
    });
}

void PixelSurface::Fill(unsigned int pixel)
{
    if (!Pixels)
        return;
    ++Changes;
    const std::size_t count = static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height);
    const bool        streaming = UsesStreamingStores(count * sizeof *Pixels);
    FillPixels(Pixels, count, pixel, streaming);
    if (streaming)
        FenceStreamingStores();
}

bool PixelSurface::FindVisible(Visible& visible) const
{
    const CRect& shown = ViewRef->DisplayRect;
    const CRect& client = ViewRef->ClientRect;
    if (shown.right <= shown.left || shown.bottom <= shown.top)
        return false;
    const Span x = VisibleSpan(shown.left, shown.right, client.left, client.right, Width);
    const Span y = VisibleSpan(shown.top, shown.bottom, client.top, client.bottom, Height);
    visible.Source = CRect(x.SourceLow, y.SourceLow, x.SourceHigh, y.SourceHigh);
    visible.Target = CRect(x.TargetLow, y.TargetLow, x.TargetHigh, y.TargetHigh);
    return true;
}

PixelSurface::Visible PixelSurface::Nearest(const Visible& visible) const
{
    const double scale = ViewRef->Scale;
    if (!ViewRef->AnyScale || !(scale > 1.0))
        return visible;
    const CRect& shown = ViewRef->DisplayRect;
    const CRect& client = ViewRef->ClientRect;
    const Span   x = OutwardSpan(shown.left, shown.right, scale, client.left, client.right, Width);
    const Span   y = OutwardSpan(shown.top, shown.bottom, scale, client.top, client.bottom, Height);
    return {CRect(x.SourceLow, y.SourceLow, x.SourceHigh, y.SourceHigh),
            CRect(x.TargetLow, y.TargetLow, x.TargetHigh, y.TargetHigh)};
}

void PixelSurface::BlitTo(HDC target)
{
    SetStretchBltMode(target, StretchMode);
    Visible visible;
    if (!ViewRef || !FindVisible(visible))
        return;
    ViewRef->SourceRect = visible.Source;
    if (!Bitmap)
        return;    // MemDC then holds the one pixel that a new context comes with
    const CRect& all = ViewRef->DisplayRect;
    BOOL         isDrawn = TRUE;
    if (StretchMode == COLORONCOLOR) {
        // Only what is visible is stretched, at the cost of source positions rounded to whole pixels.
        const Visible nearest = Nearest(visible);
        const CRect&  from = nearest.Source;
        const CRect&  to = nearest.Target;
        isDrawn = StretchBlt(target, to.left, to.top, WrapSub(to.right, to.left), WrapSub(to.bottom, to.top),
                             MemDC, from.left, from.top, WrapSub(from.right, from.left),
                             WrapSub(from.bottom, from.top), SRCCOPY);
    } else if (StretchMode == HALFTONE) {
        isDrawn = StretchBlt(target, all.left, all.top, WrapSub(all.right, all.left),
                             WrapSub(all.bottom, all.top), MemDC, 0, 0, Width, Height, SRCCOPY);
    }
    MissedDrawings += !isDrawn;
}

CRect PixelSurface::CoveredClient() const
{
    Visible visible;
    if (!Bitmap || !ViewRef || !FindVisible(visible))
        return CRect();
    if (StretchMode == HALFTONE)
        return ViewRef->DisplayRect;
    if (StretchMode != COLORONCOLOR)
        return CRect();
    const Visible nearest = Nearest(visible);
    const CRect&  from = nearest.Source;
    const bool    whole = from.left >= 0 && from.left < from.right && from.right <= Width && from.top >= 0 &&
                       from.top < from.bottom && from.bottom <= Height;
    return whole && !nearest.Target.IsRectEmpty() ? nearest.Target : CRect();
}

void PixelSurface::DropBitmap()
{
    if (OldBitmap)
        SelectObject(MemDC, OldBitmap);
    if (Bitmap)
        DeleteObject(Bitmap);
    OldBitmap = nullptr;
    Bitmap = nullptr;
    Pixels = nullptr;
}

}
