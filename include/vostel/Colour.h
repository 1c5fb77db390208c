#pragma once

// Colours as hosts meet them: a colour with a linear ramp, a table of such colours, a four-byte pixel,
// and the one formula by which the system turns colour into gray.

#include "vostel/export.h"

#include <cstdint>

// A pixel in memory order. The helpers below touch the three colour bytes only.
struct tagStructRGBA {
    std::uint8_t b = 0;
    std::uint8_t g = 0;
    std::uint8_t r = 0;
    std::uint8_t a = 0;
};
static_assert(sizeof(tagStructRGBA) == 4, "hosts copy colour tables by the byte");

VOSTEL_API void StructRGBAAssign(tagStructRGBA& c, int v);    // all three channels take the low byte of v
VOSTEL_API void StructRGBAAssign(tagStructRGBA& c, tagStructRGBA& from);
// Each channel becomes its product with f, truncated, low byte stored: no saturation.
VOSTEL_API void StructRGBAMul(tagStructRGBA& c, float& f);
VOSTEL_API void StructRGBAAdd(tagStructRGBA& c, tagStructRGBA& add);    // wraps in 8 bits

class VOSTEL_API ClassRGB {
public:
    std::uint8_t b, g, r;                // blue first in memory
    std::int32_t RangeCount;             // colours in the ramp
    float        RangeStep;              // 1 / (RangeCount - 1)
    float        StepR, StepG, StepB;    // change of a channel per ramp index

    ClassRGB() {}    // initialises nothing: tables of these are made in bulk and filled after
    ClassRGB(int red, int green, int blue);
    ClassRGB(const ClassRGB&) = default;
    ClassRGB& operator=(ClassRGB other);

    void SetColor(int red, int green, int blue);    // each truncated to a byte
    bool operator==(ClassRGB other) const;          // channels only
    int  GetDif(ClassRGB other) const;              // sum of absolute channel differences, 0..765

    // Prepares a ramp of count colours, at least 2, on this object.
    void SetColorHandle(int count, ClassRGB start, ClassRGB end);
    // Colour index of the prepared ramp, clamped to 0..count-1 and truncated per channel. The last
    // argument is not used: the steps of SetColorHandle are.
    ClassRGB GetRangeColor(int index, ClassRGB start, ClassRGB end) const;
    void     OutCanvas(const char*) const;    // does nothing

    // Named colours; each sets the three channels and nothing else.
    void SetBrown();
    void SetChocolate();
    void SetOrange();
    void SetTurky();
    void WindowsGray();    // the middle gray 128
    void Violet();
    void GrassGreen();
    void ForestGreen();
    void Mentha();
    void IndiaRed();
    void BrickRed();
    void DeepRed();    // magenta's values
    void OrangeRed();
    void Banana();
    void Red();
    void Green();
    void Blue();
    void White();
    void Black();
};

// A table of colours. Assignment copies the pointer: of two arrays that share one list only one may be
// destroyed with it.
class VOSTEL_API ClassRGBArray {
public:
    ClassRGB*    List = nullptr;    // Count colours, from new[]; owned
    std::int32_t Count = 255;       // 255 on a fresh array although List is null

    ClassRGBArray() = default;
    ~ClassRGBArray();
    ClassRGBArray(const ClassRGBArray&) = default;
    ClassRGBArray& operator=(const ClassRGBArray&) = default;

    // Makes a table of n + 1 colours. The table is not filled: the call only advances the C library's
    // random sequence by three draws a colour.
    void GenerateRGBArray(int n);
    // A colour from three draws of rand, red first, the later channels raised a little.
    ClassRGB ZEKrandom_rgb();
};

// gray = trunc(0.587 g + 0.299 r + 0.114 b), in double, added in that order.
VOSTEL_API void ColorToGrayPixel(int r, int g, int b, int& gray);
