#pragma once

#include <cstddef>

namespace vostel {

// The forms of PlaneUploads.h. A planes row reads count bytes of each of its three pointers.
void GrayRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void TripleRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void QuadRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void PlanesRowPlain(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                    unsigned* pixels, std::size_t count, bool streaming);

void GrayRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void TripleRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void QuadRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming);
void PlanesRowAvx2(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                   unsigned* pixels, std::size_t count, bool streaming);

// The form in use.
struct PlaneUploadsVariants {
    decltype(&GrayRowPlain)   Gray;
    decltype(&TripleRowPlain) Triple;
    decltype(&QuadRowPlain)   Quad;
    decltype(&PlanesRowPlain) Planes;
};
const PlaneUploadsVariants& ActivePlaneUploadsVariants();

}
