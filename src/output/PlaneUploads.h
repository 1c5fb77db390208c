#pragma once

#include <cstddef>

namespace vostel {

// Byte rows into rows of a surface: words with the first byte of a pixel lowest and the high byte zero. With
// streaming (see PixelFill.h), FenceStreamingStores has to follow the last row.

// v | v<<8 | v<<16.
void UploadGrayRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);

// Three and four bytes a pixel; the fourth is dropped.
void UploadTripleRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);
void UploadQuadRow(const unsigned char* source, unsigned* pixels, int count, bool streaming = false);

// red[x]<<16 | green[x+1]<<8 | blue[x+2], of planes with so many bytes readable from the row's start on: at
// the right edge the reads run on into the next row of the plane, and beyond what is readable they give zero.
// A null plane has nothing readable.
void UploadPlanesRow(const unsigned char* red, std::size_t redBytes, const unsigned char* green,
                     std::size_t greenBytes, const unsigned char* blue, std::size_t blueBytes,
                     unsigned* pixels, int count, bool streaming = false);

}
