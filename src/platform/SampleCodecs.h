#pragma once

// The decoders behind SamplePictures.h, and what they share. Each takes a whole file in memory; what the file
// claims is checked against the limits before anything is allocated. The samples are meaningless unless they
// were taken. Those of a TIFF come as its orientation tag wants them shown, all others as they are stored.

#include "platform/SamplePictures.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vostel::pictures {

struct SampleFile {
    std::span<const unsigned char> Bytes;
    int                            Page = 0;
    PictureLimits                  Limits;
    PaletteUse                     Palettes = PaletteUse::Colors;
    std::int64_t*                  Work = nullptr;    // where somebody counts it

    // Tells of samples, coefficients or bytes that are gone over.
    void CountWork(std::int64_t visits) const
    {
        if (Work)
            *Work += visits;
    }
};

// Ours, on every platform.
PictureOutcome DecodeBmpSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome DecodePnmSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome DecodeGifSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome CountGifPages(const SampleFile& file, int& pages);

// By the libraries of the platform.
PictureOutcome DecodePngSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome DecodeJpegSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome DecodeTiffSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome DecodeWebpSamples(const SampleFile& file, ImageSamples& samples);
PictureOutcome CountTiffPages(const SampleFile& file, int& pages);

// Whether a picture of sides of 1 or more is taken from the file.
inline bool IsWithin(const SampleFile& file, long long width, long long height, long long storedBytes = 0)
{
    return vostel::IsWithin(file.Limits, file.Bytes.size(), width, height, storedBytes);
}

// Allocates within the limits of the file; BadFormat for an empty picture.
PictureOutcome MakeSamples(const SampleFile& file, SampleType type, long long width, long long height,
                           ImageSamples& samples);

// A count of 0..top in 8 bits, to the nearest.
inline unsigned char ScaledByte(std::uint32_t value, std::uint32_t top)
{
    return static_cast<unsigned char>((std::uint64_t{value} * 255 + top / 2) / top);
}

// The colors of indices of 8 bits, 0x00RRGGBB; bytes if all of them are gray. Indices beyond are black.
ImageSamples ColorsOfIndices(ImageSamples&& indices, std::span<const unsigned> palette);
bool         IsGrayPalette(std::span<const unsigned> palette);

// The picture as an orientation tag of 1 to 8 wants it shown; other numbers leave it.
ImageSamples Oriented(ImageSamples&& samples, int orientation);
// The tag of a file; 1 without one.
int OrientationOfPng(std::span<const unsigned char> file);
int OrientationOfJpeg(std::span<const unsigned char> file);
int OrientationOfWebp(std::span<const unsigned char> file);
// The tag of a page of a TIFF with addresses of 32 bits; 1 without one.
int OrientationOfTiff(std::span<const unsigned char> file, int page);

}
