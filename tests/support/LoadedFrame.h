#pragma once

// A picture file as a frame. The library's picture class decodes it.

#include "support/Frame.h"

#include <vostel/platform.h>

#include <doctest/doctest.h>

#include <cstddef>
#include <filesystem>
#include <string>

// Of 8 bits a pixel, which are gray, 24, or 32, which are opaque.
inline Frame LoadFrame(const std::string& path)
{
    ATL::CImage picture;
    REQUIRE(picture.Load(std::filesystem::path(path).wstring().c_str()) >= 0);
    const int bytes = picture.GetBPP() / 8;
    REQUIRE((bytes == 1 || bytes == 3 || bytes == 4));
    Frame frame(picture.GetWidth(), picture.GetHeight());
    for (int y = 0; y < frame.Height; ++y) {
        const auto* pixel = static_cast<const unsigned char*>(picture.GetBits()) +
                            static_cast<std::ptrdiff_t>(y) * picture.GetPitch();
        for (int x = 0; x < frame.Width; ++x, pixel += bytes)
            frame.At(x, y) = bytes == 1 ? pixel[0] * 0x010101u
                                        : pixel[0] | static_cast<unsigned int>(pixel[1]) << 8 |
                                              static_cast<unsigned int>(pixel[2]) << 16;
    }
    return frame;
}
