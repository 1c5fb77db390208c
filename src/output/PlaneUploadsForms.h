#pragma once

#include <cstddef>

// The forms of PlaneUploads.h. A planes row reads count bytes of each of its three pointers.
void GrayRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void TripleRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void QuadRowPlain(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void PlanesRowPlain(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                    unsigned* pixels, std::size_t count, bool pastCaches);

void GrayRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void TripleRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void QuadRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool pastCaches);
void PlanesRowAvx2(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                   unsigned* pixels, std::size_t count, bool pastCaches);

// The form in use.
struct PlaneUploadsForms {
    decltype(&GrayRowPlain)   Gray;
    decltype(&TripleRowPlain) Triple;
    decltype(&QuadRowPlain)   Quad;
    decltype(&PlanesRowPlain) Planes;
};
const PlaneUploadsForms& ActivePlaneUploadsForms();
