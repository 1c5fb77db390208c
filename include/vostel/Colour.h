#pragma once

/// @file
/// Colors as hosts meet them: a pixel of four bytes, a color with a linear ramp, a table of colors, and the
/// one formula by which the library turns color into gray.

#include "vostel/export.h"

#include <cstdint>

/// A pixel in memory order. The functions below touch the three color bytes only.
struct tagStructRGBA {
    std::uint8_t b = 0;    ///< blue
    std::uint8_t g = 0;    ///< green
    std::uint8_t r = 0;    ///< red
    std::uint8_t a = 0;    ///< alpha; the library does not use it
};
static_assert(sizeof(tagStructRGBA) == 4, "hosts copy color tables by the byte");

/// Sets all three channels to the low byte of v.
VOSTEL_API void StructRGBAAssign(tagStructRGBA& c, int v);
/// Copies the three channels.
VOSTEL_API void StructRGBAAssign(tagStructRGBA& c, tagStructRGBA& from);
/// Multiplies each channel by f, truncates and stores the low byte: no saturation.
VOSTEL_API void StructRGBAMul(tagStructRGBA& c, float& f);
/// Adds channel by channel; the sums wrap round in 8 bits.
VOSTEL_API void StructRGBAAdd(tagStructRGBA& c, tagStructRGBA& add);

/// A color of three bytes that can also run a linear ramp between two colors.
class VOSTEL_API ClassRGB {
public:
    std::uint8_t b;             ///< blue, first in memory
    std::uint8_t g;             ///< green
    std::uint8_t r;             ///< red
    std::int32_t RangeCount;    ///< colors in the ramp
    float        RangeStep;     ///< 1 / (RangeCount - 1)
    float        StepR;         ///< change of red per ramp index
    float        StepG;         ///< change of green per ramp index
    float        StepB;         ///< change of blue per ramp index

    /// Initialises nothing: tables of these are made in bulk and filled after.
    ClassRGB() {}
    /// A color by its channels, each cut to its low byte; without a ramp.
    ClassRGB(int red, int green, int blue);
    /// Copies all fields.
    ClassRGB(const ClassRGB&) = default;
    /// Copies all fields.
    ClassRGB& operator=(ClassRGB other);

    /// Sets the channels, each cut to its low byte.
    void SetColor(int red, int green, int blue);
    /// Returns whether the channels are equal; the ramps do not count.
    bool operator==(ClassRGB other) const;
    /// Returns the sum of the absolute channel differences, 0..765.
    int GetDif(ClassRGB other) const;

    /// Prepares a ramp of count colors, at least 2, on this object.
    void SetColorHandle(int count, ClassRGB start, ClassRGB end);
    /// Returns a color of the prepared ramp, from start on, by an index that is clamped to 0..count-1; each
    /// channel is truncated. The last argument is not used: the steps of SetColorHandle are.
    ClassRGB GetRangeColor(int index, ClassRGB start, ClassRGB end) const;
    /// Does nothing.
    void OutCanvas(const char*) const;

    /// Sets the channels to 128, 42, 42, as all named colors set the channels and nothing else.
    void SetBrown();
    void SetChocolate();    ///< 210, 105, 30
    void SetOrange();       ///< 255, 128, 0
    void SetTurky();        ///< 0, 199, 140
    void WindowsGray();     ///< 128, 128, 128
    void Violet();          ///< 160, 32, 240
    void GrassGreen();      ///< 124, 252, 0
    void ForestGreen();     ///< 34, 139, 34
    void Mentha();          ///< 189, 252, 201
    void IndiaRed();        ///< 176, 23, 31
    void BrickRed();        ///< 156, 102, 31
    void DeepRed();         ///< 255, 0, 255: magenta's values
    void OrangeRed();       ///< 255, 69, 0
    void Banana();          ///< 227, 207, 87
    void Red();             ///< 255, 0, 0
    void Green();           ///< 0, 255, 0
    void Blue();            ///< 0, 0, 255
    void White();           ///< 255, 255, 255
    void Black();           ///< 0, 0, 0
};

/// A table of colors. Copying and assigning copy the pointer: of two arrays that share one list only one may
/// be destroyed with it.
class VOSTEL_API ClassRGBArray {
public:
    ClassRGB*    List = nullptr;    ///< Count colors, from new[]; owned
    std::int32_t Count = 255;       ///< colors of List; 255 on a fresh array although List is null

    /// An array without a list.
    ClassRGBArray() = default;
    /// Frees the list.
    ~ClassRGBArray();
    /// Shares the other's list.
    ClassRGBArray(const ClassRGBArray&) = default;
    /// Shares the other's list; the one held before is not freed.
    ClassRGBArray& operator=(const ClassRGBArray&) = default;

    /// Makes a table of n + 1 colors. The table is not filled: the call only advances the C library's random
    /// sequence by three draws per color.
    void GenerateRGBArray(int n);
    /// Returns a color from three draws of rand, red first, the later channels raised a little.
    ClassRGB ZEKrandom_rgb();
};

/// Sets gray to trunc(0.587 g + 0.299 r + 0.114 b), in double, added in that order: the weights of ITU-R
/// BT.601.
VOSTEL_API void ColorToGrayPixel(int r, int g, int b, int& gray);
