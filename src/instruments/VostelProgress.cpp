#include "instruments/VostelProgress.h"

#include "base/Truncate.h"
#include "overlay/StateArchive.h"

namespace vostel {

namespace {

constexpr COLORREF BarColor = RGB(100, 100, 100);

}

// An empty range gives no finite width, and a position beyond the range runs the bar beyond the control; both
// are left as they come out.
void VostelProgress::RefreshClientGeometry()
{
    BarRect = ClientBox;
    InflateRect(&BarRect, -Scaled(3), -Scaled(3));
    // Hosts may give a range of more than 32 bits.
    const float done = static_cast<float>(static_cast<std::int64_t>(Pos) - RangeLow) /
                       static_cast<float>(static_cast<std::int64_t>(RangeHigh) - RangeLow);
    BarRect.right = TruncToInt(done * static_cast<float>(WrapSub(BarRect.right, BarRect.left)) +
                               static_cast<float>(BarRect.left));
}

void VostelProgress::OnDraw(HDC dc)
{
    VostelFixedRect::OnDraw(dc);
    RefreshClientGeometry();
    Kit.FillSolid(BarRect, BarColor);
}

void VostelProgress::Persist(StateArchive& archive)
{
    VostelFixedRect::Persist(archive);
    archive(RangeLow, RangeHigh, Pos);
}

}
