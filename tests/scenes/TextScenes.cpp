#include "Scenes.h"

namespace {

HFONT FontOf(int height)
{
    return CreateFontW(height, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑");
}

void Sizes(HDC dc, int, int)
{
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(160, 0, 20));
    int y = 5;
    for (int height : {12, 16, 18, 20, 22, 24, 32, 48}) {
        SelectedObject font(dc, FontOf(height));
        TextOutW(dc, 10, y, L"Sphinx 0123456789", 17);
        y += height + 6;
    }
}

void Boxes(HDC dc, UINT format, int mode)
{
    SetBkMode(dc, mode);
    SetBkColor(dc, RGB(255, 255, 255));
    SetTextColor(dc, RGB(0, 0, 200));
    SelectedObject font(dc, FontOf(18));
    RECT           outer = {4, 4, 300, 60};
    DrawTextW(dc, L"Length 12.50 mm", -1, &outer, format);
}
void Centred(HDC dc, int, int)
{
    Boxes(dc, DT_CENTER | DT_VCENTER | DT_SINGLELINE, TRANSPARENT);
}
void Captioned(HDC dc, int, int)
{
    Boxes(dc, 8757, OPAQUE);
}
void RightBottom(HDC dc, int, int)
{
    Boxes(dc, DT_RIGHT | DT_BOTTOM | DT_SINGLELINE, TRANSPARENT);
}

void Wrapped(HDC dc, int, int)
{
    SetBkMode(dc, TRANSPARENT);
    SelectedObject font(dc, FontOf(20));
    RECT           rect = {10, 10, 180, 190};
    DrawTextW(dc, L"One line, broken where\nit has to be", -1, &rect, DT_WORDBREAK | DT_LEFT);
}

void Chinese(HDC dc, int, int)
{
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 90, 0));
    for (int i = 0; i < 3; ++i) {
        SelectedObject font(dc, FontOf(18 + i * 8));
        TextOutW(dc, 10, 10 + i * 40, L"阈值 长度 角度", 8);
    }
}

}

// The platforms bring different fonts and rasterisers: glyph shapes and widths differ, while the place, the
// color and the line height of the text have to agree.
std::vector<Scene> TextScenes()
{
    return {
        {"text-sizes", 601, 301, 32, false, Agreement::Glyphs, Sizes},
        {"text-centred", 321, 81, 32, false, Agreement::Glyphs, Centred},
        {"text-caption", 321, 81, 32, false, Agreement::Glyphs, Captioned},
        {"text-right-bottom", 321, 81, 24, false, Agreement::Glyphs, RightBottom},
        {"text-wrapped", 201, 201, 32, true, Agreement::Glyphs, Wrapped},
        {"text-chinese", 301, 161, 32, false, Agreement::Glyphs, Chinese},
    };
}
