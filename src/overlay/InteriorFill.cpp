#include "overlay/InteriorFill.h"

#include "canvas/view/CanvasView.h"
#include "canvas/view/VectorDrawing.h"
#include "geometry/Coverage.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr unsigned int Opaque = 0xFF;

// Red and blue, or green alone, of a pixel lie in lanes of 16 bits, where products of two bytes have room.
constexpr unsigned int Lanes = 0x00FF00FF;

// Quotient of each lane by 255 to the nearest, of 0..255 * 255.
unsigned int Over255(unsigned int lanes)
{
    const unsigned int raised = lanes + 0x00800080;
    return (raised + (raised >> 8 & Lanes)) >> 8 & Lanes;
}

void BlendRow(unsigned int* pixels, int count, unsigned int color)
{
    const unsigned int alpha = color >> 24;
    if (alpha == Opaque) {
        std::fill_n(pixels, count, color & 0xFFFFFF);
        return;
    }
    const unsigned int rest = Opaque - alpha;
    const unsigned int redBlue = (color & Lanes) * alpha;
    const unsigned int green = (color >> 8 & 0xFF) * alpha;
    for (int i = 0; i < count; ++i) {
        const unsigned int under = pixels[i];
        pixels[i] = Over255(redBlue + (under & Lanes) * rest) | Over255(green + (under >> 8 & 0xFF) * rest)
                                                                    << 8;
    }
}

}

Outline ClientOutline(const Outline& imageOutline, const CanvasView& view)
{
    Outline outline = imageOutline;
    for (ImagePoint& point : outline.Points)
        point = {point.x * view.Scale + view.DisplayRect.left, point.y * view.Scale + view.DisplayRect.top};
    return outline;
}

void FillInterior(const PaintKit& kit, const Outline& clientOutline, unsigned int color)
{
    if (kit.Recorder) {
        kit.Recorder->AddInterior(clientOutline, color);
        return;
    }
    BITMAP        facts = {};
    const HGDIOBJ bitmap = GetCurrentObject(kit.Dc, OBJ_BITMAP);
    if (color >> 24 == 0 || !bitmap || !GetObjectW(bitmap, sizeof facts, &facts) || !facts.bmBits ||
        facts.bmBitsPixel != 32)
        return;
    GdiFlush();
    auto* const pixels = static_cast<unsigned int*>(facts.bmBits);
    for (const PixelRun& run : CoverageOf(clientOutline, facts.bmWidth, facts.bmHeight)) {
        const std::ptrdiff_t memoryRow = facts.bmHeight - 1 - run.Row;
        BlendRow(pixels + memoryRow * facts.bmWidth + run.Begin, run.End - run.Begin, color);
    }
}

bool IsInsideOutline(const Outline& clientOutline, CPoint pixel)
{
    Outline around = clientOutline;
    for (ImagePoint& point : around.Points)
        point = {point.x - pixel.x + 1.0, point.y - pixel.y + 1.0};
    return !CoverageOf(around, 3, 3).empty();
}

}
