#include "commands/CanvasState.h"
#include "commands/Routines.h"

#include <algorithm>
#include <cstddef>

namespace vostel::viewer {

namespace {

std::size_t PixelCount(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

ImagePointer GrayOfPixels(int canvas)
{
    const int                 width = gCVSGetCanvasWidth(canvas), height = gCVSGetCanvasHeight(canvas);
    const unsigned int* const pixels = gCVSGetCanvasPixelPtr(canvas);
    if (!pixels || width < 1 || height < 1)
        return nullptr;
    auto image = std::make_shared<Image>();
    image->Allocate(width, height);
    for (int y = 0; y < height; ++y) {
        const unsigned int* const row = pixels + PixelCount(width, height - 1 - y);
        for (int x = 0; x < width; ++x) {
            const int blue = row[x] & 255, green = row[x] >> 8 & 255, red = row[x] >> 16 & 255;
            int       gray = red;    // the formula would lower some equal triples by one level
            if (red != green || green != blue)
                ColorToGrayPixel(red, green, blue, gray);
            image->Ptr2D[y][x] = static_cast<float>(gray);
        }
    }
    return image;
}

ImagePointer CopyOf(const Image& image)
{
    return image.Width < 1 || image.Height < 1 ? nullptr : std::make_shared<Image>(image);
}

bool IsFloat(int canvas)
{
    const FileType type = gCVSGetFileType(canvas);
    return type == FileTypeRaw || type == FileTypeRawPlain;
}

std::unique_ptr<ImageBefore> KeepImage(int canvas)
{
    auto before = std::make_unique<ImageBefore>();
    before->Type = gCVSGetFileType(canvas);
    before->Width = gCVSGetCanvasWidth(canvas);
    before->Height = gCVSGetCanvasHeight(canvas);
    if (IsFloat(canvas)) {
        before->Data = TakeImage(canvas);
        return before->Data ? std::move(before) : nullptr;
    }
    const unsigned int* const pixels = gCVSGetCanvasPixelPtr(canvas);
    if (before->Type == FileTypeNone || !pixels || before->Width < 1 || before->Height < 1)
        return nullptr;
    before->Pixels.assign(pixels, pixels + PixelCount(before->Width, before->Height));
    return before;
}

}

ImagePointer TakeImage(int canvas)
{
    if (gCVSGetFileType(canvas) == FileTypeNone)
        return nullptr;
    if (!IsFloat(canvas))
        return GrayOfPixels(canvas);
    const ImagePointer original = CopyOf(gCVSGetRawOri(canvas));
    return original ? original : CopyOf(gCVSGetRaw(canvas));
}

ImagePointer TakeLabels(int canvas)
{
    if (gCVSGetFileType(canvas) == FileTypeNone)
        return nullptr;
    gCVSGenerateLabel(canvas, false);
    const ClassData2DIO<int>& labels = gCVSGetLabelIma(canvas);
    if (labels.Width < 1 || labels.Height < 1)
        return nullptr;
    auto image = std::make_shared<Image>();
    image->Allocate(labels.Width, labels.Height);
    for (int y = 0; y < labels.Height; ++y)
        for (int x = 0; x < labels.Width; ++x)
            image->Ptr2D[y][x] = static_cast<float>(labels.Ptr2D[labels.Height - 1 - y][x]);
    return image;
}

std::vector<ImagePointer> TakeInputs(const Routine& routine, int canvas, int second)
{
    switch (routine.Input) {
    case RoutineInput::None:
        return {};
    case RoutineInput::Image:
        return {TakeImage(canvas)};
    case RoutineInput::Two:
        return {TakeImage(canvas), TakeImage(second)};
    case RoutineInput::Labels:
        return {TakeLabels(canvas)};
    }
    return {};
}

void ShowResult(int canvas, const ImagePointer& image)
{
    CanvasState* const state = StateOf(canvas);
    if (!state || !image || image->Width < 1 || image->Height < 1)
        return;
    state->Undo = KeepImage(canvas);
    const bool sameSize =
        image->Width == gCVSGetCanvasWidth(canvas) && image->Height == gCVSGetCanvasHeight(canvas);
    gCVSShowRawFloat(canvas, *image, true, !sameSize);
}

void ShowImageBefore(int canvas)
{
    CanvasState* const state = StateOf(canvas);
    if (!state || !state->Undo)
        return;
    const std::unique_ptr<ImageBefore> before = std::move(state->Undo);
    const bool                         sameSize =
        before->Width == gCVSGetCanvasWidth(canvas) && before->Height == gCVSGetCanvasHeight(canvas);
    if (before->Data) {
        gCVSShowRawFloat(canvas, *before->Data, true, !sameSize);
        return;
    }
    // A gray image makes the surface, its pixels then bring the colors back.
    ClassData2DIO<unsigned char> gray;
    gray.Allocate(before->Width, before->Height);
    std::fill_n(gray.Ptr1D, PixelCount(before->Width, before->Height), static_cast<unsigned char>(0));
    gCVSShowUCGray(canvas, gray, !sameSize);
    if (unsigned int* const pixels = gCVSGetCanvasPixelPtr(canvas))
        std::copy(before->Pixels.begin(), before->Pixels.end(), pixels);
    gCVSSetFileType(canvas, before->Type);
}

void ShowRoutineProgress(int canvas, bool shown)
{
    // Client px, above the place of the contrast slider.
    constexpr int Margin = 20, Bottom = 60, Width = 400, MinWidth = 60, Height = 18;
    if (shown) {
        const int room = gCVSGetClientWidth(canvas) - 2 * Margin;
        gCVSSetRange(canvas, 0, 1);
        gCVSSetPos(canvas, 0);
        gCVSSetProgressRectPos(canvas, Margin, Bottom, std::clamp(room, MinWidth, Width), Height);
    }
    gCVSShowProgress(canvas, shown);
}

void SetRoutineProgress(int canvas, int done, int total)
{
    const int range = std::max(total, 1);
    gCVSSetRange(canvas, 0, range);
    gCVSSetPos(canvas, std::clamp(done, 0, range));
}

}
