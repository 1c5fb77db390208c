#pragma once

#include <string>

namespace vostel {

class VectorDrawing;
struct DeflatedPixels;

// A PDF file of one page, of so many points and at least one: the image stretched over all of it and the
// objects, whose px are points, as paths over the image. The drawing brings the glyphs of its texts, which
// are painted as paths too, so that no font is needed; the same texts lie over them unseen, to be found and
// copied.
std::string PdfOf(const VectorDrawing& drawing, const DeflatedPixels& image, double width, double height,
                  bool smooth);

}
