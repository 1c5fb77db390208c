#pragma once

// Where things stand in a .roi file, and their values.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vostel::imagej {

constexpr std::string_view Signature = "Iout";

constexpr double PixelCentre = 0.5;    // image px, where lines and points have their whole numbers

// The first header.
namespace at {
constexpr std::size_t Version = 4;
constexpr std::size_t Type = 6;
constexpr std::size_t Top = 8;
constexpr std::size_t Left = 10;
constexpr std::size_t Bottom = 12;
constexpr std::size_t Right = 14;
constexpr std::size_t Count = 16;
constexpr std::size_t Ends = 18;          // 4 floats: two ends, or x, y, width and height
constexpr std::size_t LargeCount = 18;    // where the count of 16 bits is 0
constexpr std::size_t StrokeWidth = 34;
constexpr std::size_t ShapeSize = 36;    // not 0 in composite shapes
constexpr std::size_t StrokeColor = 40;
constexpr std::size_t FillColor = 44;
constexpr std::size_t Subtype = 48;
constexpr std::size_t Options = 50;
constexpr std::size_t ArcSize = 54;    // of rounded rectangles
constexpr std::size_t Position = 56;
constexpr std::size_t SecondHeader = 60;
constexpr std::size_t HeaderSize = 64;
}

// The second header, counted from its beginning.
namespace at2 {
constexpr std::size_t Channel = 4;
constexpr std::size_t Slice = 8;
constexpr std::size_t Frame = 12;
constexpr std::size_t NamePlace = 16;
constexpr std::size_t NameLength = 20;
constexpr std::size_t StrokeWidth = 36;
constexpr std::size_t LeastSize = 24;    // that ends behind the name's length
constexpr std::size_t HeaderSize = 64;
}

enum Type : int {
    Polygon = 0,
    Rectangle = 1,
    Oval = 2,
    Line = 3,
    FreeLine = 4,
    Polyline = 5,
    Freehand = 7,
    Traced = 8,
    Angle = 9,
    Point = 10
};

enum Subtype : int { Plain = 0, Text = 1, Arrow = 2, Ellipse = 3, Image = 4, RotatedRectangle = 5 };

enum Option : int { SplineFit = 1, DoubleHeaded = 2, SubPixel = 128, DrawOffset = 256 };

// Whole coordinates are of 16 bits; those below the lowest are read as unsigned.
constexpr int LowestWhole = -5000;
constexpr int HighestWhole = 60535;

constexpr int FirstSubPixel = 222;       // versions since which coordinates may have fractions
constexpr int FirstSubPixelBox = 223;    // boxes too
constexpr int FirstSecondHeader = 218;
constexpr int WrittenVersion = 228;

}
