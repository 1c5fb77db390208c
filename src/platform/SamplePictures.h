#pragma once

// Pictures from files with their samples as they are: gray of 16 bits and float stays so, palettes become
// what they show (gray if all their colors are gray), CMYK becomes RGB, RGB of 16 bits 8, and orientation
// tags are followed. An alpha channel of colors is kept as it is stored, beside colors that it does not
// change; the one of gray pictures is dropped, as is the transparency of palettes.

#include "platform/ImageSamples.h"
#include "platform/PictureLimits.h"

namespace vostel {

enum class PictureOutcome {
    Taken,
    NotRead,         // there is no such file, or it cannot be read
    BadFormat,       // the content is no picture, damaged or cut short
    TooLarge,        // beyond the limits
    NotSupported,    // a kind of picture that the codecs at hand do not know
    NoSuchPage
};

// What becomes of the palette of a PNG.
enum class PaletteUse {
    Colors,    // the picture is what it shows
    Indices    // its values are the numbers of the entries
};

// The format is told by the content. Pages of a TIFF and frames of a GIF are counted from 0; a frame is the
// whole picture as it then looks. The samples are left alone unless they are taken. Fails for want of memory
// as the allocator does.
PictureOutcome ReadPicture(const char* utf8Path, int page, const PictureLimits& limits, ImageSamples& samples,
                           PaletteUse palettes = PaletteUse::Colors);
PictureOutcome CountPages(const char* utf8Path, const PictureLimits& limits, int& pages);

}
