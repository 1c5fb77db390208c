#pragma once

#include "vostel/platform.h"

#include <cstddef>
#include <cstdint>

namespace vostel {

class CanvasView;

// A section bitmap of 32 bits with rows running bottom-up, as the canvas's and the client's surfaces are.
// On failure *bits and the result are null.
HBITMAP CreateDibPixels(HDC dc, int width, int height, void** bits);

// What the rows of a picture hold for each pixel. Values beside these upload nothing.
enum RowFormat : int {
    GrayRows = 0,      // one gray byte
    TripleRows = 1,    // blue, green, red
    QuadRows = 2       // blue, green, red and a dropped fourth
};

// A byte plane as an upload reads it: rows of Stride bytes, top row first. Reads beyond Bytes give zero.
struct BytePlaneView {
    const unsigned char* Data = nullptr;    // borrowed
    std::size_t          Bytes = 0;
    std::size_t          Stride = 0;
};

// The image at image size: a 32-bit bottom-up bitmap in a memory context, with direct access to its
// pixels. They are 0x00RRGGBB; memory row 0 is the lowest row on the screen.
class PixelSurface {
public:
    HDC            MemDC = nullptr;               // owned
    HBITMAP        Bitmap = nullptr;              // owned
    HGDIOBJ        OldBitmap = nullptr;           // what Bitmap displaced; selected back before teardown
    unsigned int*  Pixels = nullptr;              // the bitmap's bits; null while there is no bitmap
    unsigned int** Rows = nullptr;                // owned; built on request, row 0 is the bottom row
    int            Width = 0;                     // px
    int            Height = 0;                    // rows
    int            StretchMode = COLORONCOLOR;    // or HALFTONE
    CanvasView*    ViewRef = nullptr;             // borrowed from the canvas
    std::uint64_t  Changes = 0;                   // counts what may have changed the pixels
    bool           IsHandedOut = false;           // hosts may change them too, at any time

    PixelSurface() = default;
    ~PixelSurface();
    PixelSurface(const PixelSurface&) = delete;
    PixelSurface& operator=(const PixelSurface&) = delete;

    // A context like dc with a bitmap of the given size in it, in place of the present ones. The pixels are
    // black if cleared, else whatever they were: for callers that write every one of them.
    void Rebuild(HDC dc, int width, int height, bool cleared);

    // Swaps bitmap, context and size with another surface; row table, stretch mode and view stay.
    void Exchange(PixelSurface& other);

    // Makes Bitmap for Width x Height with MemDC as the context, deleting the one before. False, with no
    // bitmap, when the size is below 1 or there is no memory for it.
    bool CreateCanvasBitmap();

    // A fresh table of Height row pointers, an empty one without a bitmap. The table before is freed.
    unsigned int** CreateRowTable();
    void           FreeRowTable();

    // Writes a gray picture of width x height bytes, top row first.
    void UploadGray(const unsigned char* gray, int width, int height);

    // Writes a picture of byte rows, top row first.
    void UploadRows(const unsigned char* const* rows, int width, int height, RowFormat format);

    // Writes three planes as red, green and blue. The second plane is read one and the third two columns
    // further to the right than the first; hosts are used to that skew.
    void UploadPlanes(const BytePlaneView& red, const BytePlaneView& green, const BytePlaneView& blue,
                      int width, int height);

    void Fill(unsigned int pixel);

    // The pixels, for whoever is about to change them.
    unsigned int* PixelsToChange()
    {
        ++Changes;
        return Pixels;
    }

    // Write the surface as an 8-bit gray bitmap, and as a 24-bit picture in the format of the extension.
    // Always true: a failed write is not reported.
    bool SaveGrayBmp(CString path);
    bool SaveColorImage(const CString& path);
    // The second of them, with what SavePicture returns.
    HRESULT WriteColorImage(const CString& path) const;

    // Copies the surface to the target by the view's transform and notes in the view what is visible.
    // Nothing happens while the display rectangle is empty.
    void BlitTo(HDC target);

    // The client pixels that a BlitTo would cover now, empty if none for certain.
    CRect CoveredClient() const;

    // The pixel in a memory row, counted from the bottom; 0 outside the surface.
    unsigned int PixelAt(int x, int memoryRow) const
    {
        const bool inside = Pixels && x >= 0 && x < Width && memoryRow >= 0 && memoryRow < Height;
        return inside ? Pixels[static_cast<std::size_t>(memoryRow) * static_cast<std::size_t>(Width) +
                               static_cast<std::size_t>(x)]
                      : 0;
    }

private:
    // What a stretch of the visible part takes and where it goes.
    struct Visible {
        CRect Source;    // image px
        CRect Target;    // client px
    };
    bool FindVisible(Visible& visible) const;
    // What the nearest mode stretches for it. Where the view may be set by numbers, and enlarges, these are
    // whole px beyond the visible edges: rounded source edges would move the image by up to a px of its own.
    Visible Nearest(const Visible& visible) const;
    void    ForEachUploadRow(int width, int height, auto&& upload);
    void    DropBitmap();
};

}
