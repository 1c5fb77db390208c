#pragma once

#include <cstddef>

namespace vostel {

// Byte rows into rows of a surface: 32-bit pixels with the first byte lowest and the high byte zero. With
// streaming (see PixelFill.h), FenceStreamingStores has to follow the last row.

// v | v<<8 | v<<16.
void UploadGrayRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);

// Three and four bytes per pixel; the fourth is dropped.
void UploadTripleRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);
void UploadQuadRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);

// red[x]<<16 | green[x+1]<<8 | blue[x+2], of planes with so many bytes readable from the row's start on: at
// the right edge the reads run on into the next row of the plane, and beyond what is readable they give zero.
// A null plane has nothing readable.
void UploadPlanesRow(const unsigned char* red, std::size_t redBytes, const unsigned char* green,
                     std::size_t greenBytes, const unsigned char* blue, std::size_t blueBytes,
                     unsigned* pixels, int count, bool streaming = false);

// The same for count above 0; a planes row reads count bytes of each of its three pointers.
struct PlaneUploadVariant {
    void (*Gray)(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
    void (*Triple)(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
    void (*Quad)(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
    void (*Planes)(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                   unsigned* pixels, std::size_t count, bool streaming);
};
const PlaneUploadVariant& ActivePlaneUploadVariant();

extern const PlaneUploadVariant PlaneUploadPlain;
extern const PlaneUploadVariant PlaneUploadAvx2;

}
