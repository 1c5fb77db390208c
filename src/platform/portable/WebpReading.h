#pragma once

// What a WebP asks of its codec beyond the pixels, which has to be known before it is decoded.

#include <cstddef>
#include <cstdint>
#include <span>

namespace vostel::pictures {

struct WebpSize {
    std::uint32_t Width = 0, Height = 0;
};

// Of a file; 0 x 0 for what is none.
WebpSize SizeOfWebp(std::span<const unsigned char> file);

// A lossless picture, or the alpha of another one, may name 65,536 groups of prefix codes, which take three
// bytes of the file each and up to 20 KB of the codec's memory.
struct WebpCodes {
    bool         Valid = false;    // false: damaged before the end of what is read here
    std::int64_t Bytes = 0;        // of memory that all groups take
};

// Of a file and the size of its picture. Pictures that have no room for groups that count are not read.
WebpCodes CodesOfWebp(std::span<const unsigned char> file, int width, int height);

// What the groups may take within the budget of a picture.
std::int64_t MostBytesOfCodes(std::int64_t pixels);

}
