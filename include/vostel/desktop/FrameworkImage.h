#pragma once

// CImage, a picture held in memory, with the application framework's meaning, for compilers that do not
// bring it. Decoding and encoding are the platform's: GDI+ on Windows, a codec library elsewhere. A
// picture keeps the depth of its file: palette and gray pictures arrive with 1, 4 or 8 bits a pixel and
// their indices, true colour with 24, alpha with 32, depths that no display bitmap holds with 32.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstddef>
#include <memory>

namespace ATL {

class VOSTEL_API CImage {
public:
    CImage();
    ~CImage();
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;

    // Reads a picture file. Below 0 when it cannot be read; the object then holds nothing.
    HRESULT Load(const wchar_t* path);

    // Writes the picture in the format that the extension of the path names; an unknown extension or a
    // path that cannot be written gives a value below 0.
    HRESULT Save(const wchar_t* path) const;

    // A blank picture of 8, 24 or 32 bits a pixel. A positive height stores rows bottom-up, a negative
    // one top-down. Releases what was held before; false if there is no memory or a size is zero.
    bool Create(int width, int height, int bitsPerPixel);

    void Destroy();
    bool IsNull() const;

    // Undefined while IsNull, but safe to ask: all answer 0 or null then.
    int   GetWidth() const;
    int   GetHeight() const;
    int   GetBPP() const;
    void* GetBits() const;     // first byte of the top row
    int   GetPitch() const;    // bytes from one row to the row below it; negative when stored bottom-up
    // The byte that a pixel begins in, 0,0 at the top left; null outside of the picture.
    void* GetPixelAddress(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= GetWidth() || y >= GetHeight())
            return nullptr;
        return static_cast<unsigned char*>(GetBits()) + static_cast<std::ptrdiff_t>(y) * GetPitch() +
               static_cast<std::ptrdiff_t>(x) * GetBPP() / 8;
    }

    // A memory context with the picture selected, for drawing on pictures of 24 and 32 bits. Null for
    // other depths. Every GetDC is paired with a ReleaseDC before Save or Destroy.
    HDC  GetDC() const;
    void ReleaseDC() const;

private:
    struct Picture;
    std::unique_ptr<Picture> Held;
};

}

using ATL::CImage;
