#include "platform/TextShapes.h"

namespace vostel {

namespace {

constexpr int Finer = 32;    // paths of GDI lie on whole px: those of a larger font are scaled down

// A memory context with a font, for the length of a scope.
class FontContext {
public:
    explicit FontContext(const LOGFONTW& font)
        : Dc(CreateCompatibleDC(nullptr)), Made(CreateFontIndirectW(&font)), Before(SelectObject(Dc, Made))
    {
    }
    ~FontContext()
    {
        SelectObject(Dc, Before);
        DeleteObject(Made);
        DeleteDC(Dc);
    }
    FontContext(const FontContext&) = delete;
    FontContext& operator=(const FontContext&) = delete;

    HDC Dc;

private:
    HFONT   Made;
    HGDIOBJ Before;
};

struct GdiPath {
    std::vector<POINT> Points;
    std::vector<BYTE>  Types;
};

GdiPath DrawnPath(HDC dc, std::wstring_view line)
{
    GdiPath path;
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_BASELINE);
    if (!BeginPath(dc))
        return path;
    TextOutW(dc, 0, 0, line.data(), static_cast<int>(line.size()));
    EndPath(dc);
    const int count = GetPath(dc, nullptr, nullptr, 0);
    if (count <= 0)
        return path;
    path.Points.resize(static_cast<std::size_t>(count));
    path.Types.resize(static_cast<std::size_t>(count));
    if (GetPath(dc, path.Points.data(), path.Types.data(), count) != count)
        return {};
    return path;
}

std::vector<PathStep> StepsOf(const GdiPath& from, double scaleX, double scaleY)
{
    std::vector<PathStep> steps;
    const auto            place = [&](std::size_t i) {
        return PathStep::Place{static_cast<double>(from.Points[i].x) * scaleX,
                               static_cast<double>(from.Points[i].y) * scaleY};
    };
    for (std::size_t i = 0; i < from.Points.size(); ++i) {
        PathStep   step;
        const BYTE type = from.Types[i] & ~PT_CLOSEFIGURE;
        if (type == PT_BEZIERTO && i + 2 < from.Points.size()) {
            step.Does = PathStep::Kind::Curve;
            step.Places = {place(i), place(i + 1), place(i + 2)};
            i += 2;
        } else {
            step.Does = type == PT_MOVETO ? PathStep::Kind::Move : PathStep::Kind::Line;
            step.Places[0] = place(i);
        }
        steps.push_back(step);
        if ((from.Types[i] & PT_CLOSEFIGURE) != 0)
            steps.push_back({});
    }
    return steps;
}

}

FontSizes SizesOfFont(HDC dc)
{
    TEXTMETRICW metrics = {};
    if (!GetTextMetricsW(dc, &metrics))
        return {};
    return {static_cast<double>(metrics.tmAscent), static_cast<double>(metrics.tmHeight),
            static_cast<double>(metrics.tmHeight - metrics.tmInternalLeading)};
}

int WidthOfText(HDC dc, std::wstring_view line)
{
    SIZE extent = {};
    GetTextExtentPoint32W(dc, line.data(), static_cast<int>(line.size()), &extent);
    return extent.cx;
}

std::vector<PathStep> PathOfText(HDC dc, std::wstring_view line)
{
    const double height = SizesOfFont(dc).Height;
    LOGFONTW     font = {};
    if (!(height > 0.0) || !GetObjectW(GetCurrentObject(dc, OBJ_FONT), sizeof font, &font))
        return {};
    font.lfHeight = static_cast<LONG>(height) * Finer;
    font.lfWidth = 0;
    const FontContext fine(font);
    const double      fineHeight = SizesOfFont(fine.Dc).Height;
    const double      fineWidth = WidthOfText(fine.Dc, line);
    if (!(fineHeight > 0.0) || !(fineWidth > 0.0))
        return {};
    return StepsOf(DrawnPath(fine.Dc, line), WidthOfText(dc, line) / fineWidth, height / fineHeight);
}

}
