#include "fileio/ImageFiles.h"

#include "base/Failure.h"
#include "foundation/Limits.h"
#include "platform/Files.h"

#include <algorithm>
#include <bit>

namespace vostel {

namespace {

PictureLimits LimitsOfPictures()
{
    const Limits limits = LimitsInForce();
    return {limits.MaxSide, limits.MaxPixels, limits.MaxFileBytes,
            limits.MaxMemory > 0 ? limits.MaxMemory : INT64_MAX};
}

void NeedTaken(PictureOutcome outcome, const std::string& path, int page)
{
    switch (outcome) {
    case PictureOutcome::Taken:
        return;
    case PictureOutcome::NotRead:
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    case PictureOutcome::BadFormat:
        Fail(VOSTEL_BAD_FORMAT, "\"" + path + "\" is no picture, or damaged");
    case PictureOutcome::TooLarge:
        Fail(VOSTEL_TOO_LARGE, "\"" + path + "\" is beyond the limits");
    case PictureOutcome::NotSupported:
        Fail(VOSTEL_NOT_SUPPORTED, "\"" + path + "\" is a picture of a kind that is not supported");
    case PictureOutcome::NoSuchPage:
        Fail(VOSTEL_NOT_FOUND, "\"" + path + "\" has no page " + std::to_string(page));
    }
}

}

ImageSamples ReadImagePage(const std::string& path, int page, PaletteUse palettes)
{
    ImageSamples samples;
    NeedTaken(ReadPicture(path.c_str(), page, LimitsOfPictures(), samples, palettes), path, page);
    return samples;
}

int CountImagePages(const std::string& path)
{
    int count = 0;
    NeedTaken(CountPages(path.c_str(), LimitsOfPictures(), count), path, 0);
    return count;
}

OwnedFile OpenRawFile(const std::string& path, const RawLayout& layout)
{
    const Limits limits = LimitsInForce();
    if (layout.Width > limits.MaxSide || layout.Height > limits.MaxSide ||
        layout.Width > limits.MaxPixels / layout.Height)
        Fail(VOSTEL_TOO_LARGE, "layout->width and layout->height are beyond the limits");
    OwnedFile       file = OpenUtf8File(path.c_str(), "rb");
    const long long length = file ? FileLength(file.get()) : -1;
    if (length < 0)
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    if (length > limits.MaxFileBytes)
        Fail(VOSTEL_TOO_LARGE, "\"" + path + "\" is beyond the limits");
    const long long bytes = static_cast<long long>(PixelBytes(layout.Type)) * layout.Width * layout.Height;
    if (layout.Offset > length - bytes)
        Fail(VOSTEL_BAD_FORMAT, "\"" + path + "\" is shorter than its layout");
    // All reads are large, so that the stream's own buffer would only be one more copy.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    if (!SeekFile(file.get(), layout.Offset))
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    return file;
}

void ReadRawBytes(std::FILE* file, const std::string& path, const RawLayout& layout, unsigned char* samples,
                  std::size_t bytes)
{
    if (std::fread(samples, 1, bytes, file) != bytes)
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    const std::size_t sampleBytes = IsColor(layout.Type) ? 1 : PixelBytes(layout.Type);
    if (sampleBytes == 1 || layout.BigEndian == (std::endian::native == std::endian::big))
        return;
    for (unsigned char* at = samples; at != samples + bytes; at += sampleBytes)
        std::reverse(at, at + sampleBytes);
}

ImageSamples ReadRawImage(const std::string& path, const RawLayout& layout)
{
    const OwnedFile file = OpenRawFile(path, layout);
    ImageSamples    samples(layout.Type, layout.Width, layout.Height);
    ReadRawBytes(file.get(), path, layout, samples.Data(), samples.Bytes());
    return samples;
}

}
