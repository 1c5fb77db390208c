#include "instruments/VostelMeasureAngle.h"

#include "canvas/view/HitTests.h"
#include "instruments/CaptionTexts.h"

#include <cmath>

namespace vostel {

namespace {

constexpr double DegreesPerRadian = 57.295780490442965;    // 180 / 3.1415926

}

VostelMeasureAngle::VostelMeasureAngle()
{
    ClampToImage = false;
}

void VostelMeasureAngle::BeginPress(CPoint point)
{
    ButtonDown = true;
    LastPoint = point;
    ActiveNode = HitRectList(HandleRects, point);
}

// Directions without length give no number, which is what the caption then shows.
CString VostelMeasureAngle::AngleText(double ax, double ay, double bx, double by) const
{
    const double angle =
        std::acos((by * ay + bx * ax) / std::sqrt((by * by + bx * bx) * (ay * ay + ax * ax))) *
        DegreesPerRadian;
    return AngleCaption(angle, Settings());
}

}
