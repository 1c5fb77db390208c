#include "output/PlaneUploads.h"

#include "base/CpuVariants.h"
#include "output/PlaneUploadsVariants.h"

#include <algorithm>

namespace vostel {

namespace {

// Bytes of a plane that can be read from offset on.
std::size_t Behind(const unsigned char* plane, std::size_t bytes, std::size_t offset)
{
    return plane != nullptr && bytes > offset ? bytes - offset : 0;
}

unsigned ByteOrZero(const unsigned char* plane, std::size_t bytes, std::size_t position)
{
    return Behind(plane, bytes, position) > 0 ? plane[position] : 0u;
}

}

void GrayRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = source[x] * 0x010101u;
}

void TripleRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = source[3 * x] | source[3 * x + 1] << 8 | source[3 * x + 2] << 16;
}

void QuadRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = source[4 * x] | source[4 * x + 1] << 8 | source[4 * x + 2] << 16;
}

void PlanesRowPlain(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                    unsigned* pixels, std::size_t count, bool)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = high[x] << 16 | middle[x] << 8 | low[x];
}

const PlaneUploadsVariants& ActivePlaneUploadsVariants()
{
    static const PlaneUploadsVariants plain = {GrayRowPlain, TripleRowPlain, QuadRowPlain, PlanesRowPlain};
#if defined(__x86_64__) || defined(_M_X64)
    static const PlaneUploadsVariants avx2 = {GrayRowAvx2, TripleRowAvx2, QuadRowAvx2, PlanesRowAvx2};
    if (ActiveCpuVariant() >= CpuVariant::Avx2)    // wider registers do not pay: memory is the limit
        return avx2;
#endif
    return plain;
}

void UploadGrayRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadsVariants().Gray(source, pixels, static_cast<std::size_t>(count), streaming);
}

void UploadTripleRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadsVariants().Triple(source, pixels, static_cast<std::size_t>(count), streaming);
}

void UploadQuadRow(const unsigned char* source, unsigned* pixels, int count, bool streaming)
{
    if (count > 0)
        ActivePlaneUploadsVariants().Quad(source, pixels, static_cast<std::size_t>(count), streaming);
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
        ActivePlaneUploadsVariants().Planes(red, green + 1, blue + 2, pixels, whole, streaming);
    for (std::size_t x = whole; x < all; ++x)
        pixels[x] = ByteOrZero(red, redBytes, x) << 16 | ByteOrZero(green, greenBytes, x + 1) << 8 |
                    ByteOrZero(blue, blueBytes, x + 2);
}

}
