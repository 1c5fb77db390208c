#include "foundation/Limits.h"
#include "interchange/CanvasDrawing.h"
#include "interchange/FileBytes.h"
#include "open/OpenCall.h"
#include "open/OpenPlanes.h"
#include "platform/PictureSaving.h"

#include <algorithm>
#include <cmath>

using namespace vostel;
using namespace vostel::open;

namespace {

// Drawn pixels. Their rows run bottom-up and are tightly packed.
struct Frame {
    int                 Width = 0;
    int                 Height = 0;
    const unsigned int* Pixels = nullptr;

    const unsigned int* Row(int y) const
    {
        return Pixels + static_cast<std::ptrdiff_t>(Height - 1 - y) * Width;
    }
};

// The canvas's area, drawn anew.
Frame Compose(VostelImage& image)
{
    if (!image.ClientMemDC || !image.ClientPixels)
        Fail(VOSTEL_NOT_FOUND, "the canvas has no area yet");
    if (!image.UseDirect)
        image.ComposeFrame();
    GdiFlush();
    return {image.View.ClientRect.Width(), image.View.ClientRect.Height(), image.ClientPixels};
}

void GiveOpaqueRows(const Frame& frame, const CallerPlane& target)
{
    std::vector<std::uint32_t> opaque(static_cast<std::size_t>(frame.Width));
    for (int y = 0; y < frame.Height; ++y) {
        std::transform(frame.Row(y), frame.Row(y) + frame.Width, opaque.begin(),
                       [](unsigned int pixel) { return pixel | 0xFF000000u; });
        std::memcpy(target.Row(y), opaque.data(), opaque.size() * sizeof opaque[0]);
    }
}

constexpr std::uint32_t PictureFlags = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS | VOSTEL_WITH_HANDLES;

enum class PictureKind { Pixels, Svg, Pdf };

PictureKind KindOfEnding(const CString& path)
{
    const int dot = path.ReverseFind(L'.');
    CString   ending = dot < 0 ? CString() : path.Mid(dot);
    ending.MakeLower();
    for (const wchar_t* const known : {L".png", L".bmp", L".jpg", L".jpeg", L".tif", L".tiff"}) {
        if (ending == known)
            return PictureKind::Pixels;
    }
    if (ending == L".svg")
        return PictureKind::Svg;
    if (ending == L".pdf")
        return PictureKind::Pdf;
    Fail(VOSTEL_NOT_SUPPORTED, "path does not end in png, bmp, jpg, tif, svg or pdf");
}

// Px of a side of the picture.
int ScaledSide(int side, double scale)
{
    const double scaled = std::max(1.0, std::floor(side * scale + 0.5));
    if (scaled > LimitsInForce().MaxSide)
        Fail(VOSTEL_TOO_LARGE,
             "the picture has a side of more than " + std::to_string(LimitsInForce().MaxSide) + " px");
    return static_cast<int>(scaled);
}

ImageSize ScaledSize(const VostelImage& image, double scale)
{
    return {ScaledSide(image.CanvasWidth, scale), ScaledSide(image.CanvasHeight, scale)};
}

PictureParts PartsOf(std::uint32_t flags)
{
    return {(flags & VOSTEL_WITH_OBJECTS) != 0, (flags & VOSTEL_WITH_CAPTIONS) != 0,
            (flags & VOSTEL_WITH_HANDLES) != 0};
}

void NeedShown(const VostelImage& image)
{
    if (!image.CanvasSurface.Bitmap || image.CurrentFileType == FileTypeNone)
        Fail(VOSTEL_NO_IMAGE, "the canvas shows no image");
}

void NeedSize(ImageSize size)
{
    constexpr long long MostPixels = 1LL << 28;    // of any picture
    if (static_cast<long long>(size.Width) * size.Height >
        std::min<long long>(MostPixels, LimitsInForce().MaxPixels))
        Fail(VOSTEL_TOO_LARGE, "the picture has too many px");
}

void Draw(VostelImage& image, double scale, const PictureParts& parts, ImageSize size, PixelSurface& picture)
{
    picture.Rebuild(nullptr, size.Width, size.Height, false);
    if (!picture.Bitmap)
        throw std::bad_alloc();
    DrawPicture(image, scale, parts, picture);
    GdiFlush();
}

void SavePixels(VostelImage& image, const CString& path, double scale, const PictureParts& parts,
                ImageSize size)
{
    NeedSize(size);
    PixelSurface picture;
    Draw(image, scale, parts, size, picture);
    const HRESULT saved = picture.WriteColorImage(path);
    if (saved == NoMemoryForPicture)
        throw std::bad_alloc();
    if (saved < 0)
        Fail(VOSTEL_NOT_WRITTEN, "path cannot be written");
}

}

VostelStatus vostel_frame_render(int32_t canvas, VostelFrame* frame)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedRecord(frame, "frame");
        const Frame made = Compose(image);
        VostelFrame given = {};
        given.width = made.Width;
        given.height = made.Height;
        given.row_bytes = -static_cast<std::ptrdiff_t>(sizeof *made.Pixels) * made.Width;
        given.pixels = made.Row(0);
        GiveRecord(frame, given, "frame");
    });
}

VostelStatus vostel_frame_render_to(int32_t canvas, VostelPlane* target)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const CallerPlane rows = CallerPlaneFrom(target, "target");
        if (rows.Type != SampleType::Bgra8)
            Fail(VOSTEL_INVALID_ARGUMENT, "target is not of VOSTEL_BGRA8");
        if (rows.Width != image.View.ClientRect.Width() || rows.Height != image.View.ClientRect.Height())
            Fail(VOSTEL_INVALID_ARGUMENT, "target does not have the size of the canvas's area");
        GiveOpaqueRows(Compose(image), rows);
    });
}

VostelStatus vostel_picture_save(int32_t canvas, const char* path, double scale, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const CString file = WideFrom(path, "path");
        NeedPositive(scale, "scale");
        NeedFlags(flags, PictureFlags);
        const PictureKind kind = KindOfEnding(file);
        NeedShown(image);
        const ImageSize size = ScaledSize(image, scale);
        if (kind == PictureKind::Pixels)
            SavePixels(image, file, scale, PartsOf(flags), size);
        else if (kind == PictureKind::Svg)
            WriteWholeFile(path, SvgOfCanvas(image, notes, scale, PartsOf(flags), size));
        else
            WriteWholeFile(path, PdfOfCanvas(image, notes, scale, PartsOf(flags), size));
    });
}

VostelStatus vostel_picture_render_to(int32_t canvas, double scale, uint32_t flags, VostelPlane* target)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPositive(scale, "scale");
        NeedFlags(flags, PictureFlags);
        const CallerPlane rows = CallerPlaneFrom(target, "target");
        if (rows.Type != SampleType::Bgra8)
            Fail(VOSTEL_INVALID_ARGUMENT, "target is not of VOSTEL_BGRA8");
        NeedShown(image);
        const ImageSize size = ScaledSize(image, scale);
        NeedSize(size);
        if (rows.Width != size.Width || rows.Height != size.Height)
            Fail(VOSTEL_INVALID_ARGUMENT, "target does not have the size of the picture, " +
                                              std::to_string(size.Width) + " x " +
                                              std::to_string(size.Height));
        PixelSurface picture;
        Draw(image, scale, PartsOf(flags), size, picture);
        GiveOpaqueRows({size.Width, size.Height, picture.Pixels}, rows);
    });
}
