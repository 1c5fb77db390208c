#include "instruments/CaptionTexts.h"

#include "canvas/view/CanvasView.h"
#include "foundation/FormatText.h"

namespace vostel {

namespace {

bool IsEnglish(const CanvasSettings* settings)
{
    return settings && settings->English;
}

}

CString LengthCaption(double length, const CString& unit, const CanvasSettings* settings)
{
    return FormatText(IsEnglish(settings) ? L"Length = %4.3f " : L"长度 = %4.3f ", length) + unit;
}

CString AngleCaption(double degrees, const CanvasSettings* settings)
{
    return FormatText(IsEnglish(settings) ? L"Angle = %3.3f°" : L"角度 = %3.3f 度", degrees);
}

CString CountCaption(std::size_t count, const CanvasSettings* settings)
{
    return FormatText(IsEnglish(settings) ? L"Points = %d" : L"点数 = %d", static_cast<int>(count));
}

}
