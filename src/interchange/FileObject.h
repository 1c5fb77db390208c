#pragma once

#include "geometry/ImagePoint.h"
#include "vostel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vostel {

// An object as files hold it: the form that all formats share. Points are image px, texts UTF-8.
struct FileObject {
    int                        Kind = VOSTEL_POLYGON;
    std::vector<ImagePoint>    Points;          // as vostel_object_add() takes them
    std::vector<int>           StrokeStarts;    // of free strokes: where each begins
    std::vector<ImagePoint>    Outline;    // leaving only: of a region, closed, with its curves flattened
    std::string                Name;
    std::string                Text;
    int                        Label = 0;    // of a region; 0 for none said
    std::uint32_t              Flags = 0;    // VOSTEL_HIDDEN ..., combined
    std::optional<VostelStyle> Style;        // none said: that of a new object
};

struct ImageSize {
    int Width = 0;
    int Height = 0;
};

}
