#include "Scenes.h"

namespace {

// Every vector of up to 12 pixels each way, one to a cell: all octants and all ties.
void Directions(HDC dc, int style, COLORREF color)
{
    SelectedObject pen(dc, CreatePen(style, 1, color));
    for (int dy = -12; dy <= 12; ++dy)
        for (int dx = -12; dx <= 12; ++dx) {
            int x = (dx + 12) * 27 + 13;
            int y = (dy + 12) * 27 + 13;
            Segment(dc, x, y, x + dx, y + dy);
        }
}

void ThinDirections(HDC dc, int, int)
{
    Directions(dc, PS_SOLID, RGB(200, 20, 30));
}

void DashedDirections(HDC dc, int, int)
{
    SetBkColor(dc, RGB(0, 90, 250));
    Directions(dc, PS_DASH, RGB(250, 220, 30));
}

void DottedDirections(HDC dc, int, int)
{
    SetBkMode(dc, TRANSPARENT);
    Directions(dc, PS_DOT, RGB(10, 220, 30));
}

// A fan of long lines from near the middle through every point of the edge and beyond it.
void Fan(HDC dc, int width, int height, int reach)
{
    for (int i = -40; i <= 40; ++i) {
        SelectedObject pen(dc, CreatePen(PS_SOLID, 1, RGB(3 * i + 128, 128 - 3 * i, (i & 7) * 30)));
        int            x = width / 2, y = height / 2, step = i * reach / 40;
        Segment(dc, x, y, x + step, y - reach);
        Segment(dc, x, y, x + step, y + reach);
        Segment(dc, x, y, x - reach, y + step);
        Segment(dc, x + reach, y + step, x, y);
    }
}

void ThinFan(HDC dc, int width, int height)
{
    Fan(dc, width, height, 140);
}
void ThinFanBeyondTheEdge(HDC dc, int width, int height)
{
    Fan(dc, width, height, 3001);
}

void RandomLines(HDC dc, int count, unsigned seed, int style, int low, int high)
{
    SceneRandom random(seed);
    for (int i = 0; i < count; ++i) {
        SelectedObject pen(dc, CreatePen(style, 1, random.Color()));
        int            x0 = random.Between(low, high), y0 = random.Between(low, high);
        int            x1 = random.Between(low, high), y1 = random.Between(low, high);
        SetBkColor(dc, random.Color());
        SetBkMode(dc, random.Between(0, 1) ? OPAQUE : TRANSPARENT);
        Segment(dc, x0, y0, x1, y1);
    }
}

void ThinClippedNear(HDC dc, int, int)
{
    RandomLines(dc, 120, 11, PS_SOLID, -100, 500);
}
void ThinClippedFar(HDC dc, int, int)
{
    RandomLines(dc, 300, 12, PS_SOLID, -20000, 20000);
}
void ThinClippedVeryFar(HDC dc, int, int)
{
    RandomLines(dc, 500, 13, PS_SOLID, -60000000, 60000000);
}
void DashedClipped(HDC dc, int, int)
{
    RandomLines(dc, 120, 14, PS_DASH, -300, 700);
}
void DottedClipped(HDC dc, int, int)
{
    RandomLines(dc, 120, 15, PS_DOT, -300, 700);
}

// Where the dash pattern starts anew. It does so at every LineTo; on some versions of the real desktop it
// runs on over consecutive ones, which is why the engine never draws a broken polyline.
void StyledPolylines(HDC dc, int style, unsigned seed)
{
    SceneRandom random(seed);
    for (int mode : {OPAQUE, TRANSPARENT}) {
        SetBkMode(dc, mode);
        SetBkColor(dc, RGB(90, 200, 240));
        for (int line = 0; line < 20; ++line) {
            SelectedObject pen(dc, CreatePen(style, 1, random.Color()));
            MoveTo(dc, random.Point(0, 400, 0, 300));
            for (int i = 0; i < 8; ++i)
                LineTo(dc, random.Point(-60, 460, -60, 360));
        }
    }
}
void DashedPolylines(HDC dc, int, int)
{
    StyledPolylines(dc, PS_DASH, 16);
}
void DottedPolylines(HDC dc, int, int)
{
    StyledPolylines(dc, PS_DOT, 17);
}

// What restarts the pattern: a move, another pen, another color, another drawing call, or nothing.
void StyledRestarts(HDC dc, int, int)
{
    for (int row = 0; row < 10; ++row) {
        SelectedObject pen(dc, CreatePen(row & 1 ? PS_DOT : PS_DASH, 1, RGB(255, 40, 10)));
        int            y = 10 + row * 20;
        SetBkMode(dc, row & 2 ? OPAQUE : TRANSPARENT);
        MoveToEx(dc, 5, y, nullptr);
        LineTo(dc, 12, y);
        LineTo(dc, 25, y);
        if (row >= 2 && row < 4)
            MoveToEx(dc, 25, y, nullptr);
        if (row >= 4 && row < 6)
            SelectObject(dc, GetCurrentObject(dc, OBJ_PEN));
        if (row >= 6 && row < 8)
            SetBkColor(dc, RGB(0, 0, 200));
        if (row >= 8)
            Rectangle(dc, 200, y - 5, 231, y + 8);
        LineTo(dc, 60, y);
        LineTo(dc, 60, y + 7);
        LineTo(dc, 90, y + 1);
        LineTo(dc, 90, y + 1);
        LineTo(dc, 170, y + 8);
    }
}

void NullPen(HDC dc, int, int)
{
    SelectedObject pen(dc, CreatePen(PS_NULL, 1, RGB(255, 0, 0)));
    Segment(dc, 5, 5, 50, 50);
    LineTo(dc, 60, 10);
    SelectObject(dc, GetStockObject(WHITE_PEN));
    LineTo(dc, 10, 60);
}

void ShiftedOrigin(HDC dc, int width, int height)
{
    SetViewportOrgEx(dc, 57, -31, nullptr);
    Fan(dc, width, height, 100);
    SetBkColor(dc, RGB(0, 255, 0));
    SelectedObject pen(dc, CreatePen(PS_DASH, 1, RGB(0, 0, 0)));
    MoveToEx(dc, 0, 60, nullptr);
    SetViewportOrgEx(dc, 60, 40, nullptr);    // the current point moves with it
    LineTo(dc, 300, 90);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

}

std::vector<Scene> LineScenes()
{
    return {
        {"lines-directions", 675, 675, 32, false, Agreement::Exact, ThinDirections},
        {"lines-directions-24-bits", 675, 675, 24, true, Agreement::Exact, ThinDirections},
        {"lines-directions-dashed", 675, 675, 32, true, Agreement::Exact, DashedDirections},
        {"lines-directions-dotted", 675, 675, 24, false, Agreement::Exact, DottedDirections},
        {"lines-fan", 401, 301, 32, false, Agreement::Exact, ThinFan},
        {"lines-fan-beyond-the-edge", 401, 301, 24, false, Agreement::Exact, ThinFanBeyondTheEdge},
        {"lines-clipped-near", 401, 301, 32, true, Agreement::Exact, ThinClippedNear},
        {"lines-clipped-far", 401, 301, 32, false, Agreement::Exact, ThinClippedFar},
        {"lines-clipped-very-far", 401, 301, 32, false, Agreement::Exact, ThinClippedVeryFar},
        {"lines-clipped-dashed", 401, 301, 24, true, Agreement::Exact, DashedClipped},
        {"lines-clipped-dotted", 401, 301, 32, false, Agreement::Exact, DottedClipped},
        {"lines-polylines-dashed", 401, 301, 32, false, Agreement::Exact, DashedPolylines},
        {"lines-polylines-dotted", 401, 301, 32, false, Agreement::Exact, DottedPolylines},
        {"lines-pattern-restarts", 301, 220, 32, false, Agreement::Exact, StyledRestarts},
        {"lines-null-pen", 101, 101, 32, false, Agreement::Exact, NullPen},
        {"lines-shifted-origin", 401, 301, 32, false, Agreement::Exact, ShiftedOrigin},
    };
}
