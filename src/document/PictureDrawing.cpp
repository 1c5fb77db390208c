#include "document/PictureDrawing.h"

#include "canvas/VostelImage.h"
#include "canvas/view/VectorDrawing.h"
#include "document/Document.h"
#include "document/KindRules.h"

namespace vostel {

namespace {

CanvasView ViewOfPicture(const VostelImage& canvas, double scale, const PictureParts& parts, int width,
                         int height)
{
    CanvasView view;
    view.ImageWidth = canvas.CanvasWidth;
    view.ImageHeight = canvas.CanvasHeight;
    view.Scale = scale;
    view.ClientRect = view.DisplayRect = CRect(0, 0, width, height);
    view.FirstClient = false;
    view.Settings = canvas.View.Settings;
    view.Settings.Captions = parts.Captions;
    view.Settings.Handles = parts.Handles;
    return view;
}

bool LiesOnImage(const VostelObj& object)
{
    return object.TypeCode != OverlayPanel && object.TypeCode != OverlayNeighbours;
}

void DrawCopy(VostelObj& object, CanvasView& view, bool selected, HDC dc)
{
    const std::unique_ptr<VostelObj> copy = MakeObject(ClassOf(object));
    if (!copy)
        return;
    copy->Kit.Dc = dc;
    copy->SetCanvasView(&view);
    copy->LoadState(object.SaveState());
    copy->Selected = selected;
    copy->OnDraw(dc);
}

// Calls begin(object) before each of them.
template <typename Begin>
void DrawCopies(const VostelImage& canvas, const PictureParts& parts, CanvasView& view, HDC dc, Begin&& begin)
{
    for (std::size_t i = 0; parts.Objects && i < canvas.Elements.size(); ++i) {
        VostelObj& object = *canvas.Elements[i];
        if (object.Hidden || !LiesOnImage(object))
            continue;
        begin(object);
        DrawCopy(object, view, parts.Handles && object.Selected, dc);
    }
}

}

void DrawPicture(VostelImage& canvas, double scale, const PictureParts& parts, PixelSurface& picture)
{
    canvas.RedrawRegions();
    const PixelSurface& image = canvas.CanvasSurface;
    SetStretchBltMode(picture.MemDC, image.StretchMode);
    StretchBlt(picture.MemDC, 0, 0, picture.Width, picture.Height, image.MemDC, 0, 0, image.Width,
               image.Height, SRCCOPY);
    CanvasView view = ViewOfPicture(canvas, scale, parts, picture.Width, picture.Height);
    DrawCopies(canvas, parts, view, picture.MemDC, [](const VostelObj&) {});
    GdiFlush();
}

void RecordPicture(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                   VectorDrawing& drawing)
{
    canvas.RedrawRegions();
    PixelSurface measuring;    // nothing is painted on it
    measuring.Rebuild(nullptr, 1, 1, false);
    CanvasView view = ViewOfPicture(canvas, scale, parts, drawing.Width, drawing.Height);
    view.Recorder = &drawing;
    DrawCopies(canvas, parts, view, measuring.MemDC,
               [&](const VostelObj& object) { drawing.BeginGroup(notes.NotesOf(object).Name); });
    GdiFlush();
}

}
