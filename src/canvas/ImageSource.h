#pragma once

#include "fileio/ImageFiles.h"

#include <optional>
#include <string>

namespace vostel {

// The file that an image came from, and how it was read.
struct ImageSource {
    std::string              Path;    // UTF-8, absolute
    int                      Page = 0;
    std::optional<RawLayout> Raw;    // of a file without a header
    // Read by the canvas calls: pictures as 8-bit gray, in which a palette's bytes count as they stand, or
    // colors; files without a header as floats.
    bool Classic = false;
};

}
