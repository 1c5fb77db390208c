#pragma once

// A picture in memory and the codecs that read and write it, one source per format. Each codec takes a
// whole file in memory: what the file claims is held against its length before anything is allocated.

#include "vostel/platform.h"

#include <cstddef>
#include <vector>

namespace vostel::pictures {

using Bytes = std::vector<unsigned char>;

// Rows padded to four bytes. 1, 4 and 8 bits a pixel are indices into the palette, the left pixel in the
// high bits; 16 are words of five bits a channel, red highest; 24 and 32 are blue, green, red (, alpha)
// and lie in a section bitmap.
class Picture {
public:
    int  Width = 0;
    int  Height = 0;
    int  BitsPerPixel = 0;
    int  RowBytes = 0;
    bool BottomUp = true;
    bool HasAlpha = false;    // the fourth byte counts; otherwise it is padding

    RGBQUAD Palette[256] = {};

    Picture() = default;
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    // Zeroed pixels and a palette of grays. False for a size that no memory holds.
    bool Allocate(int width, int height, int bitsPerPixel, bool bottomUp = true);
    void Release();

    unsigned char*       Row(int y);    // counted from the top
    const unsigned char* Row(int y) const { return const_cast<Picture*>(this)->Row(y); }
    HBITMAP              Bitmap() const { return Section; }
    // The palette is a ramp from black to white, so that indices are gray levels.
    bool IsGray() const;

private:
    HBITMAP        Section = nullptr;    // owned
    Bytes          Memory;
    unsigned char* Lowest = nullptr;
};

// Sizes that are taken up at all: at most 2^28 pixels, which is 1 GiB of colour.
bool IsSaneSize(long long width, long long height);

// Whether a file of so many bytes can really hold so many: every codec has an utmost factor.
bool IsPlausible(long long decodedBytes, std::size_t fileBytes, long long utmostFactor);

// False when the bytes are not that format, damaged or cut short; the picture is then to be released.
bool DecodeBmp(const Bytes& file, Picture& picture);
bool DecodePng(const Bytes& file, Picture& picture);
bool DecodeJpeg(const Bytes& file, Picture& picture);
bool DecodeTiff(const Bytes& file, Picture& picture);
bool DecodeGif(const Bytes& file, Picture& picture);

// Append to the file.
bool EncodeBmp(const Picture& picture, Bytes& file);
// What stands before the rows, which follow from the lowest to the top one.
void EncodeBmpHead(const Picture& picture, Bytes& file);
bool EncodePng(const Picture& picture, Bytes& file);
bool EncodeJpeg(const Picture& picture, Bytes& file);
bool EncodeTiff(const Picture& picture, Bytes& file);
bool EncodeGif(const Picture& picture, Bytes& file);

// One row as blue, green, red triples whatever the depth.
void ColourRow(const Picture& picture, int y, unsigned char* triples);
// One row of a picture of up to 8 bits as a byte per index.
void IndexRow(const Picture& picture, int y, unsigned char* indices);

}
