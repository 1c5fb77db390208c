#pragma once

#include <string>
#include <string_view>

namespace vostel {

class PixelSurface;

// The pixels of a surface, top row first, each row behind a byte that names its filter, deflated. PNG and PDF
// hold the same stream.
struct DeflatedPixels {
    int         Width = 0;
    int         Height = 0;
    int         Channels = 3;    // bytes of a pixel: red, green, blue, or 1 if all pixels are gray
    std::string Bytes;
};

DeflatedPixels DeflatePixels(const PixelSurface& surface);

// A PNG file of 8 bits a channel.
std::string PngOf(const DeflatedPixels& pixels);

std::string Deflated(std::string_view bytes);

}
