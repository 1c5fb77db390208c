#include "instruments/VostelPoints.h"

#include "foundation/FormatText.h"
#include "instruments/CaptionTexts.h"

#include <algorithm>
#include <set>
#include <utility>

namespace vostel {

namespace {

constexpr std::size_t MostNumbers = 500;    // that are drawn wherever they fall

constexpr int CrossArm = 5;         // px
constexpr int NumberHeight = 14;    // px
constexpr int NumberRight = 6;      // px from the mark to the number's upper left corner
constexpr int NumberAbove = 14;
constexpr int NumberReach = 60;    // px beyond the surface where a number still shows

}

VostelPoints::VostelPoints()
{
    TypeCode = OverlayPoints;
}

CString VostelPoints::CaptionText() const
{
    return CountCaption(ImagePoints.size(), Settings());
}

bool VostelPoints::HitsMark(CPoint) const
{
    return false;
}

void VostelPoints::DrawMark()
{
    const int reach = Scaled(NumberReach);
    CRect     around(0, 0, Kit.BmpWidth, Kit.BmpHeight);
    InflateRect(&around, reach, reach);
    std::vector<CPoint> shown;
    std::vector<int>    numbers;
    for (std::size_t i = 0; i < ClientPoints.size(); ++i) {
        if (!PtInRect(&around, ClientPoints[i]))
            continue;
        shown.push_back(ClientPoints[i]);
        numbers.push_back(static_cast<int>(i + 1));
    }
    Kit.DrawCrosses(shown, Scaled(CrossArm), LineColor());
    if (ShowsCaptions())
        DrawNumbers(shown, numbers);
}

void VostelPoints::DrawNumbers(const std::vector<CPoint>& shown, const std::vector<int>& numbers)
{
    const bool                    crowded = shown.size() > MostNumbers;
    const int                     cell = std::max(1, Scaled(2 * NumberHeight));
    std::set<std::pair<int, int>> taken;
    Kit.SelectTextStyle(Scaled(NumberHeight), TRANSPARENT, LineColor());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (crowded && !taken.emplace(shown[i].x / cell, shown[i].y / cell).second)
            continue;
        const CString number = FormatText(L"%d", numbers[i]);
        // With a shadow, to be read on bright images too.
        Kit.DrawShadowedText(number, shown[i].x + Scaled(NumberRight), shown[i].y - Scaled(NumberAbove),
                             Scaled(1), LineColor());
    }
}

}
