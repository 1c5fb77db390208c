#include "platform/SamplePictures.h"

#include "platform/FileReading.h"
#include "platform/Files.h"
#include "platform/SampleCodecs.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace vostel {

namespace {

using namespace pictures;
using Decoder = PictureOutcome (*)(const SampleFile&, ImageSamples&);
using Counter = PictureOutcome (*)(const SampleFile&, int&);
using TagReader = int (*)(std::span<const unsigned char>);

struct Format {
    Decoder   Decode = nullptr;
    TagReader Orientation = nullptr;    // null: there is none that is still to be followed
    Counter   CountPages = nullptr;     // null: there is always one
};

bool StartsWith(std::span<const unsigned char> file, std::string_view mark, std::size_t at = 0)
{
    return file.size() >= at + mark.size() &&
           std::equal(mark.begin(), mark.end(), file.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

bool IsPnm(std::span<const unsigned char> file)
{
    constexpr std::string_view kinds = "123456fF";
    return file.size() >= 3 && file[0] == 'P' &&
           kinds.find(static_cast<char>(file[1])) != std::string_view::npos &&
           (file[2] == ' ' || (file[2] >= '\t' && file[2] <= '\r') || file[2] == '#');
}

Format FormatOf(std::span<const unsigned char> file)
{
    using namespace std::string_view_literals;
    if (StartsWith(file, "\x89PNG\r\n\x1A\n"sv))
        return {DecodePngSamples, OrientationOfPng};
    if (StartsWith(file, "\xFF\xD8\xFF"sv))
        return {DecodeJpegSamples, OrientationOfJpeg};
    for (const std::string_view mark : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv}) {
        if (StartsWith(file, mark))
            return {DecodeTiffSamples, nullptr, CountTiffPages};
    }
    if (StartsWith(file, "GIF87a"sv) || StartsWith(file, "GIF89a"sv))
        return {DecodeGifSamples, nullptr, CountGifPages};
    if (StartsWith(file, "RIFF"sv) && StartsWith(file, "WEBP"sv, 8))
        return {DecodeWebpSamples, OrientationOfWebp};
    if (StartsWith(file, "BM"sv))
        return {DecodeBmpSamples};
    return IsPnm(file) ? Format{DecodePnmSamples} : Format{};
}

// A file, read over memory that nobody wrote before.
struct FileBytes {
    std::unique_ptr<unsigned char[]> Data;
    std::size_t                      Size = 0;

    std::span<const unsigned char> All() const { return {Data.get(), Size}; }
};

PictureOutcome ReadBytes(const char* path, const PictureLimits& limits, FileBytes& bytes)
{
    const OwnedFile file = OpenUtf8File(path, "rb");
    const long long length = file ? FileLength(file.get()) : -1;
    if (length < 0)
        return PictureOutcome::NotRead;
    if (length > limits.MaxFileBytes)
        return PictureOutcome::TooLarge;
    bytes.Size = static_cast<std::size_t>(length);
    bytes.Data = std::make_unique_for_overwrite<unsigned char[]>(bytes.Size);
    return ReadToEnd(file.get(), bytes.Data.get(), bytes.Size) ? PictureOutcome::Taken
                                                               : PictureOutcome::NotRead;
}

}

PictureOutcome ReadPicture(const char* utf8Path, int page, const PictureLimits& limits, ImageSamples& samples,
                           PaletteUse palettes)
{
    FileBytes            file;
    const PictureOutcome read = ReadBytes(utf8Path, limits, file);
    if (read != PictureOutcome::Taken)
        return read;
    const std::span<const unsigned char> bytes = file.All();
    const Format                         format = FormatOf(bytes);
    if (!format.Decode)
        return PictureOutcome::BadFormat;
    if (page < 0 || (page > 0 && !format.CountPages))
        return PictureOutcome::NoSuchPage;
    ImageSamples         decoded;
    const PictureOutcome outcome = format.Decode({bytes, page, limits, palettes}, decoded);
    if (outcome == PictureOutcome::Taken)
        samples =
            format.Orientation ? Oriented(std::move(decoded), format.Orientation(bytes)) : std::move(decoded);
    return outcome;
}

PictureOutcome CountPages(const char* utf8Path, const PictureLimits& limits, int& pages)
{
    FileBytes            file;
    const PictureOutcome read = ReadBytes(utf8Path, limits, file);
    if (read != PictureOutcome::Taken)
        return read;
    const std::span<const unsigned char> bytes = file.All();
    const Format                         format = FormatOf(bytes);
    if (!format.Decode)
        return PictureOutcome::BadFormat;
    if (format.CountPages)
        return format.CountPages({.Bytes = bytes, .Limits = limits}, pages);
    pages = 1;
    return PictureOutcome::Taken;
}

namespace pictures {

PictureOutcome MakeSamples(const SampleFile& file, SampleType type, long long width, long long height,
                           ImageSamples& samples)
{
    if (width < 1 || height < 1)
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, width, height))
        return PictureOutcome::TooLarge;
    samples = ImageSamples(type, static_cast<int>(width), static_cast<int>(height));
    return PictureOutcome::Taken;
}

bool IsGrayPalette(std::span<const unsigned> palette)
{
    return std::all_of(palette.begin(), palette.end(),
                       [](unsigned color) { return color == (color & 0xFF) * 0x010101u; });
}

ImageSamples ColorsOfIndices(ImageSamples&& indices, std::span<const unsigned> palette)
{
    const bool gray = IsGrayPalette(palette);
    unsigned   colors[256] = {};
    std::copy_n(palette.begin(), std::min<std::size_t>(palette.size(), 256), colors);
    const std::size_t count = indices.Bytes();
    if (gray) {
        unsigned char* const values = indices.Data();
        std::transform(values, values + count, values,
                       [&colors](unsigned char index) { return static_cast<unsigned char>(colors[index]); });
        return std::move(indices);
    }
    ImageSamples   shown(SampleType::Rgb8, indices.Width, indices.Height);
    unsigned char* target = shown.Data();
    for (std::size_t i = 0; i < count; ++i, target += 3) {
        const unsigned color = colors[indices.Data()[i]];
        target[0] = static_cast<unsigned char>(color >> 16);
        target[1] = static_cast<unsigned char>(color >> 8);
        target[2] = static_cast<unsigned char>(color);
    }
    return shown;
}

}

}
