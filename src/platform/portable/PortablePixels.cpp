// GetPixel and SetPixel.

#include "platform/portable/PixelRows.h"
#include "platform/portable/PortableContext.h"

using namespace vostel::gdi;

namespace {

// The pixel of a context, or of nothing.
class PixelPlace {
public:
    PixelPlace(HDC dc, int x, int y)
    {
        const Context* context = FindContext(dc);
        if (!context || context->Surface->BitsPerPixel < 24)
            return;
        const Bitmap&      surface = *context->Surface;
        const std::int64_t column = std::int64_t{x} + context->Origin.x,
                           row = std::int64_t{y} + context->Origin.y;
        if (column < 0 || row < 0 || column >= surface.Width || row >= surface.Height)
            return;
        Copy.Target = Copy.Source = &surface;
        Column = static_cast<int>(column);
        Row = static_cast<int>(row);
    }

    bool          Exists() const { return Copy.Target != nullptr; }
    std::uint32_t Load() const
    {
        std::uint32_t word = 0;
        LoadWords(&word, Copy, Row, Column, 1);
        return word;
    }
    void Store(std::uint32_t word) const { StoreWords(Copy, Row, Column, &word, 1); }

private:
    PixelCopy Copy;
    int       Column = 0;
    int       Row = 0;
};

}

COLORREF GetPixel(HDC dc, int x, int y)
{
    const PixelPlace place(dc, x, y);
    return place.Exists() ? PixelOf(place.Load())
                          : CLR_INVALID;    // the exchange of red and blue undoes itself
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF color)
{
    const PixelPlace place(dc, x, y);
    if (!place.Exists())
        return CLR_INVALID;
    place.Store(PixelOf(color));
    return color & 0xFFFFFF;
}
