#pragma once

/// @file
/// CImage, a picture held in memory, with the application framework's meaning, for compilers that do not
/// bring it.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstddef>
#include <memory>

/// Where the application framework keeps CImage.
namespace ATL {

/// A picture held in memory. Decoding and encoding are the platform's: GDI+ on Windows, a codec library per
/// format elsewhere: BMP, PNG, JPEG, GIF and TIFF. A picture keeps the depth of its file: palette and gray
/// pictures arrive with 1, 4 or 8 bits per pixel and their indices, true color with 24, alpha with 32, depths
/// that no display bitmap holds with 32.
class VOSTEL_API CImage {
public:
    /// An object without a picture.
    CImage();
    /// Frees the picture.
    ~CImage();
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;

    /// Reads a picture file. Returns a value below 0 when it cannot be read; the object then holds nothing.
    HRESULT Load(const wchar_t* path);

    /// Writes the picture in the format that the extension of the path names. Returns a value below 0 for an
    /// unknown extension, for a path that cannot be written, on Windows also because someone holds the file
    /// open, and where there is no memory (0x8007000E); the file that was there then stays.
    HRESULT Save(const wchar_t* path) const;

    /// Makes a blank picture of 8, 24 or 32 bits per pixel and frees what was held before. A positive height
    /// stores rows bottom-up, a negative one top-down. Returns false if there is no memory or a size is zero.
    bool Create(int width, int height, int bitsPerPixel);

    /// Frees the picture.
    void Destroy();
    /// Returns whether there is no picture.
    bool IsNull() const;

    /// Returns the width in pixels; 0 without a picture.
    int GetWidth() const;
    /// Returns the height in pixels; 0 without a picture.
    int GetHeight() const;
    /// Returns the bits per pixel; 0 without a picture.
    int GetBPP() const;
    /// Returns the first byte of the top row; null without a picture.
    void* GetBits() const;
    /// Returns the bytes from one row to the row below it, negative when stored bottom-up; 0 without a
    /// picture.
    int GetPitch() const;
    /// Returns the byte that a pixel begins in, 0, 0 at the top left; null outside of the picture.
    void* GetPixelAddress(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= GetWidth() || y >= GetHeight())
            return nullptr;
        return static_cast<unsigned char*>(GetBits()) + static_cast<std::ptrdiff_t>(y) * GetPitch() +
               static_cast<std::ptrdiff_t>(x) * GetBPP() / 8;
    }

    /// Returns a memory context with the picture selected, for drawing on pictures of 24 and 32 bits; null
    /// for other depths. It belongs to the picture; every GetDC is paired with a ReleaseDC before Save or
    /// Destroy.
    HDC GetDC() const;
    /// Gives the context of GetDC back.
    void ReleaseDC() const;

private:
    struct Picture;
    std::unique_ptr<Picture> Held;
};

}

using ATL::CImage;
