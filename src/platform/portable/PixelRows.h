#pragma once

// Rows of pixels between bitmaps of different depths, by way of 32-bit pixels.

#include "platform/portable/PortableContext.h"

namespace vostel::gdi {

// What a copy is between, and the three colors that only 1-bit bitmaps ask for.
struct PixelCopy {
    const Bitmap* Target = nullptr;
    const Bitmap* Source = nullptr;
    COLORREF      Ink = 0;             // the target context's text color: bits 0 of a 1-bit source
    COLORREF      Paper = 0xFFFFFF;    // the target context's background: bits 1 of a 1-bit source
    COLORREF      Key = 0xFFFFFF;      // the source context's background: becomes 1 in a 1-bit target
};

// Pixels x .. x + count - 1 of source row y. The high byte is 0 unless the source has 32 bits per pixel.
void LoadWords(std::uint32_t* words, const PixelCopy& copy, int y, int x, int count);

// Stores 32-bit pixels into pixels x .. x + count - 1 of target row y.
void StoreWords(const PixelCopy& copy, int y, int x, const std::uint32_t* words, int count);

}
