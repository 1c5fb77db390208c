#pragma once

#include <string>
#include <string_view>

namespace vostel {

class VectorDrawing;

// An SVG document of the drawing's size in px: the image, which a PNG file holds, stretched over all of it,
// and the objects as shapes and text over the image.
std::string SvgOf(const VectorDrawing& drawing, std::string_view png, bool smooth);

}
