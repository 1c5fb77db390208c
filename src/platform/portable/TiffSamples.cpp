// TIFF by libtiff, unpacked here. Gray of up to 8 bits becomes bytes, scaled where it has fewer; of up to 16
// bits it keeps its values, and beyond that, and float, it becomes float. Palettes, red-green-blue and press
// colors become bytes. Photometric kinds beside these go through the library's own conversion.

#include "platform/SampleCodecs.h"
#include "platform/portable/TiffPixels.h"
#include "platform/portable/TiffReading.h"

#include <algorithm>
#include <utility>

namespace vostel::pictures {
namespace {

constexpr int MostSamples = 64;    // of a pixel

// The colors of a palette. Some writers leave them in 8 bits.
bool ReadPalette(TIFF* tiff, const TiffLayout& layout, std::vector<unsigned>& palette)
{
    std::uint16_t *red = nullptr, *green = nullptr, *blue = nullptr;
    if (!TIFFGetField(tiff, TIFFTAG_COLORMAP, &red, &green, &blue))
        return false;
    const int count = 1 << layout.Bits;
    int       highest = 0;
    for (int i = 0; i < count; ++i)
        highest = std::max({highest, int{red[i]}, int{green[i]}, int{blue[i]}});
    const int shift = highest > 255 ? 8 : 0;
    for (int i = 0; i < count; ++i)
        palette.push_back(
            static_cast<unsigned>(red[i] >> shift << 16 | green[i] >> shift << 8 | blue[i] >> shift));
    return true;
}

PictureOutcome ReadConverted(TIFF* tiff, const TiffLayout& layout, ImageSamples& samples)
{
    std::vector<std::uint32_t> pixels;
    const PictureOutcome       read = ConvertPixels(tiff, layout, pixels);
    if (read != PictureOutcome::Taken)
        return read;
    unsigned char* target = samples.Data();
    for (const std::uint32_t pixel : pixels) {
        *target++ = static_cast<unsigned char>(TIFFGetR(pixel));
        *target++ = static_cast<unsigned char>(TIFFGetG(pixel));
        *target++ = static_cast<unsigned char>(TIFFGetB(pixel));
    }
    return PictureOutcome::Taken;
}

}

PictureOutcome DecodeTiffSamples(const SampleFile& file, ImageSamples& samples)
{
    TiffBytes        bytes{file.Bytes};
    const TiffHandle tiff = OpenTiff(bytes);
    if (!tiff)
        return PictureOutcome::BadFormat;
    if (file.Page > 0) {
        if (static_cast<tdir_t>(file.Page) >= TIFFNumberOfDirectories(tiff.get()))
            return PictureOutcome::NoSuchPage;
        if (!AreTagsWithin(file.Bytes, file.Page) ||
            !TIFFSetDirectory(tiff.get(), static_cast<tdir_t>(file.Page)))
            return PictureOutcome::BadFormat;
    }
    const TiffLayout layout = LayoutOf(tiff.get());
    if (layout.Width < 1 || layout.Height < 1 || layout.Bits < 1)
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, layout.Width, layout.Height))
        return PictureOutcome::TooLarge;
    if (layout.Samples > MostSamples || layout.Bits > 64 || !layout.IsSafe())
        return PictureOutcome::NotSupported;
    if (!CanHold(tiff.get(), layout, file.Bytes))
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, layout.Width, layout.Height, BytesOfPage(layout)))
        return PictureOutcome::TooLarge;
    file.CountWork(BytesOfBlocks(tiff.get()) + static_cast<std::int64_t>(layout.Width) * layout.Height);
    const bool           direct = layout.IsDirect();
    const SampleType     type = direct ? layout.Type() : SampleType::Rgb8;
    const PictureOutcome made = MakeSamples(file, type, layout.Width, layout.Height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    if (direct) {
        std::vector<unsigned> palette;
        if ((layout.IsPalette() && !ReadPalette(tiff.get(), layout, palette)) ||
            !UnpackPixels(tiff.get(), layout, samples))
            return PictureOutcome::BadFormat;
        if (layout.IsPalette())
            samples = ColorsOfIndices(std::move(samples), palette);
    } else {
        const PictureOutcome read = ReadConverted(tiff.get(), layout, samples);
        if (read != PictureOutcome::Taken)
            return read;
    }
    samples = Oriented(std::move(samples), layout.Orientation);
    return PictureOutcome::Taken;
}

PictureOutcome CountTiffPages(const SampleFile& file, int& pages)
{
    TiffBytes        bytes{file.Bytes};
    const TiffHandle tiff = OpenTiff(bytes);
    if (!tiff)
        return PictureOutcome::BadFormat;
    pages = static_cast<int>(TIFFNumberOfDirectories(tiff.get()));
    return PictureOutcome::Taken;
}

}
