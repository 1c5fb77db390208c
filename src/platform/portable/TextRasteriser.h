#pragma once

// Shapes and rasterises runs of text. Faces are found, shaped and drawn by Pango and Cairo; this class
// holds what they made for a while, so that a caption that is painted again and again costs a look-up.

#include "platform/TextShapes.h"
#include "platform/portable/PortableContext.h"

#include <memory>
#include <string_view>
#include <vector>

namespace vostel::gdi {

struct TextMetrics {
    int         Ascent = 0;         // pixels of the cell above the base line
    int         Height = 0;         // pixels of the whole cell
    double      Em = 0.0;           // pixels
    std::size_t PieceLength = 1;    // characters that a run is cut into: shaped, kept and drawn as one
};

// A drawn run. Coverage counts from 0, untouched, to 255.
struct TextImage {
    int                        Left = 0;    // of the coverage, from the pen position
    int                        Top = 0;     // of the coverage, from the base line
    int                        Width = 0;
    int                        Height = 0;
    std::vector<unsigned char> Coverage;    // Width bytes per row, no padding
};

// Safe to call from several threads. What is returned stays valid while the caller holds it.
class TextRasteriser {
public:
    static TextRasteriser& Shared();

    TextMetrics Metrics(const Font& font);

    // Pixels from the start of a run to the start of what follows it. At most PieceLength characters,
    // none of which breaks a line: control characters count as blanks.
    int Advance(const Font& font, std::wstring_view piece);

    std::shared_ptr<const TextImage> Image(const Font& font, std::wstring_view piece);

    // The outlines that the image is made of, appended with the pen at x on the base line.
    void AppendPath(const Font& font, std::wstring_view piece, double x, std::vector<PathStep>& path);

private:
    TextRasteriser();
    ~TextRasteriser();
    TextRasteriser(const TextRasteriser&) = delete;
    TextRasteriser& operator=(const TextRasteriser&) = delete;

    struct State;
    std::unique_ptr<State> Held;
};

}
