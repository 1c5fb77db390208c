#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vostel {

class PixelSurface;

// Pixels, top row first, each row behind a byte that names its filter, deflated. PNG and PDF
// hold the same stream.
struct DeflatedPixels {
    int         Width = 0;
    int         Height = 0;
    int         Channels = 3;    // red, green, blue, or 1 if all pixels are gray
    int         Bits = 8;        // of a channel
    std::string Bytes;
};

DeflatedPixels DeflatePixels(const PixelSurface& surface);
// Gray samples of 16 bits, tightly packed.
DeflatedPixels DeflateGray16(const std::uint16_t* samples, int width, int height);

std::string PngOf(const DeflatedPixels& pixels);

std::string Deflated(std::string_view bytes);

}
