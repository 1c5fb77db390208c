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

// The canvas's area with a fresh frame. Its rows run bottom-up and are tightly packed.
struct Frame {
    int                 Width = 0;
    int                 Height = 0;
    const unsigned int* Pixels = nullptr;

    const unsigned int* Row(int y) const
    {
        return Pixels + static_cast<std::ptrdiff_t>(Height - 1 - y) * Width;
    }
};

Frame Compose(VostelImage& image)
{
    if (!image.ClientMemDC || !image.ClientPixels)
        Fail(VOSTEL_NOT_FOUND, "the canvas has no area yet");
    if (!image.UseDirect)
        image.ComposeFrame();
    GdiFlush();
    return {image.View.ClientRect.Width(), image.View.ClientRect.Height(), image.ClientPixels};
}

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

PictureParts PartsOf(std::uint32_t flags)
{
    return {(flags & VOSTEL_WITH_OBJECTS) != 0, (flags & VOSTEL_WITH_CAPTIONS) != 0,
            (flags & VOSTEL_WITH_HANDLES) != 0};
}

void SavePixels(VostelImage& image, const CString& path, double scale, const PictureParts& parts, int width,
                int height)
{
    constexpr long long MostPixels = 1LL << 28;    // of any picture
    if (static_cast<long long>(width) * height > std::min<long long>(MostPixels, LimitsInForce().MaxPixels))
        Fail(VOSTEL_TOO_LARGE, "the picture has too many px");
    PixelSurface picture;
    picture.Rebuild(nullptr, width, height, false);
    if (!picture.Bitmap)
        throw std::bad_alloc();
    DrawPicture(image, scale, parts, picture);
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
        const Frame                made = Compose(image);
        std::vector<std::uint32_t> opaque(static_cast<std::size_t>(made.Width));
        for (int y = 0; y < made.Height; ++y) {
            std::transform(made.Row(y), made.Row(y) + made.Width, opaque.begin(),
                           [](unsigned int pixel) { return pixel | 0xFF000000u; });
            std::memcpy(rows.Row(y), opaque.data(), opaque.size() * sizeof opaque[0]);
        }
    });
}

VostelStatus vostel_picture_save(int32_t canvas, const char* path, double scale, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const CString file = WideFrom(path, "path");
        NeedPositive(scale, "scale");
        NeedFlags(flags, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS | VOSTEL_WITH_HANDLES);
        const PictureKind kind = KindOfEnding(file);
        if (!image.CanvasSurface.Bitmap || image.CurrentFileType == FileTypeNone)
            Fail(VOSTEL_NO_IMAGE, "the canvas shows no image");
        const int width = ScaledSide(image.CanvasWidth, scale);
        const int height = ScaledSide(image.CanvasHeight, scale);
        if (kind == PictureKind::Pixels)
            SavePixels(image, file, scale, PartsOf(flags), width, height);
        else if (kind == PictureKind::Svg)
            WriteWholeFile(path, SvgOfCanvas(image, notes, scale, PartsOf(flags), {width, height}));
        else
            WriteWholeFile(path, PdfOfCanvas(image, notes, scale, PartsOf(flags), {width, height}));
    });
}
