#include "canvas/VostelImage.h"

#include "base/Truncate.h"
#include "canvas/SamplePainter.h"
#include "foundation/ArrayLength.h"
#include "foundation/Planes.h"
#include "output/FloatRange.h"

#include <algorithm>
#include <functional>

namespace vostel {

namespace {

template <typename T>
BytePlaneView PlaneOf(const StructData2D<T>& data)
{
    return {data.Ptr1D, CountOf(data), data.Width > 0 ? static_cast<std::size_t>(data.Width) : 0};
}

bool Overlaps(const float* data, std::size_t count, const ClassData2DIO<float>& held)
{
    const std::less<const float*> before;
    return count > 0 && CountOf(held) > 0 && before(data, held.Ptr1D + CountOf(held)) &&
           before(held.Ptr1D, data + count);
}

// An element of a float plane; -1 outside the plane, and where the data was not kept.
float ValueAt(const StructData2D<float>& plane, int x, int y)
{
    return CountOf(plane) > 0 && x >= 0 && x < plane.Width && y >= 0 && y < plane.Height
               ? plane.Ptr1D[static_cast<std::size_t>(y) * static_cast<std::size_t>(plane.Width) +
                             static_cast<std::size_t>(x)]
               : -1.0f;
}

}

VostelImage::VostelImage() = default;
VostelImage::~VostelImage() = default;

void VostelImage::PrepareImage(int width, int height, bool clearObjects, bool cleared)
{
    DropSamples();
    Source.reset();
    // Before the sizes change: where memory is short, this ends the call with the old surface still there.
    if (clearObjects)
        DeleteAll();
    CanvasWidth = width;
    CanvasHeight = height;
    VostelDC::PrepareImage(width, height, false, cleared);
}

void VostelImage::ShowGray(ClassData2DIO<unsigned char>& src, bool clearObjects)
{
    const ImageSamples former = DropSamples();
    RawOri.Release();
    Raw.Release();
    CurrentFileType = FileTypeByte;
    const std::size_t count = CountOf(src);
    PrepareImage(src.Width, src.Height, clearObjects, count == 0);
    if (count > 0)
        CanvasSurface.UploadGray(src.Ptr1D, src.Width, src.Height);
    GrayOnSurface = true;
}

void VostelImage::ShowColor(ClassData2DIO<unsigned char>& p1, ClassData2DIO<unsigned char>& p2,
                            ClassData2DIO<unsigned char>& p3, bool clearObjects)
{
    const ImageSamples former = DropSamples();
    RawOri.Release();
    Raw.Release();
    CurrentFileType = FileTypeByte;
    const std::size_t count = CountOf(p1);
    PrepareImage(p1.Width, p1.Height, clearObjects, count == 0);
    if (count > 0)
        CanvasSurface.UploadPlanes(PlaneOf(p1), PlaneOf(p2), PlaneOf(p3), p1.Width, p1.Height);
}

void VostelImage::ShowRaw(ClassData2DIO<float>& src, bool keepOriginal, bool clearObjects)
{
    const std::size_t count = CountOf(src);
    if (Overlaps(src.Ptr1D, count, Raw) || Overlaps(src.Ptr1D, count, RawOri)) {
        // A host shows data of this very canvas, whose planes are about to be written.
        ClassData2DIO<float> copy;
        copy = src;
        ShowRaw(copy, keepOriginal, clearObjects);
        return;
    }
    const ImageSamples former = DropSamples();
    // An empty source may be one of this canvas's own containers: its fields are read before they change.
    const float* const data = src.Ptr1D;
    const int          width = src.Width;
    const int          height = src.Height;
    if (!keepOriginal)
        RawOri.Release();
    CurrentFileType = FileTypeRaw;
    if (clearObjects)
        DeleteAll();
    const bool wholeImage = LabelsWholeImage() && count > 0;
    PrepareImage(width, height, false, !wholeImage);

    const RemapRule rule = KeepData(data, count, keepOriginal);
    ChooseWindow();
    DrawData(data, count, rule, wholeImage);
}

RemapRule VostelImage::KeepData(const float* data, std::size_t count, bool keepOriginal)
{
    if (count == 0)
        RefuseGiantWithoutSurface();
    SizeForOverwriting(Raw, CanvasWidth, CanvasHeight);
    if (keepOriginal)
        SizeForOverwriting(RawOri, CanvasWidth, CanvasHeight);
    if (count == 0) {
        std::fill_n(Raw.Ptr1D, CountOf(Raw), 0.0f);
        std::fill_n(RawOri.Ptr1D, CountOf(RawOri), 0.0f);
    }
    float low = 0.0f;
    float high = 0.0f;
    if (keepOriginal)
        FloatCopyMinMax(data, RawOri.Ptr1D, count, low, high);
    else
        FloatMinMax(data, count, low, high);
    DataRange.Low = low;
    DataRange.High = high;
    Stretch = MakeRemapRule(low, high, 0.0f, RawTop);
    return Stretch;
}

void VostelImage::ChooseWindow()
{
    // The full range first, so that an empty slider window (low not below high) keeps it.
    StoreContrastWindow(0.0f, 1.0f);
    if (ShowContrastCtrl)
        StoreContrastWindow(ContrastCtrl.Low, ContrastCtrl.High);
    RenewShownTable();
}

void VostelImage::DrawData(const float* data, std::size_t count, const RemapRule& rule, bool wholeImage)
{
    if (wholeImage && HasSurfacePixels()) {
        SizeForOverwriting(LabelIma, CanvasWidth, CanvasHeight);
        ContrastShowRemapped(ShownTable, rule, data, Raw.Ptr1D, CanvasWidth, CanvasHeight,
                             CanvasSurface.PixelsToChange(), LabelIma.Ptr1D);
        return;
    }
    RemapFloats(rule, data, Raw.Ptr1D, count);
    RedrawRaw();
}

void VostelImage::SetLutPara(float low, float high)
{
    if (CurrentFileType != FileTypeRaw)
        return;
    if (Window) {
        SetWindowShares(low, high);
        return;
    }
    if (Observer)
        Observer->WillChangeContrast();
    StoreContrastWindow(low, high);
    RenewShownTable();
    RedrawRaw();
}

void VostelImage::StoreContrastWindow(float low, float high)
{
    const int l = TruncToInt(low * RawTop);
    const int h = TruncToInt(high * RawTop);
    if (h > l) {
        Map.RangeHigh = std::min(h, 65535);
        Map.RangeLow = std::max(l, 0);
    }
}

void VostelImage::RenewShownTable()
{
    if (Map.RangeLow == ShownLow && Map.RangeHigh == ShownHigh)
        return;
    Map.GetMapUs();
    ShownTable.Build(Map);
    ShownLow = Map.RangeLow;
    ShownHigh = Map.RangeHigh;
}

void VostelImage::RedrawRaw()
{
    const bool drawable = HasSurfacePixels() && IsPlaneOf(Raw, CanvasWidth, CanvasHeight);
    if (drawable && LabelsWholeImage()) {
        SizeForOverwriting(LabelIma, CanvasWidth, CanvasHeight);
        ContrastShowAll(ShownTable, Raw.Ptr1D, CanvasWidth, CanvasHeight, CanvasSurface.PixelsToChange(),
                        LabelIma.Ptr1D);
        return;
    }
    GenerateLabel(true);
    if (drawable && IsPlaneOf(LabelIma, CanvasWidth, CanvasHeight))
        ContrastShowLabelled(ShownTable, Raw.Ptr1D, CanvasWidth, CanvasHeight, CanvasSurface.PixelsToChange(),
                             LabelIma.Ptr1D);
}

float VostelImage::OriginalAt(int imageX, int imageY) const
{
    return ShowsSamples() ? SampleAt(imageX, imageY) : ValueAt(RawOri, imageX, imageY);
}

float VostelImage::StretchedAt(int imageX, int imageY) const
{
    if (!ShowsSamples())
        return ValueAt(Raw, imageX, imageY);
    if (!IsDeep(Samples.Type) || !IsOnImage(imageX, imageY))
        return NoValue;
    float value = SampleAt(imageX, imageY);
    RemapFloats(Stretch, &value, &value, 1);
    return value;
}

unsigned int VostelImage::SurfacePixelAt(int imageX, int memoryRow) const
{
    const int row = WrapSub(WrapSub(Samples.Height, 1), memoryRow);
    if (ShowsSamples() && !IsDeep(Samples.Type) && IsOnImage(imageX, row))
        return SampleColor(imageX, row);
    return CanvasSurface.PixelAt(imageX, memoryRow);
}

float VostelImage::ReadPixelValue(CPoint clientPoint) const
{
    const PointTemplateBase<double> at = View.ClientToImage(clientPoint);
    const int ix = TruncToInt(std::max(0.0, std::min(at.x, static_cast<double>(CanvasWidth) - 1.0)));
    const int iy = TruncToInt(std::max(0.0, std::min(at.y, static_cast<double>(CanvasHeight) - 1.0)));
    if (CurrentFileType == FileTypeRaw || CurrentFileType == FileTypeRawPlain)
        return OriginalAt(ix, iy);
    if (CurrentFileType == FileTypeByte && HasSurfacePixels()) {
        const unsigned int pixel = SurfacePixelAt(ix, CanvasHeight - iy - 1);
        const int          r = pixel >> 16 & 0xFF;
        const int          g = pixel >> 8 & 0xFF;
        const int          b = pixel & 0xFF;
        // The products do not always add up to the gray itself: 65 levels read one lower. No rounding.
        return static_cast<float>(TruncToInt(g * 0.587 + r * 0.299 + b * 0.114));
    }
    return NoValue;
}

bool VostelImage::LabelsWholeImage() const
{
    const std::vector<VostelObj*>& all = Elements.AsTheyLie();
    return std::none_of(all.begin(), all.end(), [](const VostelObj* element) { return element->Selected; });
}

void VostelImage::RefuseGiantWithoutSurface() const
{
    constexpr long long MaxPixels = 1LL << 26;
    if (!HasSurfacePixels() && CanvasWidth > 0 && CanvasHeight > 0 &&
        static_cast<long long>(CanvasWidth) * CanvasHeight > MaxPixels)
        FailArrayLength();
}

bool VostelImage::HasSurfacePixels() const
{
    return CanvasSurface.Pixels && CanvasWidth > 0 && CanvasHeight > 0 &&
           CanvasSurface.Width == CanvasWidth && CanvasSurface.Height == CanvasHeight;
}

}
