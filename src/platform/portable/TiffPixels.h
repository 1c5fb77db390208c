#pragma once

// A page of a TIFF: what its tags say, and its pixels out of strips or tiles.

#include "platform/SampleCodecs.h"

#include <tiffio.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vostel::pictures {

struct TiffLayout {
    std::uint32_t Width = 0, Height = 0;
    std::uint16_t Bits = 1, Samples = 1, Planes = PLANARCONFIG_CONTIG, Format = SAMPLEFORMAT_UINT;
    std::uint16_t Photometric = PHOTOMETRIC_MINISBLACK, Compression = COMPRESSION_NONE;
    std::uint16_t Orientation = ORIENTATION_TOPLEFT;
    std::uint16_t Extra = 0;     // samples behind those that show
    int           Alpha = -1;    // the sample that holds it

    bool IsSeparate() const { return Planes == PLANARCONFIG_SEPARATE; }
    bool IsFloat() const { return Format == SAMPLEFORMAT_IEEEFP; }
    bool IsSigned() const { return Format == SAMPLEFORMAT_INT; }
    bool IsGray() const
    {
        return Photometric == PHOTOMETRIC_MINISBLACK || Photometric == PHOTOMETRIC_MINISWHITE;
    }
    bool IsPalette() const { return Photometric == PHOTOMETRIC_PALETTE && Bits <= 8; }
    bool IsPress() const { return Photometric == PHOTOMETRIC_SEPARATED; }
    // The decoder of JBIG ends the process where it finds no memory for sizes that the data claims.
    bool IsSafe() const { return Compression != COMPRESSION_JBIG; }
    // Samples that show.
    int Channels() const { return IsGray() || IsPalette() ? 1 : IsPress() ? 4 : 3; }
    // Whether the samples are unpacked here.
    bool IsDirect() const
    {
        const bool known = IsGray() || IsPalette() || Photometric == PHOTOMETRIC_RGB || IsPress();
        const bool depth =
            IsFloat() ? Bits == 16 || Bits == 24 || Bits == 32 || Bits == 64 : Bits <= 32 || Bits == 64;
        return known && depth && Bits >= 1 && Format <= SAMPLEFORMAT_VOID && Samples >= Channels();
    }
    // Of what open images hold.
    SampleType Type() const
    {
        if (!IsGray())
            return IsPalette()                ? SampleType::U8
                   : Alpha == 3 && !IsPress() ? SampleType::Bgra8
                                              : SampleType::Rgb8;
        if (IsFloat() || Bits > 16)
            return SampleType::F32;
        return IsSigned() ? SampleType::I16 : Bits > 8 ? SampleType::U16 : SampleType::U8;
    }
};

TiffLayout LayoutOf(TIFF* tiff);

// All samples of a page, and the bytes of all its blocks once they are unpacked; INT64_MAX / 8 at most.
std::int64_t BytesOfPage(const TiffLayout& layout);
std::int64_t BytesOfBlocks(TIFF* tiff);

// Whether the file can hold such a page, and whether its blocks, which are unpacked as a whole, take memory
// and time of the page's order.
bool CanHold(TIFF* tiff, const TiffLayout& layout, std::span<const unsigned char> file);

// Unpacks a page that is direct, as it is stored, into samples of its type, or of Bgra8 if it has no palette;
// the alpha of those stays as it was where the page has none.
bool UnpackPixels(TIFF* tiff, const TiffLayout& layout, ImageSamples& samples);

// The pixels as they are stored by the library's own conversion, to be taken apart by TIFFGetR and the like.
// Neither are they turned by the orientation tag nor colors multiplied by alpha.
PictureOutcome ConvertPixels(TIFF* tiff, const TiffLayout& layout, std::vector<std::uint32_t>& pixels);

}
