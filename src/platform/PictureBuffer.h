#pragma once

// The rows of a picture in memory, as files and CImage have them, on every platform.

#include "vostel/platform.h"

#include <cstddef>
#include <vector>

namespace vostel {

// Rows padded to four bytes. 1, 4 and 8 bits per pixel are indices into the palette, the left pixel in the
// high bits; 16 are five bits per channel, red highest; 24 and 32 are blue, green, red (, alpha) and lie in a
// section bitmap.
class PictureBuffer {
public:
    int  Width = 0;
    int  Height = 0;
    int  BitsPerPixel = 0;
    int  RowBytes = 0;
    bool BottomUp = true;
    bool HasAlpha = false;    // the fourth byte counts; otherwise it is padding

    RGBQUAD Palette[256] = {};

    PictureBuffer() = default;
    ~PictureBuffer();
    PictureBuffer(const PictureBuffer&) = delete;
    PictureBuffer& operator=(const PictureBuffer&) = delete;

    // Zeroed pixels and a palette of grays. False for a size that no memory holds.
    bool Allocate(int width, int height, int bitsPerPixel, bool bottomUp = true);
    void Release();

    unsigned char*       Row(int y);    // counted from the top
    const unsigned char* Row(int y) const { return const_cast<PictureBuffer*>(this)->Row(y); }
    int     Pitch() const { return BottomUp ? -RowBytes : RowBytes; }    // bytes to the row below
    HBITMAP Bitmap() const { return Section; }                           // null below 24 bits
    // The palette is a ramp from black to white, so that indices are gray levels.
    bool IsGray() const;

private:
    HBITMAP                    Section = nullptr;    // owned
    std::vector<unsigned char> Memory;
    unsigned char*             Lowest = nullptr;
};

// Whether a picture of that size is accepted: at most 2^28 pixels, which is 1 GiB of color.
bool IsSanePictureSize(long long width, long long height);

// Whether a file of fileBytes can decode to that many bytes: no codec expands by more than its maxFactor.
bool IsPlausible(long long decodedBytes, std::size_t fileBytes, long long maxFactor);

}
