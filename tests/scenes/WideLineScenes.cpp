#include "Scenes.h"

namespace {

// One line of each direction to a cell.
void Directions(HDC dc, int width, int reach)
{
    SelectedObject pen(dc, CreatePen(PS_SOLID, width, RGB(30, 20, 200)));
    int            cell = 2 * reach + width + 5, index = 0;
    for (int dy = -reach; dy <= reach; dy += 2)
        for (int dx = -reach; dx <= reach; dx += 3, ++index) {
            int x = index % 16 * cell + cell / 2, y = index / 16 * cell + cell / 2;
            Segment(dc, x, y, x + dx, y + dy);
        }
}
void Width2(HDC dc, int, int)
{
    Directions(dc, 2, 12);
}
void Width3(HDC dc, int, int)
{
    Directions(dc, 3, 12);
}
void Width4(HDC dc, int, int)
{
    Directions(dc, 4, 12);
}
void Width7(HDC dc, int, int)
{
    Directions(dc, 7, 12);
}
void Width12(HDC dc, int, int)
{
    Directions(dc, 12, 14);
}

// Dots, short and long lines of every width from 1 to 40.
void AllWidths(HDC dc, int, int)
{
    SceneRandom random(21);
    for (int width = 1; width <= 40; ++width) {
        SelectedObject pen(dc, CreatePen(PS_SOLID, width, random.Color()));
        int            x = (width - 1) % 8 * 120 + 60, y = (width - 1) / 8 * 120 + 60;
        Segment(dc, x - 35, y - 35, x - 35, y - 35);
        Segment(dc, x + 30, y - 35, x + 31, y - 35);
        MoveToEx(dc, x - 30, y + 30, nullptr);
        LineTo(dc, random.Point(x, x + 30, y - 30, y + 30));
    }
}

void Polylines(HDC dc, int, int)
{
    SceneRandom random(22);
    for (int width : {2, 3, 5, 8, 13, 20, 31, 40}) {
        SelectedObject pen(dc, CreatePen(PS_SOLID, width, random.Color()));
        MoveTo(dc, random.Point(0, 500, 0, 400));
        for (int i = 0; i < 7; ++i)
            LineTo(dc, random.Point(-30, 530, -30, 430));
    }
}

void Clipped(HDC dc, int, int)
{
    SceneRandom random(23);
    for (int i = 0; i < 60; ++i) {
        SelectedObject pen(dc, CreatePen(PS_SOLID, 2 + i % 39, random.Color()));
        MoveTo(dc, random.Point(-3000, 3000, -3000, 3000));
        LineTo(dc, random.Point(-3000, 3000, -3000, 3000));
    }
}

// A wide pen of a broken style.
void BrokenStyles(HDC dc, int, int)
{
    SetBkColor(dc, RGB(255, 200, 0));
    for (int style : {PS_DASH, PS_DOT, PS_NULL})
        for (int width = 0; width <= 12; ++width)
            for (int mode : {OPAQUE, TRANSPARENT}) {
                SetBkMode(dc, mode);
                SelectedObject pen(dc, CreatePen(style, width, RGB(40, 10, 90)));
                int            x = style * 130 + (mode - 1) * 60 + 20, y = width * 24 + 20;
                MoveToEx(dc, x, y, nullptr);
                LineTo(dc, x + 40, y + 3);
                LineTo(dc, x + 10, y + 11);
            }
}

// Widths and directions whose offsets across the line are whole numbers.
void WholeOffsets(HDC dc, int, int)
{
    constexpr int triples[][2] = {{3, 4}, {5, 12}, {8, 15}, {7, 24}, {20, 21}, {9, 40}};
    int           index = 0;
    for (auto& triple : triples)
        for (int width = 5; width <= 30; width += 5, ++index) {
            SelectedObject pen(dc, CreatePen(PS_SOLID, width, RGB(index * 6, 100, 30)));
            int            x = index % 6 * 110 + 55, y = index / 6 * 110 + 55;
            Segment(dc, x, y, x + triple[0] * (40 / triple[1]), y + triple[1] * (40 / triple[1]));
            Segment(dc, x, y, x - triple[1] * (40 / triple[1]), y + triple[0] * (40 / triple[1]));
        }
}

void ShiftedOrigin(HDC dc, int, int)
{
    SetViewportOrgEx(dc, -33, 44, nullptr);
    Polylines(dc, 0, 0);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

}

std::vector<Scene> WideLineScenes()
{
    return {
        {"wide-directions-2", 500, 260, 32, false, Agreement::Exact, Width2},
        {"wide-directions-3", 520, 260, 32, false, Agreement::Exact, Width3},
        {"wide-directions-4", 540, 270, 32, false, Agreement::Exact, Width4},
        {"wide-directions-7", 580, 290, 24, false, Agreement::Exact, Width7},
        {"wide-directions-12", 720, 440, 32, false, Agreement::Exact, Width12},
        {"wide-all-widths", 960, 600, 32, true, Agreement::Exact, AllWidths},
        {"wide-polylines", 500, 400, 32, false, Agreement::Exact, Polylines},
        {"wide-clipped", 401, 301, 32, false, Agreement::Exact, Clipped},
        {"wide-broken-styles", 800, 340, 32, false, Agreement::Exact, BrokenStyles},
        {"wide-whole-offsets", 661, 661, 32, false, Agreement::Exact, WholeOffsets},
        {"wide-shifted-origin", 500, 400, 24, true, Agreement::Exact, ShiftedOrigin},
    };
}
