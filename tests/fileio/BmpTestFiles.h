#pragma once

// Bitmap files made byte by byte, and what reading them must give, for the tests of the BMP files.

#include <VostelObj.h>

#include "support/TempFolder.h"

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace bmp_test {

using Plane = ClassData2DIO<unsigned char>;
using Bytes = std::vector<unsigned char>;

// The interface takes some of its paths without const.
inline char* Narrow(std::string& path)
{
    return path.data();
}

inline void Put(Bytes& bytes, std::size_t at, int count, unsigned value)
{
    for (int i = 0; i < count; ++i)
        bytes[at + static_cast<std::size_t>(i)] = static_cast<unsigned char>(value >> 8 * i);
}

inline unsigned Get(const Bytes& bytes, std::size_t at, int count)
{
    unsigned value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | bytes[at + static_cast<std::size_t>(i)];
    return value;
}

inline long long RowBytesOf(long long bits, long long width)
{
    return (bits * width / 8 + 3) / 4 * 4;
}

// A header with size and depth; all else is noise, which every reader has to ignore.
inline Bytes NoisyHeader(std::mt19937& random, int width, int height, int bits)
{
    Bytes bytes(bits == 8 ? 54 + 1024 : 54);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    Put(bytes, 18, 4, static_cast<unsigned>(width));
    Put(bytes, 22, 4, static_cast<unsigned>(height));
    Put(bytes, 28, 2, static_cast<unsigned>(bits));
    return bytes;
}

inline Bytes NoisyFile(std::mt19937& random, int width, int height, int bits)
{
    Bytes bytes = NoisyHeader(random, width, height, bits);
    for (long long left = RowBytesOf(bits, width) * height; left > 0; --left)
        bytes.push_back(static_cast<unsigned char>(random()));
    return bytes;
}

// Channel 0 is blue. What the file does not hold is zero.
inline unsigned char PixelOf(const Bytes& bytes, int x, int y, int channel)
{
    const int       bits = static_cast<int>(Get(bytes, 28, 2));
    const long long row = RowBytesOf(bits, static_cast<int>(Get(bytes, 18, 4))) * y;
    long long       at = 54 + row + x * (bits / 8) + channel;
    if (bits == 8)
        at = 54 + 1024 + row + x;
    else if (bits != 24 && bits != 32)
        return 0;
    return at < static_cast<long long>(bytes.size()) ? bytes[static_cast<std::size_t>(at)] : 0;
}

inline bool HoldsChannel(Plane& plane, const Bytes& bytes, int channel)
{
    for (int y = 0; y < plane.Height; ++y)
        for (int x = 0; x < plane.Width; ++x)
            if (plane.Ptr2D[y][x] != PixelOf(bytes, x, y, channel))
                return false;
    return true;
}

inline bool IsClear(Plane& plane)
{
    for (int y = 0; y < plane.Height; ++y)
        for (int x = 0; x < plane.Width; ++x)
            if (plane.Ptr2D[y][x] != 0)
                return false;
    return true;
}

inline bool HasSize(const Plane& plane, int width, int height)
{
    return plane.Width == width && plane.Height == height;
}

inline bool IsEmpty(const Plane& plane)
{
    return !plane.Ptr1D && !plane.Ptr2D && HasSize(plane, -1, -1);
}

struct Color {
    Plane Red, Green, Blue, Alpha;
    bool  Read(std::string path) { return ZEKReadColorBmp(Narrow(path), &Red, &Green, &Blue, &Alpha); }
    bool  HasSizes(int width, int height) const
    {
        return HasSize(Red, width, height) && HasSize(Green, width, height) && HasSize(Blue, width, height) &&
               HasSize(Alpha, width, height);
    }
    bool Holds(const Bytes& bytes)
    {
        return HoldsChannel(Blue, bytes, 0) && HoldsChannel(Green, bytes, 1) && HoldsChannel(Red, bytes, 2) &&
               IsClear(Alpha);
    }
    bool AllEmpty() const { return IsEmpty(Red) && IsEmpty(Green) && IsEmpty(Blue) && IsEmpty(Alpha); }
};

inline void FillRandom(Plane& plane, int width, int height, std::mt19937& random)
{
    plane.Allocate(width, height);
    for (int i = 0; i < width * height; ++i)
        plane.Ptr1D[i] = static_cast<unsigned char>(random());
}

inline bool SamePixels(Plane& a, Plane& b)
{
    return HasSize(a, b.Width, b.Height) &&
           std::memcmp(a.Ptr1D, b.Ptr1D,
                       static_cast<std::size_t>(a.Width) * static_cast<std::size_t>(a.Height)) == 0;
}

inline Bytes SavedGray(const TempFolder& folder, Plane& gray)
{
    std::string path = folder.Path("saved-gray.bmp");
    return ZEKSaveGrayBmp(Narrow(path), gray) ? ReadBytes(path) : Bytes();
}

inline Bytes SavedColor(const TempFolder& folder, Plane& red, Plane& green, Plane& blue)
{
    const std::string path = folder.Path("saved-color.bmp");
    return ZEKSaveColorBmp(path.c_str(), &red, &green, &blue) ? ReadBytes(path) : Bytes();
}

inline int GrayOf(int r, int g, int b)
{
    int gray = -1;
    ColorToGrayPixel(r, g, b, gray);
    return gray;
}

}
