#include "canvas/VostelImage.h"

#include "canvas/SamplePainter.h"
#include "foundation/Planes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

namespace vostel {

namespace {

// The bytes from the lowest row to the end of the highest one.
struct ByteSpan {
    const char* Begin;
    const char* End;
};

ByteSpan SpanOf(const PlaneView& plane)
{
    const char* const            first = plane.Row<char>(0);
    const char* const            last = plane.Row<char>(plane.Height - 1);
    const std::size_t            rowBytes = PixelBytes(plane.Type) * static_cast<std::size_t>(plane.Width);
    const std::less<const char*> before;
    return before(last, first) ? ByteSpan{last, first + rowBytes} : ByteSpan{first, last + rowBytes};
}

bool Overlap(const PlaneView& a, const PlaneView& b)
{
    const ByteSpan               one = SpanOf(a);
    const ByteSpan               other = SpanOf(b);
    const std::less<const char*> before;
    return before(one.Begin, other.End) && before(other.Begin, one.End);
}

template <typename Sample>
void WidenRows(const PlaneView& plane, float* target)
{
    for (int y = 0; y < plane.Height; ++y, target += plane.Width)
        std::copy_n(plane.Row<Sample>(y), plane.Width, target);
}

void CopyAsFloats(const PlaneView& plane, ClassData2DIO<float>& target)
{
    SizeForOverwriting(target, plane.Width, plane.Height);
    if (plane.Type == SampleType::F32)
        WidenRows<float>(plane, target.Ptr1D);
    else if (plane.Type == SampleType::U16)
        WidenRows<std::uint16_t>(plane, target.Ptr1D);
    else
        WidenRows<std::int16_t>(plane, target.Ptr1D);
}

}

void VostelImage::ShowSamples(const PlaneView& source, ShowKeeps keeps)
{
    ReserveDeletion();
    const bool fits = Samples.HasShape(source.Type, source.Width, source.Height) &&
                      HasSurfaceFor(source.Width, source.Height) && !Overlap(source, ViewOf(Samples));
    if (!fits) {
        ImageSamples      copy(source.Type, source.Width, source.Height);
        const CopiedRange range = CopySamples(source, copy);
        ReplaceSamples(std::move(copy), range, keeps);
        return;
    }
    // Memory that was used before is far quicker to write than fresh one.
    const ContrastState kept = Contrast();
    SamplePainter       painter(source.Type, keeps.Contrast ? kept : ContrastState());
    PixelSurface        none;
    if (!keeps.Objects)
        DeleteAll();
    FinishSamples(painter, none, CopySamples(source, Samples), keeps.Contrast ? &kept : nullptr, keeps);
}

void VostelImage::ShowSamples(ImageSamples&& samples, ShowKeeps keeps)
{
    ReserveDeletion();
    const CopiedRange range = RangeOfSamples(samples);
    ReplaceSamples(std::move(samples), range, keeps);
}

void VostelImage::ReplaceSamples(ImageSamples&& samples, const CopiedRange& range, ShowKeeps keeps)
{
    keeps.Contrast = keeps.Contrast && CurrentFileType != FileTypeNone;    // a first image has none to keep
    keeps.Contrast = keeps.Contrast || keeps.Beginning;
    const ContrastState kept = keeps.Beginning ? *keeps.Beginning : Contrast();
    SamplePainter       painter(samples.Type, keeps.Contrast ? kept : ContrastState());
    PixelSurface        made;
    if (!HasSurfaceFor(samples.Width, samples.Height)) {
        made.Rebuild(ClientDC, samples.Width, samples.Height, false);
        if (!made.Pixels)
            throw std::bad_alloc();
    }
    if (!keeps.Objects)
        DeleteAll();
    const ImageSamples former = DropSamples();
    Samples = std::move(samples);
    FinishSamples(painter, made, range, keeps.Contrast ? &kept : nullptr, keeps);
}

bool VostelImage::HasSurfaceFor(int width, int height) const
{
    return CanvasSurface.Pixels && CanvasSurface.Width == width && CanvasSurface.Height == height;
}

void VostelImage::FinishSamples(SamplePainter& painter, PixelSurface& made, const CopiedRange& range,
                                const ContrastState* kept, ShowKeeps keeps)
{
    const bool sameSize = !made.Pixels && CanvasWidth == Samples.Width && CanvasHeight == Samples.Height;
    const bool deep = IsDeep(Samples.Type);
    Raw.Release();
    RawOri.Release();
    RawIsOld = RawOriIsOld = LabelsAreOld = deep;
    GrayOnSurface = false;
    Source.reset();
    CurrentFileType = deep ? FileTypeRaw : FileTypeByte;
    CanvasWidth = Samples.Width;
    CanvasHeight = Samples.Height;
    DataRange = range;
    SamplesRange.reset();
    Stretch = MakeRemapRule(range.Low, range.High, 0.0f, RawTop);
    if (!keeps.View || !sameSize)
        ShowSurface(made.Pixels ? &made : nullptr);
    else if (Observer)
        Observer->ImageChanged();
    Window = kept ? *kept : FirstContrast(Samples.Type, range);
    if (!kept)
        painter.Prepare(*Window);
    painter.Draw(ViewOf(Samples), CanvasSurface);
    DrawnRegions.clear();
    DrawnRuns.clear();
}

ImageSamples VostelImage::DropSamples()
{
    Window.reset();
    GrayOnSurface = false;
    RawIsOld = RawOriIsOld = LabelsAreOld = false;
    DrawnRegions.clear();
    DrawnRuns.clear();
    SamplesRange.reset();
    return std::exchange(Samples, ImageSamples());
}

PlaneView VostelImage::ShownPlane() const
{
    if (CurrentFileType == FileTypeNone)
        return PlaneView();
    if (CurrentFileType == FileTypeByte && Samples.IsEmpty() && GrayOnSurface && HasSurfacePixels())
        TakeSurfaceAsSamples();
    if (!Samples.IsEmpty())
        return ViewOf(Samples);
    const std::ptrdiff_t rowBytes = static_cast<std::ptrdiff_t>(CanvasWidth) * 4;
    if (CurrentFileType != FileTypeByte) {
        const ClassData2DIO<float>& data = IsPlaneOf(RawOri, CanvasWidth, CanvasHeight) ? RawOri : Raw;
        return IsPlaneOf(data, CanvasWidth, CanvasHeight)
                   ? PlaneView{SampleType::F32, CanvasWidth, CanvasHeight, rowBytes, data.Ptr1D}
                   : PlaneView();
    }
    if (!HasSurfacePixels())
        return PlaneView();
    const unsigned int* const top = CanvasSurface.Pixels + static_cast<std::size_t>(CanvasHeight - 1) *
                                                               static_cast<std::size_t>(CanvasWidth);
    return {SampleType::Bgra8, CanvasWidth, CanvasHeight, -rowBytes, top};
}

void VostelImage::TakeSurfaceAsSamples() const
{
    ImageSamples taken(GrayOnSurface ? SampleType::U8 : SampleType::Bgra8, CanvasWidth, CanvasHeight);
    for (int y = 0; y < CanvasHeight; ++y) {
        const unsigned int* const pixels =
            CanvasSurface.Pixels +
            static_cast<std::size_t>(CanvasHeight - 1 - y) * static_cast<std::size_t>(CanvasWidth);
        if (GrayOnSurface)
            std::transform(pixels, pixels + CanvasWidth, taken.Row<unsigned char>(y),
                           [](unsigned int pixel) { return static_cast<unsigned char>(pixel); });
        else
            std::memcpy(taken.Row<unsigned char>(y), pixels, taken.RowBytes());
    }
    Samples = std::move(taken);
    SamplesRange.reset();
}

SampleRange VostelImage::ShownRange() const
{
    const PlaneView plane = ShownPlane();
    if (Samples.IsEmpty())
        return RangeOf(plane);
    if (!SamplesRange)
        SamplesRange = RangeOf(plane);
    return *SamplesRange;
}

bool VostelImage::IsOnImage(int x, int y) const
{
    return x >= 0 && x < Samples.Width && y >= 0 && y < Samples.Height;
}

float VostelImage::SampleAt(int x, int y) const
{
    const PlaneView plane = ViewOf(Samples);
    if (!IsOnImage(x, y))
        return NoValue;
    switch (plane.Type) {
    case SampleType::F32:
        return plane.Row<float>(y)[x];
    case SampleType::U16:
        return plane.Row<std::uint16_t>(y)[x];
    case SampleType::I16:
        return plane.Row<std::int16_t>(y)[x];
    default:
        return NoValue;
    }
}

unsigned VostelImage::SampleColor(int x, int y) const
{
    const PlaneView plane = ViewOf(Samples);
    const auto* sample = plane.Row<std::uint8_t>(y) + static_cast<std::size_t>(x) * PixelBytes(plane.Type);
    if (plane.Type == SampleType::U8)
        return *sample * 0x010101u;
    const ColorLayout layout(plane.Type);
    return static_cast<unsigned>(sample[layout.Red]) << 16 | static_cast<unsigned>(sample[1]) << 8 |
           sample[layout.Blue];
}

ClassData2DIO<float>& VostelImage::HandOutRaw()
{
    if (RawIsOld && ShowsSamples()) {
        CopyAsFloats(ViewOf(Samples), Raw);
        RemapFloats(Stretch, Raw.Ptr1D, Raw.Ptr1D, CountOf(Raw));
        RawIsOld = false;
    }
    return Raw;
}

ClassData2DIO<float>& VostelImage::HandOutRawOri()
{
    if (RawOriIsOld && ShowsSamples()) {
        CopyAsFloats(ViewOf(Samples), RawOri);
        RawOriIsOld = false;
    }
    return RawOri;
}

ClassData2DIO<int>& VostelImage::HandOutLabels()
{
    if (LabelsAreOld)
        GenerateLabel(true);
    return LabelIma;
}

PixelSurface& VostelImage::HandOutSurface()
{
    // Samples that were taken from the surface would not see what the host writes.
    if (!Window)
        DropSamples();
    GrayOnSurface = false;
    CanvasSurface.IsHandedOut = true;
    return CanvasSurface;
}

}
