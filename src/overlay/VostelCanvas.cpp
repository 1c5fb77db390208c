#include "overlay/VostelCanvas.h"

#include "base/Truncate.h"
#include "foundation/FormatText.h"
#include "overlay/StateArchive.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr int FewestValues = 5;    // that are taken in
constexpr int LargestPlot = 32767;
constexpr int LabelHeight = 16;    // px
constexpr int FewestDrawn = 6;     // a line of exactly 5 is taken in and not shown

}

void VostelCanvas::SetPlacement(float x, float y, float w, float h)
{
    VostelMovableRect::SetPlacement(x, y, w, h);
    PlotWidth = WrapSub(ClientBox.right, ClientBox.left);
    PlotHeight = WrapSub(ClientBox.bottom, ClientBox.top);
    Plot.Allocate(PlotWidth, 1);
    std::fill_n(Plot.Ptr1D, static_cast<std::size_t>(PlotWidth), static_cast<unsigned short>(0));
}

void VostelCanvas::SetData(ClassData2DIO<float>& source)
{
    if (source.Width < FewestValues || source.Height < 1 || !source.Ptr1D) {
        Data.Allocate(1, 1);
        Data.Ptr1D[0] = 0.0f;
        return;
    }
    VostelMovableRect::SetData(source);
    Data.GetMinMax(DataMin, DataMax);
    XStep = static_cast<float>(Data.Width) / static_cast<float>(WrapSub(ClientBox.right, ClientBox.left));
    YScale = static_cast<float>(WrapSub(ClientBox.bottom, ClientBox.top)) / (DataMax - DataMin);
    for (int i = 0; i < PlotWidth; ++i) {
        // The bound is the plot's width, not the line's: of a longer line the later columns all show that one
        // value. A shorter line is never read past its end.
        const int   at = std::clamp(TruncToInt(static_cast<float>(i) * XStep), 0, PlotWidth - 1);
        const float value = at < Data.Width ? Data.Ptr1D[at] : 0.0f;
        Plot.Ptr1D[i] = TruncToUShort((value - DataMin) * YScale);
    }
}

void VostelCanvas::OnDraw(HDC dc)
{
    VostelMovableRect::OnDraw(dc);
    if (Data.Width < FewestDrawn)
        return;
    Kit.DrawCurve(Plot, ClientBox.left, ClientBox.bottom);
    // Classic plots take the font that the context happens to hold.
    if (OpenMade || PixelRatio() != 1.0)
        Kit.SelectTextStyle(Scaled(LabelHeight), TRANSPARENT, Blue);
    Kit.DrawLabel(Caption.IsEmpty() ? CaptionText() : Caption, WrapAdd(ClientBox.left, Scaled(5)),
                  WrapAdd(ClientBox.top, Scaled(5)));
}

void VostelCanvas::Persist(StateArchive& archive)
{
    VostelMovableRect::Persist(archive);
    int width = PlotWidth;
    int height = PlotHeight;
    archive(width, height);
    if (width < 0 || width > LargestPlot)
        archive.Refuse();
    else if (width != PlotWidth || height != PlotHeight)
        SetPlacement(static_cast<float>(ClientBox.left), static_cast<float>(ClientBox.top),
                     static_cast<float>(width), static_cast<float>(height));
}

CString VostelCanvas::CaptionText() const
{
    return RangeText(static_cast<double>(DataMin), static_cast<double>(DataMax));
}

CString VostelCanvas::RangeText(double low, double high) const
{
    const bool english = Settings() && Settings()->English;
    return FormatText(english ? L"Line: minimum %5.3f, maximum %5.3f"
                              : L"线数据的最小值为 %5.3f 最大值为 %5.3f",
                      low, high);
}

}
