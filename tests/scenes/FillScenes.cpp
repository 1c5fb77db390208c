#include "Scenes.h"

namespace {

// All six hatches in both background modes, at odd places.
void Hatches(HDC dc, int, int)
{
    SetBkColor(dc, RGB(250, 230, 10));
    for (int style = HS_HORIZONTAL; style <= HS_DIAGCROSS; ++style)
        for (int mode : {OPAQUE, TRANSPARENT}) {
            HBRUSH brush = CreateHatchBrush(style, RGB(20, 40, 160));
            SetBkMode(dc, mode);
            RECT rect = {style * 61 + 3, (mode - 1) * 101 + 5, style * 61 + 53, (mode - 1) * 101 + 86};
            FillRect(dc, &rect, brush);
            SelectedObject selected(dc, brush);
            Rectangle(dc, style * 61 + 13, (mode - 1) * 101 + 220, style * 61 + 58, (mode - 1) * 101 + 307);
        }
}

void ShiftedHatches(HDC dc, int width, int height)
{
    SetViewportOrgEx(dc, 5, 3, nullptr);
    Hatches(dc, width, height);
    SetViewportOrgEx(dc, -11, 13, nullptr);
    SelectedObject brush(dc, CreateHatchBrush(HS_DIAGCROSS, RGB(255, 255, 255)));
    Ellipse(dc, 20, 20, 300, 200);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

void Background(HDC dc, int width, int height)
{
    SelectedObject pen(dc, CreatePen(PS_SOLID, 1, 0x808080));
    SetBkMode(dc, TRANSPARENT);
    {
        SelectedObject solid(dc, CreateSolidBrush(0x998877));
        Rectangle(dc, 0, 0, width, height);
    }
    SelectedObject hatch(dc, CreateHatchBrush(HS_DIAGCROSS, 0x808080));
    Rectangle(dc, 0, 0, width, height);
}

void FilledRects(HDC dc, int, int)
{
    SceneRandom random(41);
    for (int i = 0; i < 90; ++i) {
        HBRUSH brush = random.Between(0, 2) ? CreateSolidBrush(random.Color())
                                            : CreateHatchBrush(random.Between(0, 5), random.Color());
        SetBkMode(dc, random.Between(0, 1) ? OPAQUE : TRANSPARENT);
        SetBkColor(dc, random.Color());
        RECT rect = {random.Between(-60, 460), random.Between(-60, 360), random.Between(-60, 460),
                     random.Between(-60, 360)};
        FillRect(dc, &rect, brush);
        DeleteObject(brush);
    }
    RECT empty = {10, 10, 10, 60};
    FillRect(dc, &empty, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    RECT hollow = {50, 50, 300, 200};
    FillRect(dc, &hollow, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
}

void StockBrushes(HDC dc, int, int)
{
    for (int i = WHITE_BRUSH; i <= NULL_BRUSH; ++i) {
        RECT rect = {i * 20 + 2, 3, i * 20 + 17, 30};
        FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(i)));
        SelectObject(dc, GetStockObject(i));
        SelectObject(dc, GetStockObject(i & 1 ? WHITE_PEN : BLACK_PEN));
        Rectangle(dc, i * 20 + 2, 40, i * 20 + 17, 70);
    }
}

}

std::vector<Scene> FillScenes()
{
    return {
        {"fills-hatches", 401, 420, 32, false, Agreement::Exact, Hatches},
        {"fills-hatches-24-bits", 401, 420, 24, false, Agreement::Exact, Hatches},
        {"fills-hatches-top-down", 403, 421, 32, true, Agreement::Exact, Hatches},
        {"fills-hatches-shifted-origin", 401, 420, 24, true, Agreement::Exact, ShiftedHatches},
        {"fills-background", 517, 389, 32, false, Agreement::Exact, Background},
        {"fills-background-24-bits", 517, 389, 24, false, Agreement::Exact, Background},
        {"fills-rects", 401, 301, 32, false, Agreement::Exact, FilledRects},
        {"fills-rects-24-bits", 402, 301, 24, true, Agreement::Exact, FilledRects},
        {"fills-stock-brushes", 131, 81, 32, false, Agreement::Exact, StockBrushes},
    };
}
