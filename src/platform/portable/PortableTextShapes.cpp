#include "platform/TextShapes.h"
#include "platform/portable/TextRasteriser.h"

namespace vostel {

namespace {

const gdi::Font* FontOf(HDC dc)
{
    const gdi::Context* const context = gdi::FindContext(dc);
    return context ? context->SelectedFont : nullptr;
}

// Calls visit(piece, pen) for the pieces that the line is cut into, and returns where the pen ends.
template <typename Visit>
int ForEachPiece(const gdi::Font& font, std::wstring_view line, Visit&& visit)
{
    gdi::TextRasteriser& rasteriser = gdi::TextRasteriser::Shared();
    const std::size_t    length = rasteriser.Metrics(font).PieceLength;
    int                  pen = 0;
    for (std::size_t at = 0; at < line.size(); at += length) {
        const std::wstring_view piece = line.substr(at, length);
        visit(piece, pen);
        pen += rasteriser.Advance(font, piece);
    }
    return pen;
}

}

FontSizes SizesOfFont(HDC dc)
{
    const gdi::Font* const font = FontOf(dc);
    if (!font)
        return {};
    const gdi::TextMetrics metrics = gdi::TextRasteriser::Shared().Metrics(*font);
    return {static_cast<double>(metrics.Ascent), static_cast<double>(metrics.Height), metrics.Em};
}

int WidthOfText(HDC dc, std::wstring_view line)
{
    const gdi::Font* const font = FontOf(dc);
    return font ? ForEachPiece(*font, line, [](std::wstring_view, int) {}) : 0;
}

std::vector<PathStep> PathOfText(HDC dc, std::wstring_view line)
{
    std::vector<PathStep>  path;
    const gdi::Font* const font = FontOf(dc);
    if (font)
        ForEachPiece(*font, line, [&](std::wstring_view piece, int pen) {
            gdi::TextRasteriser::Shared().AppendPath(*font, piece, pen, path);
        });
    return path;
}

}
