#pragma once

// Pictures of 0x00RRGGBB pixels, top row first, as tests compare them.

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

struct Frame {
    int                       Width = 0;
    int                       Height = 0;
    std::vector<unsigned int> Pixels;    // high byte 0

    Frame() = default;
    Frame(int width, int height, unsigned int pixel = 0)
        : Width(width), Height(height), Pixels(Count(width, height), pixel)
    {
    }

    unsigned int& At(int x, int y)
    {
        return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                      static_cast<std::size_t>(x)];
    }
    unsigned int At(int x, int y) const { return const_cast<Frame*>(this)->At(x, y); }

    // Right and bottom count out; what lies outside the frame is left out.
    void FillRect(int left, int top, int right, int bottom, unsigned int pixel)
    {
        for (int y = top > 0 ? top : 0; y < bottom && y < Height; ++y)
            for (int x = left > 0 ? left : 0; x < right && x < Width; ++x)
                At(x, y) = pixel;
    }
    // One pixel wide, inside the rectangle.
    void OutlineRect(int left, int top, int right, int bottom, unsigned int pixel)
    {
        FillRect(left, top, right, top + 1, pixel);
        FillRect(left, bottom - 1, right, bottom, pixel);
        FillRect(left, top, left + 1, bottom, pixel);
        FillRect(right - 1, top, right, bottom, pixel);
    }

private:
    static std::size_t Count(int width, int height)
    {
        return width > 0 && height > 0 ? static_cast<std::size_t>(width) * static_cast<std::size_t>(height)
                                       : 0;
    }
};

inline Frame FrameOfSurface(const unsigned int* bottomUp, int width, int height)
{
    if (!bottomUp)
        return Frame();
    Frame frame(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            frame.At(x, y) =
                bottomUp[static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x)] &
                0xFFFFFF;
    return frame;
}

// Empty if the frames are equal, else where they differ, for CHECK(FrameDifference(...) == "").
inline std::string FrameDifference(const Frame& actual, const Frame& expected)
{
    char text[200];
    if (actual.Width != expected.Width || actual.Height != expected.Height) {
        std::snprintf(text, sizeof text, "size is %dx%d, expected %dx%d", actual.Width, actual.Height,
                      expected.Width, expected.Height);
        return text;
    }
    int count = 0;
    int firstX = 0;
    int firstY = 0;
    for (int y = 0; y < actual.Height; ++y) {
        for (int x = 0; x < actual.Width; ++x) {
            if (actual.At(x, y) != expected.At(x, y) && count++ == 0) {
                firstX = x;
                firstY = y;
            }
        }
    }
    if (count == 0)
        return std::string();
    std::snprintf(text, sizeof text, "%d of %dx%d pixels differ; at (%d, %d) is %06X, expected %06X", count,
                  actual.Width, actual.Height, firstX, firstY, actual.At(firstX, firstY),
                  expected.At(firstX, firstY));
    return text;
}
