#pragma once

// The codecs that read and write pictures, one source per format. Each takes a whole file in memory: what
// the file claims is checked against its length before anything is allocated.

#include "platform/PictureBuffer.h"

#include <cstddef>
#include <vector>

namespace vostel::pictures {

using Bytes = std::vector<unsigned char>;

// False when the bytes are not that format, damaged or cut short; the picture is then to be released.
bool DecodeBmp(const Bytes& file, PictureBuffer& picture);
bool DecodePng(const Bytes& file, PictureBuffer& picture);
bool DecodeJpeg(const Bytes& file, PictureBuffer& picture);
bool DecodeTiff(const Bytes& file, PictureBuffer& picture);
bool DecodeGif(const Bytes& file, PictureBuffer& picture);

// Append to the file.
bool EncodeBmp(const PictureBuffer& picture, Bytes& file);
// What stands before the rows, which follow from the lowest to the top one.
void EncodeBmpHead(const PictureBuffer& picture, Bytes& file);
bool EncodePng(const PictureBuffer& picture, Bytes& file);
bool EncodeJpeg(const PictureBuffer& picture, Bytes& file);
bool EncodeTiff(const PictureBuffer& picture, Bytes& file);
bool EncodeGif(const PictureBuffer& picture, Bytes& file);

// Whether CImage takes a picture of that size, and stored in so many bytes, from the file.
bool IsTaken(const Bytes& file, long long width, long long height, long long storedBytes = 0);

// One row as blue, green, red triples whatever the depth.
void ColorRow(const PictureBuffer& picture, int y, unsigned char* triples);
// One row of a picture of up to 8 bits as a byte per index.
void IndexRow(const PictureBuffer& picture, int y, unsigned char* indices);

}
