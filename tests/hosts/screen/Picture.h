#pragma once

#include <string>
#include <vector>

// Pixels of a screen or a file, 0x00RRGGBB, top row first.
struct Picture {
    int                   Width = 0;
    int                   Height = 0;
    std::vector<unsigned> Pixels;

    Picture() = default;
    Picture(int width, int height)
        : Width(width), Height(height),
          Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }

    bool      Has(int x, int y) const { return x >= 0 && y >= 0 && x < Width && y < Height; }
    unsigned& At(int x, int y) { return Pixels[static_cast<std::size_t>(y * Width + x)]; }
    unsigned  At(int x, int y) const
    {
        return Has(x, y) ? Pixels[static_cast<std::size_t>(y * Width + x)] : 0;
    }

    // How many pixels of a color a box has, right and bottom not included.
    int Count(unsigned color, int left, int top, int right, int bottom) const;

    Picture Part(int left, int top, int width, int height) const;    // a part of it

    bool operator==(const Picture&) const = default;
};

struct Place {
    int  X = -1;
    int  Y = -1;
    bool Found() const { return X >= 0; }
    bool operator==(const Place&) const = default;
};

struct Box {
    int  Left = 0;
    int  Top = 0;
    int  Width = 0;
    int  Height = 0;
    bool Found() const { return Width > 0; }
};

// The smallest box around all pixels of a color.
Box BoxOf(unsigned color, const Picture& picture);

// Where the whole of a picture stands in another, pixel by pixel.
Place Find(const Picture& part, const Picture& whole);

// In the format that the extension names; false when that fails.
bool    Save(const Picture& picture, const std::string& path);
Picture Load(const std::string& path);    // empty when that fails

// A picture of gray noise, different at every pixel from any color that the viewer draws with.
Picture GrayNoise(int width, int height, unsigned seed);
