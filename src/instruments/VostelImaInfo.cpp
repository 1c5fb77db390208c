#include "instruments/VostelImaInfo.h"

#include "base/Truncate.h"
#include "canvas/view/ImageValues.h"
#include "foundation/FormatText.h"

namespace vostel {

namespace {

// 0 to extent - 1; 0 where there is no extent.
double Clamped(double v, int extent)
{
    if (v > extent - 1.0)
        v = extent - 1.0;
    return v < 0.0 ? 0.0 : v;
}

}

void VostelImaInfo::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelTextML::OnMouseMove(flags, point);
    if (!OwnerImage)
        return;
    ClearLines();
    // The position comes before any clamping and may lie outside the image.
    const PointTemplateBase<double> at = ClientToImage(HoverPoint);
    AddTextLine(FormatText(L"%d %d", TruncToInt(at.x), TruncToInt(at.y)));

    const CanvasView& view = OwnerImage->ShownView();
    const double      x = Clamped(at.x, view.ImageWidth);
    const double      y = Clamped(at.y, view.ImageHeight);
    if (OwnerImage->ShownType() == FileTypeRaw) {
        AddTextLine(FormatText(L"ori raw value = %5.3f",
                               static_cast<double>(OwnerImage->OriginalAt(TruncToInt(x), TruncToInt(y)))));
        AddTextLine(FormatText(L"raw value = %5.3f",
                               static_cast<double>(OwnerImage->StretchedAt(TruncToInt(x), TruncToInt(y)))));
    } else if (OwnerImage->ShownType() == FileTypeByte) {
        // Rows count from the bottom, and the difference is truncated, not the position.
        const unsigned int word =
            OwnerImage->SurfacePixelAt(TruncToInt(x), TruncToInt(view.ImageHeight - 1 - y));
        AddTextLine(FormatText(L"R = %d G=%d B=%d", static_cast<int>(word >> 16 & 0xFF),
                               static_cast<int>(word >> 8 & 0xFF), static_cast<int>(word & 0xFF)));
    } else {
        AddTextLine(Settings() && Settings()->English ? L"No image data" : L"没有图像数据");
    }
}

bool VostelImaInfo::TakeText(const CString&)
{
    return false;
}

void VostelImaInfo::Persist(StateArchive& archive)
{
    VostelMovableRect::Persist(archive);
}

}
