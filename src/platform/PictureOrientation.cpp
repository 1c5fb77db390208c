#include "platform/SampleCodecs.h"

#include <cstring>
#include <utility>

namespace vostel::pictures {

namespace {

// Bytes behind the end count as zero.
std::uint32_t NumberAt(std::span<const unsigned char> bytes, std::size_t at, int count, bool big)
{
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        const std::size_t place = at + static_cast<std::size_t>(big ? i : count - 1 - i);
        value = value << 8 | (place < bytes.size() ? bytes[place] : 0u);
    }
    return value;
}

// What tells tags from other data of the application's, in JPEG; some writers put it elsewhere too.
constexpr unsigned char ExifMark[] = {'E', 'x', 'i', 'f', 0, 0};

bool HasExifMark(std::span<const unsigned char> data)
{
    return data.size() >= sizeof ExifMark && std::memcmp(data.data(), ExifMark, sizeof ExifMark) == 0;
}

std::span<const unsigned char> WithoutExifMark(std::span<const unsigned char> data)
{
    return HasExifMark(data) ? data.subspan(sizeof ExifMark) : data;
}

template <std::size_t Bytes>
void TurnInto(const ImageSamples& from, ImageSamples& to, int orientation)
{
    const bool turned = orientation >= 5;
    // Where the column and the row of the picture run backwards through the stored one's.
    const bool backX = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
    const bool backY = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    const unsigned char* const stored = from.Data();
    unsigned char*             target = to.Data();
    for (int y = 0; y < to.Height; ++y) {
        for (int x = 0; x < to.Width; ++x, target += Bytes) {
            const int         alongX = turned ? y : x;
            const int         alongY = turned ? x : y;
            const std::size_t column = static_cast<std::size_t>(backX ? from.Width - 1 - alongX : alongX);
            const std::size_t row = static_cast<std::size_t>(backY ? from.Height - 1 - alongY : alongY);
            std::memcpy(target, stored + row * from.RowBytes() + column * Bytes, Bytes);
        }
    }
}

}

ImageSamples Oriented(ImageSamples&& samples, int orientation)
{
    if (orientation < 2 || orientation > 8)
        return std::move(samples);
    const bool   turned = orientation >= 5;
    ImageSamples result(samples.Type, turned ? samples.Height : samples.Width,
                        turned ? samples.Width : samples.Height);
    switch (PixelBytes(samples.Type)) {
    case 1:
        TurnInto<1>(samples, result, orientation);
        break;
    case 2:
        TurnInto<2>(samples, result, orientation);
        break;
    case 3:
        TurnInto<3>(samples, result, orientation);
        break;
    default:
        TurnInto<4>(samples, result, orientation);
    }
    return result;
}

int OrientationOfTiff(std::span<const unsigned char> file, int page)
{
    constexpr std::uint32_t orientationTag = 274;
    constexpr std::size_t   entryBytes = 12;
    if (file.size() < 8)
        return 1;
    const bool  big = file[0] == 'M';
    std::size_t directory = NumberAt(file, 4, 4, big);
    for (int skipped = 0; skipped < page && directory != 0; ++skipped)
        directory = NumberAt(file, directory + 2 + entryBytes * NumberAt(file, directory, 2, big), 4, big);
    const std::uint32_t entries = NumberAt(file, directory, 2, big);
    for (std::uint32_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + entryBytes * i;
        if (entry >= file.size())
            break;
        if (NumberAt(file, entry, 2, big) == orientationTag)
            return static_cast<int>(NumberAt(file, entry + 8, 2, big));
    }
    return 1;
}

int OrientationOfPng(std::span<const unsigned char> file)
{
    constexpr unsigned char exif[] = {'e', 'X', 'I', 'f'};
    constexpr std::size_t   mark = 8;
    constexpr std::size_t   aroundData = 12;    // length and name before, a checksum behind
    for (std::size_t at = mark; at + aroundData <= file.size();) {
        const std::size_t length = NumberAt(file, at, 4, true);
        if (length > file.size() - at - aroundData)
            break;
        if (std::memcmp(file.data() + at + 4, exif, sizeof exif) == 0)
            return OrientationOfTiff(file.subspan(at + 8, length), 0);
        at += aroundData + length;
    }
    return 1;
}

int OrientationOfWebp(std::span<const unsigned char> file)
{
    constexpr unsigned char exif[] = {'E', 'X', 'I', 'F'};
    constexpr std::size_t   header = 12;
    for (std::size_t at = header; at + 8 <= file.size();) {
        const std::size_t length = NumberAt(file, at + 4, 4, false);
        if (length > file.size() - at - 8)
            break;
        if (std::memcmp(file.data() + at, exif, sizeof exif) == 0)
            return OrientationOfTiff(WithoutExifMark(file.subspan(at + 8, length)), 0);
        at += 8 + length + length % 2;
    }
    return 1;
}

int OrientationOfJpeg(std::span<const unsigned char> file)
{
    constexpr unsigned scan = 0xDA;
    std::size_t        at = 2;
    while (at + 4 <= file.size() && file[at] == 0xFF && file[at + 1] != scan) {
        const std::size_t length = NumberAt(file, at + 2, 2, true);
        if (file[at + 1] == 0xFF) {    // a fill byte
            ++at;
            continue;
        }
        if (length < 2 || at + 2 + length > file.size())
            break;
        const std::span<const unsigned char> data = file.subspan(at + 4, length - 2);
        if (file[at + 1] == 0xE1 && HasExifMark(data))
            return OrientationOfTiff(WithoutExifMark(data), 0);
        at += 2 + length;
    }
    return 1;
}

}
