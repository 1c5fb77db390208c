#include "output/PlaneUploads.h"

#include "base/CpuVariants.h"

#include <algorithm>

namespace vostel {

namespace {

// Bytes of a plane that can be read from offset on.
std::size_t Behind(const unsigned char* plane, std::size_t bytes, std::size_t offset)
{
    return plane && bytes > offset ? bytes - offset : 0;
}

unsigned ByteOrZero(const unsigned char* plane, std::size_t bytes, std::size_t position)
{
    return Behind(plane, bytes, position) > 0 ? plane[position] : 0u;
}

unsigned Pixel(unsigned low, unsigned middle, unsigned high)
{
    return low | middle << 8 | high << 16;
}

void GrayRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = source[x] * 0x010101u;
}

void TripleRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = Pixel(source[3 * x], source[3 * x + 1], source[3 * x + 2]);
}

void QuadRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = Pixel(source[4 * x], source[4 * x + 1], source[4 * x + 2]);
}

void PlanesRow(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
               unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = Pixel(low[x], middle[x], high[x]);
}

}

const PlaneUploadVariant PlaneUploadPlain = {
    .Gray = GrayRow, .Triple = TripleRow, .Quad = QuadRow, .Planes = PlanesRow};

// Registers wider than AVX2's do not pay: memory is the limit.
const PlaneUploadVariant& ActivePlaneUploadVariant()
{
    return Choose<PlaneUploadVariant>({.Plain = &PlaneUploadPlain, .Avx2 = VOSTEL_X86(&PlaneUploadAvx2)});
}

void UploadGrayRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadVariant().Gray(source, pixels, static_cast<std::size_t>(count), streaming);
}

void UploadTripleRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadVariant().Triple(source, pixels, static_cast<std::size_t>(count), streaming);
}

void UploadQuadRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadVariant().Quad(source, pixels, static_cast<std::size_t>(count), streaming);
}

void UploadPlanesRow(const unsigned char* red, std::size_t redBytes, const unsigned char* green,
                     std::size_t greenBytes, const unsigned char* blue, std::size_t blueBytes,
                     unsigned* pixels, int count, bool streaming)
{
    if (count <= 0)
        return;
    const std::size_t all = static_cast<std::size_t>(count);
    const std::size_t whole =
        std::min({all, Behind(red, redBytes, 0), Behind(green, greenBytes, 1), Behind(blue, blueBytes, 2)});
    if (whole > 0)
        ActivePlaneUploadVariant().Planes(red, green + 1, blue + 2, pixels, whole, streaming);
    for (std::size_t x = whole; x < all; ++x)
        pixels[x] = Pixel(ByteOrZero(blue, blueBytes, x + 2), ByteOrZero(green, greenBytes, x + 1),
                          ByteOrZero(red, redBytes, x));
}

}
