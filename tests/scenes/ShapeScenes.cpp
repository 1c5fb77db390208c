#include "Scenes.h"

#include <cstdlib>

namespace {

using Shape = decltype(&Rectangle);

// Ellipses much taller than wide end before they reach the top and the bottom of their box. Wine fills rows
// that it has never measured there, anywhere in the picture: such ellipses are drawn hollow only.
bool HasBlankTips(int width, int height)
{
    return width > 2 && height >= 2 * (width - 1) * (width - 1);
}

// Boxes of every size from 0 to 40 each way.
void Sizes(HDC dc, Shape shape, int from, int to, bool filled)
{
    int cell = to + 2;
    for (int h = from; h <= to; ++h)
        for (int w = from; w <= to; ++w) {
            if (filled && shape == Ellipse && HasBlankTips(w, h))
                continue;
            int x = (w - from) * cell + 1, y = (h - from) * cell + 1;
            shape(dc, x, y, x + w, y + h);
        }
}

void EllipseOutlines(HDC dc, int, int)
{
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    Sizes(dc, Ellipse, 0, 40, false);
}
void EllipseFills(HDC dc, int, int)
{
    SelectObject(dc, GetStockObject(NULL_PEN));
    SelectObject(dc, GetStockObject(BLACK_BRUSH));
    Sizes(dc, Ellipse, 0, 40, true);
}
void EllipsesWithBoth(HDC dc, int, int)
{
    SelectedObject pen(dc, CreatePen(PS_SOLID, 1, RGB(255, 0, 0)));
    SelectedObject brush(dc, CreateSolidBrush(RGB(0, 200, 255)));
    Sizes(dc, Ellipse, 0, 40, true);
}
void RectanglesWithBoth(HDC dc, int, int)
{
    SelectedObject pen(dc, CreatePen(PS_SOLID, 1, RGB(255, 0, 0)));
    SelectedObject brush(dc, CreateSolidBrush(RGB(0, 200, 255)));
    Sizes(dc, Rectangle, 0, 12, true);
}
void RectanglesWithoutPen(HDC dc, int, int)
{
    SelectObject(dc, GetStockObject(NULL_PEN));
    SelectedObject brush(dc, CreateSolidBrush(RGB(0, 100, 255)));
    Sizes(dc, Rectangle, 0, 12, true);
}
void RectangleOutlines(HDC dc, int, int)
{
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    Sizes(dc, Rectangle, 0, 12, true);
}

// Corners handed over in every order, also empty and far outside.
void Corners(HDC dc, int, int)
{
    SceneRandom random(31);
    for (int i = 0; i < 60; ++i) {
        SelectedObject pen(dc, CreatePen(random.Between(0, 5) ? PS_SOLID : PS_NULL, 1, random.Color()));
        SelectedObject brush(dc, random.Between(0, 1)
                                     ? CreateSolidBrush(random.Color())
                                     : CreateHatchBrush(random.Between(0, 5), random.Color()));
        SetBkMode(dc, random.Between(0, 1) ? OPAQUE : TRANSPARENT);
        SetBkColor(dc, random.Color());
        int  x0 = random.Between(-60, 460), x1 = random.Between(-60, 460);
        int  y0 = random.Between(-60, 360), y1 = random.Between(-60, 360);
        bool rectangle = random.Between(0, 1) != 0 || HasBlankTips(std::abs(x1 - x0), std::abs(y1 - y0));
        (rectangle ? Rectangle : Ellipse)(dc, x0, y0, x1, y1);
    }
}

void LargeEllipses(HDC dc, int, int)
{
    SceneRandom random(32);
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    for (int i = 0; i < 60; ++i) {
        SelectedObject pen(dc, CreatePen(PS_SOLID, 1, random.Color()));
        POINT          at = random.Point(-900, 900, -900, 900), size = random.Point(50, 1600, 50, 1600);
        Ellipse(dc, at.x, at.y, at.x + size.x, at.y + size.y);
    }
}
void LargeFilledEllipses(HDC dc, int, int)
{
    SceneRandom random(33);
    SelectObject(dc, GetStockObject(NULL_PEN));
    for (int i = 0; i < 60; ++i) {
        SelectedObject brush(dc, CreateSolidBrush(random.Color()));
        POINT          at = random.Point(-900, 400, -900, 300), size = random.Point(50, 1600, 50, 1600);
        Ellipse(dc, at.x, at.y, at.x + size.x, at.y + size.y);
    }
}

void BrokenPens(HDC dc, int, int)
{
    SceneRandom random(34);
    for (int style : {PS_DASH, PS_DOT})
        for (int mode : {OPAQUE, TRANSPARENT})
            for (int i = 0; i < 16; ++i) {
                SelectedObject pen(dc, CreatePen(style, 1, random.Color()));
                SelectedObject brush(dc, CreateSolidBrush(RGB(230, 230, 100)));
                SetBkMode(dc, mode);
                SetBkColor(dc, RGB(0, 160, 160));
                int x = i % 8 * 100 + random.Between(2, 9),
                    y = i / 8 * 80 + (style - 1) * 320 + (mode - 1) * 160;
                int w = random.Between(1, 90), h = random.Between(1, 70);
                (i & 1 || HasBlankTips(w, h) ? Rectangle : Ellipse)(dc, x, y, x + w, y + h);
            }
}

void WidePens(HDC dc, Shape shape, bool hollow)
{
    for (int width = 2; width <= 17; ++width)
        for (int i = 0; i < 8; ++i) {
            SelectedObject pen(dc, CreatePen(PS_SOLID, width, RGB(180, 60, width * 9)));
            SelectedObject brush(dc, CreateSolidBrush(RGB(200, 240, 180)));
            HGDIOBJ        filled = hollow ? SelectObject(dc, GetStockObject(NULL_BRUSH)) : nullptr;
            int            x = i * 90 + 20, y = (width - 2) * 70 + 14;
            shape(dc, x, y, x + i * 7 + i % 2, y + (i * 5) % 39 + i / 2);
            if (hollow)
                SelectObject(dc, filled);
        }
}
void WideRectangles(HDC dc, int, int)
{
    WidePens(dc, Rectangle, false);
}
void WideHollowRectangles(HDC dc, int, int)
{
    WidePens(dc, Rectangle, true);
}
void WideEllipses(HDC dc, int, int)
{
    WidePens(dc, Ellipse, false);
}
void WideHollowEllipses(HDC dc, int, int)
{
    WidePens(dc, Ellipse, true);
}

void ShiftedOrigin(HDC dc, int, int)
{
    SetViewportOrgEx(dc, 23, 47, nullptr);
    Corners(dc, 0, 0);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

}

std::vector<Scene> ShapeScenes()
{
    return {
        {"ellipses-outlines", 1723, 1723, 32, false, Agreement::Exact, EllipseOutlines},
        {"ellipses-fills", 1723, 1723, 32, false, Agreement::Exact, EllipseFills},
        {"ellipses-both", 1723, 1723, 24, true, Agreement::Exact, EllipsesWithBoth},
        {"ellipses-large", 401, 301, 32, false, Agreement::Exact, LargeEllipses},
        {"ellipses-large-filled", 401, 301, 24, false, Agreement::Exact, LargeFilledEllipses},
        {"rectangles-both", 183, 183, 32, false, Agreement::Exact, RectanglesWithBoth},
        {"rectangles-without-pen", 183, 183, 24, false, Agreement::Exact, RectanglesWithoutPen},
        {"rectangles-outlines", 183, 183, 24, true, Agreement::Exact, RectangleOutlines},
        {"shapes-corners", 401, 301, 32, true, Agreement::Exact, Corners},
        {"shapes-shifted-origin", 401, 301, 24, false, Agreement::Exact, ShiftedOrigin},
        {"shapes-broken-pens", 801, 641, 32, false, Agreement::Exact, BrokenPens},
        {"shapes-wide-rectangles", 760, 1130, 32, false, Agreement::Exact, WideRectangles},
        {"shapes-wide-hollow-rectangles", 760, 1130, 32, false, Agreement::Exact, WideHollowRectangles},
        {"shapes-wide-ellipses", 760, 1130, 32, false, Agreement::Exact, WideEllipses},
        {"shapes-wide-hollow-ellipses", 760, 1130, 24, false, Agreement::Exact, WideHollowEllipses},
    };
}
