#include "canvas/VostelImage.h"

#include "base/Truncate.h"
#include "canvas/view/Colors.h"
#include "canvas/view/PaintKit.h"
#include "canvas/view/SelectedObject.h"
#include "foundation/Planes.h"
#include "platform/FileSaving.h"
#include "platform/HostServices.h"
#include "platform/PictureSaving.h"
#include "vostel/Directories.h"
#include "vostel/PathStrings.h"

namespace vostel {

namespace {

// A zoomed image covers a display rectangle that no picture can hold.
constexpr long long MaxPixels = 1LL << 28;

bool IsCancelled(const CString& name)
{
    return name == L"NULL";
}

// The box of a context as a picture file.
bool SaveBox(HDC source, const CRect& box, const CString& name)
{
    const long long width = static_cast<long long>(box.right) - box.left;
    const long long height = static_cast<long long>(box.bottom) - box.top;
    ATL::CImage     picture;
    if (width < 1 || height < 1 || width * height > MaxPixels ||
        !picture.Create(static_cast<int>(width), static_cast<int>(height), 32))
        return false;
    BitBlt(picture.GetDC(), 0, 0, static_cast<int>(width), static_cast<int>(height), source, box.left,
           box.top, SRCCOPY);
    picture.ReleaseDC();
    return SavePicture(picture, name) >= 0;
}

template <typename T>
void SavePlane(const StructData2D<T>& plane, CString& name)
{
    const OSCString narrow(name);
    FileReplacement file{CString(narrow.GetChar())};
    if (file.Stream() && plane.Ptr1D)
        std::fwrite(plane.Ptr1D, sizeof(T), CountOf(plane), file.Stream());
    file.Keep();    // a failure is not reported
}

// A length measure as it stands on the picture of a part of the image.
void BurnIn(HDC dc, VostelObj& measure, const CRect& box)
{
    const auto end = [&](std::size_t index) {
        PointTemplateBase<double> at;
        if (index < measure.ImagePoints.size())
            at = measure.ImagePoints[index];
        return CPoint(TruncToInt(at.x - box.left), TruncToInt(at.y - box.top));
    };
    const CPoint  first = end(0);
    const CPoint  second = end(1);
    const CString text = measure.GetResultText();
    MoveToEx(dc, first.x, first.y, nullptr);
    LineTo(dc, second.x, second.y);
    TextOutW(dc, WrapAdd(second.x, 20), WrapSub(second.y, 20), text, text.GetLength());
}

}

VostelObj* VostelImage::FirstSelectedRect()
{
    for (VostelObj* element : Elements.Selected()) {
        if (element->TypeCode == OverlayRect)
            return &Elements.Settle(*element);
    }
    return nullptr;
}

void VostelImage::SaveClient()
{
    const CString name = OSDIR().GetBmpFile();
    if (IsCancelled(name) || CurrentFileType == FileTypeNone)
        return;
    const VostelObj* const rect = FirstSelectedRect();
    if (!SaveBox(ClientMemDC, rect ? rect->ClientBox : View.ClientRect, name))
        ShowMessage(L"保存图像文件失败！");
}

void VostelImage::SaveImaWithOverlap()
{
    const CString name = OSDIR().GetBmpFile();
    if (IsCancelled(name) || CurrentFileType == FileTypeNone)
        return;
    if (!SaveBox(ClientMemDC, View.DisplayRect, name))
        ShowMessage(L"保存图像文件失败！");
}

void VostelImage::SaveNowShowIma()
{
    const CString name = OSDIR().GetBmpFile();
    if (IsCancelled(name) || CurrentFileType == FileTypeNone)
        return;
    if (const VostelObj* const rect = FirstSelectedRect())
        SavePart(rect->ImageBox, name);
    else
        CanvasSurface.SaveColorImage(name);
}

// The box counts its right and bottom edge in: one more each way than its own difference. Off the image the
// picture is black.
void VostelImage::SavePart(const CRect& box, const CString& name)
{
    const long long width = static_cast<long long>(box.right) - box.left + 1;
    const long long height = static_cast<long long>(box.bottom) - box.top + 1;
    ATL::CImage     picture;
    if (width < 1 || height < 1 || width * height > MaxPixels ||
        !picture.Create(static_cast<int>(width), static_cast<int>(height), 24))
        return;
    for (int y = 0; y < height; ++y) {
        unsigned char* const row = static_cast<unsigned char*>(picture.GetBits()) +
                                   static_cast<std::ptrdiff_t>(y) * picture.GetPitch();
        for (int x = 0; x < width; ++x) {
            const unsigned int word = CanvasSurface.PixelAt(
                WrapAdd(box.left, x), WrapSub(WrapSub(CanvasSurface.Height - 1, box.top), y));
            row[3 * x] = static_cast<unsigned char>(word);
            row[3 * x + 1] = static_cast<unsigned char>(word >> 8);
            row[3 * x + 2] = static_cast<unsigned char>(word >> 16);
        }
    }
    BurnInLengths(picture.GetDC(), box);
    picture.ReleaseDC();
    SavePicture(picture, name);
}

void VostelImage::BurnInLengths(HDC dc, const CRect& box) const
{
    constexpr int        TextHeight = 20;
    const SelectedObject pen(dc, CreatePen(PS_SOLID, 1, Red));
    const SelectedObject font(dc, CreateCaptionFont(TextHeight));
    SetTextColor(dc, Red);
    SetBkMode(dc, TRANSPARENT);
    for (VostelObj* element : Elements.NeverResting()) {
        if (element->TypeCode == OverlayMeasureLine)
            BurnIn(dc, *element, box);
    }
}

void VostelImage::Save8bit()
{
    CString name = OSDIR().GetBmpFile();
    if (!IsCancelled(name) && CurrentFileType != FileTypeNone)
        CanvasSurface.SaveGrayBmp(name);
}

void VostelImage::SaveRaw()
{
    CString name = OSDIR().GetRawFile();
    if (!IsCancelled(name) && CurrentFileType != FileTypeNone)
        SavePlane(HandOutRaw(), name);
}

void VostelImage::SaveLabel()
{
    GenerateLabel(false);
    CString name = OSDIR().GetRawFile();
    if (!IsCancelled(name))
        SavePlane(LabelIma, name);
}

}
