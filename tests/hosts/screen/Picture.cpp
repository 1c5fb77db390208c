#include "hosts/screen/Picture.h"

#include <VostelObj.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

int Picture::Count(unsigned color, int left, int top, int right, int bottom) const
{
    int count = 0;
    for (int y = std::max(top, 0); y < std::min(bottom, Height); ++y)
        for (int x = std::max(left, 0); x < std::min(right, Width); ++x)
            count += At(x, y) == color ? 1 : 0;
    return count;
}

Picture Picture::Part(int left, int top, int width, int height) const
{
    Picture part(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            part.At(x, y) = At(left + x, top + y);
    return part;
}

Box BoxOf(unsigned color, const Picture& picture)
{
    int left = picture.Width, top = picture.Height, right = -1, bottom = -1;
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x)
            if (picture.At(x, y) == color) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
    return right < 0 ? Box() : Box{left, top, right - left + 1, bottom - top + 1};
}

Place Find(const Picture& part, const Picture& whole)
{
    const auto rowIsAt = [&](int row, int x, int y) {
        return std::equal(part.Pixels.begin() + row * part.Width,
                          part.Pixels.begin() + (row + 1) * part.Width,
                          whole.Pixels.begin() + (y + row) * whole.Width + x);
    };
    for (int y = 0; y + part.Height <= whole.Height; ++y)
        for (int x = 0; x + part.Width <= whole.Width; ++x) {
            int row = 0;
            while (row < part.Height && rowIsAt(row, x, y))
                ++row;
            if (row == part.Height && row > 0)
                return {x, y};
        }
    return {};
}

bool Save(const Picture& picture, const std::string& path)
{
    CImage image;
    if (!image.Create(picture.Width, picture.Height, 24))
        return false;
    for (int y = 0; y < picture.Height; ++y) {
        unsigned char* target =
            static_cast<unsigned char*>(image.GetBits()) + static_cast<std::ptrdiff_t>(y) * image.GetPitch();
        for (int x = 0; x < picture.Width; ++x) {
            const unsigned pixel = picture.At(x, y);
            std::memcpy(target + 3 * x, &pixel, 3);
        }
    }
    return image.Save(std::filesystem::path(path).wstring().c_str()) >= 0;
}

Picture Load(const std::string& path)
{
    CImage image;
    if (image.Load(std::filesystem::path(path).wstring().c_str()) < 0)
        return {};
    Picture   picture(image.GetWidth(), image.GetHeight());
    const int bytes = image.GetBPP() / 8;
    for (int y = 0; y < picture.Height; ++y) {
        const unsigned char* source = static_cast<const unsigned char*>(image.GetBits()) +
                                      static_cast<std::ptrdiff_t>(y) * image.GetPitch();
        for (int x = 0; x < picture.Width; ++x) {
            unsigned pixel = 0;
            if (bytes >= 3)
                std::memcpy(&pixel, source + bytes * x, 3);
            else if (bytes == 1)
                pixel = source[x] * 0x010101u;
            picture.At(x, y) = pixel;
        }
    }
    return picture;
}

Picture GrayNoise(int width, int height, unsigned seed)
{
    std::mt19937 random(seed);
    Picture      picture(width, height);
    for (unsigned& pixel : picture.Pixels)
        pixel = (60 + random() % 128) * 0x010101u;
    return picture;
}
