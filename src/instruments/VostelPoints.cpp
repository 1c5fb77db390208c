#include "instruments/VostelPoints.h"

#include "base/Truncate.h"
#include "foundation/FormatText.h"
#include "instruments/CaptionTexts.h"

namespace vostel {

namespace {

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
    const int arm = Scaled(CrossArm);
    const int reach = Scaled(NumberReach);
    CRect     shown(0, 0, Kit.BmpWidth, Kit.BmpHeight);
    InflateRect(&shown, reach, reach);
    Kit.SelectTextStyle(Scaled(NumberHeight), TRANSPARENT, LineColor());
    for (std::size_t i = 0; i < ClientPoints.size(); ++i) {
        const CPoint at = ClientPoints[i];
        if (!PtInRect(&shown, at))
            continue;
        // One more at the far ends: a line leaves out its last pixel.
        Kit.DrawLine(CPoint(at.x - arm, at.y), CPoint(at.x + arm + 1, at.y), 0, LineColor(), PS_SOLID);
        Kit.DrawLine(CPoint(at.x, at.y - arm), CPoint(at.x, at.y + arm + 1), 0, LineColor(), PS_SOLID);
        if (!ShowsCaptions())
            continue;
        const CString number = FormatText(L"%d", static_cast<int>(i + 1));
        TextOutW(Kit.Dc, at.x + Scaled(NumberRight), at.y - Scaled(NumberAbove), number, number.GetLength());
    }
}

}
