#include "dialogs/RawSizeGuess.h"

#include <algorithm>
#include <cmath>

namespace vostel::widget {

namespace {

constexpr int UnsignedByte = 3;    // its reader starts at the file's first byte, whatever the header

struct Sides {
    int Width, Height;
};

// Detectors, cameras and screens.
constexpr Sides CommonSides[] = {
    {2048, 2048}, {1024, 1024}, {512, 512},   {4096, 4096}, {256, 256},   {1536, 1536}, {3072, 3072},
    {2880, 2880}, {1440, 1440}, {768, 768},   {640, 480},   {1024, 768},  {1280, 1024}, {1600, 1200},
    {1920, 1080}, {1280, 720},  {2048, 1536}, {1920, 1536}, {2560, 2048}, {2560, 3072}, {3072, 2560},
    {3840, 2160}, {1920, 1200}, {800, 600},   {320, 240},   {128, 128},   {64, 64},     {8192, 8192}};
constexpr qint64 CommonHeaders[] = {100, 512, 1024, 2048, 4096, 256, 128, 64, 8192};
constexpr qint64 LongestGuess = 65536;

void Add(std::vector<RawSize>& sizes, qint64 width, qint64 height, qint64 header)
{
    if (width < 1 || height < 1 || width > LongestGuess || height > LongestGuess)
        return;
    const RawSize size{static_cast<int>(width), static_cast<int>(height), header};
    if (std::find(sizes.begin(), sizes.end(), size) == sizes.end())
        sizes.push_back(size);
}

qint64 WholeRoot(qint64 value)
{
    auto root = static_cast<qint64>(std::sqrt(static_cast<double>(value)));
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

void AddSquare(std::vector<RawSize>& sizes, qint64 bytes, int element, qint64 header)
{
    if (bytes < element || bytes % element != 0)
        return;
    const qint64 side = WholeRoot(bytes / element);
    if (side * side == bytes / element)
        Add(sizes, side, side, header);
}

// Whole rectangles up to 3 : 1, the least long ones first, each lying before standing.
void AddRectangles(std::vector<RawSize>& sizes, qint64 bytes, int element, std::size_t most)
{
    constexpr qint64 Longest = 3;
    if (bytes < element || bytes % element != 0)
        return;
    const qint64 pixels = bytes / element;
    for (qint64 height = WholeRoot(pixels); height > 0 && sizes.size() < most; --height) {
        if (pixels / height > height * Longest)
            break;
        if (pixels % height == 0) {
            Add(sizes, pixels / height, height, 0);
            Add(sizes, height, pixels / height, 0);
        }
    }
}

}

int RawElementBytes(int dataType)
{
    switch (dataType) {
    case 0:
    case 2:
        return 2;
    case 1:
        return 4;
    case UnsignedByte:
        return 1;
    default:
        return 0;
    }
}

std::vector<RawSize> GuessRawSizes(qint64 fileBytes, int dataType, int most)
{
    return GuessSizes(fileBytes, RawElementBytes(dataType), dataType != UnsignedByte, most);
}

std::vector<RawSize> GuessSizes(qint64 fileBytes, int pixelBytes, bool headers, int most)
{
    const auto           wanted = static_cast<std::size_t>(std::max(most, 0));
    std::vector<RawSize> sizes;
    if (pixelBytes <= 0 || fileBytes < pixelBytes || fileBytes > LongestGuess * LongestGuess * pixelBytes)
        return sizes;
    AddSquare(sizes, fileBytes, pixelBytes, 0);
    for (const Sides& sides : CommonSides)
        if (qint64{sides.Width} * sides.Height * pixelBytes == fileBytes)
            Add(sizes, sides.Width, sides.Height, 0);
    if (headers) {
        for (const qint64 header : CommonHeaders)
            for (const Sides& sides : CommonSides)
                if (qint64{sides.Width} * sides.Height * pixelBytes + header == fileBytes)
                    Add(sizes, sides.Width, sides.Height, header);
        for (const qint64 header : CommonHeaders)
            AddSquare(sizes, fileBytes - header, pixelBytes, header);
    }
    AddRectangles(sizes, fileBytes, pixelBytes, wanted);
    if (sizes.size() > wanted)
        sizes.resize(wanted);
    return sizes;
}

}
