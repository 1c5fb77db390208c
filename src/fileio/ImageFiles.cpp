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

void TurnByteOrder(ImageSamples& samples)
{
    const std::size_t bytes = IsColor(samples.Type) ? 1 : PixelBytes(samples.Type);
    if (bytes == 1)
        return;
    for (unsigned char* at = samples.Data(); at != samples.Data() + samples.Bytes(); at += bytes)
        std::reverse(at, at + bytes);
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

ImageSamples ReadRawImage(const std::string& path, const RawLayout& layout)
{
    const Limits limits = LimitsInForce();
    if (layout.Width > limits.MaxSide || layout.Height > limits.MaxSide ||
        layout.Width > limits.MaxPixels / layout.Height)
        Fail(VOSTEL_TOO_LARGE, "layout->width and layout->height are beyond the limits");
    const OwnedFile file = OpenUtf8File(path.c_str(), "rb");
    const long long length = file ? FileLength(file.get()) : -1;
    if (length < 0)
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    if (length > limits.MaxFileBytes)
        Fail(VOSTEL_TOO_LARGE, "\"" + path + "\" is beyond the limits");
    const long long bytes = static_cast<long long>(PixelBytes(layout.Type)) * layout.Width * layout.Height;
    if (layout.Offset > length - bytes)
        Fail(VOSTEL_BAD_FORMAT, "\"" + path + "\" is shorter than its layout");
    ImageSamples samples(layout.Type, layout.Width, layout.Height);
    if (!SeekFile(file.get(), layout.Offset) ||
        std::fread(samples.Data(), 1, samples.Bytes(), file.get()) != samples.Bytes())
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    if (layout.BigEndian != (std::endian::native == std::endian::big))
        TurnByteOrder(samples);
    return samples;
}

}
