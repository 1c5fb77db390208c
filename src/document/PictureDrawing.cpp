#include "document/PictureDrawing.h"

#include "canvas/VostelImage.h"
#include "document/KindRules.h"

namespace vostel {

namespace {

CanvasView ViewOfPicture(const VostelImage& canvas, double scale, const PictureParts& parts,
                         const PixelSurface& picture)
{
    CanvasView view;
    view.ImageWidth = canvas.CanvasWidth;
    view.ImageHeight = canvas.CanvasHeight;
    view.Scale = scale;
    view.ClientRect = view.DisplayRect = CRect(0, 0, picture.Width, picture.Height);
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

void DrawCopy(VostelObj& object, CanvasView& view, bool selected, const PixelSurface& picture)
{
    const std::unique_ptr<VostelObj> copy = MakeObject(ClassOf(object));
    if (!copy)
        return;
    copy->Kit.Dc = picture.MemDC;
    copy->SetCanvasView(&view);
    copy->LoadState(object.SaveState());
    copy->Selected = selected;
    copy->OnDraw(picture.MemDC);
}

}

void DrawPicture(VostelImage& canvas, double scale, const PictureParts& parts, PixelSurface& picture)
{
    canvas.RedrawRegions();
    const PixelSurface& image = canvas.CanvasSurface;
    SetStretchBltMode(picture.MemDC, image.StretchMode);
    StretchBlt(picture.MemDC, 0, 0, picture.Width, picture.Height, image.MemDC, 0, 0, image.Width,
               image.Height, SRCCOPY);
    CanvasView view = ViewOfPicture(canvas, scale, parts, picture);
    for (std::size_t i = 0; parts.Objects && i < canvas.Elements.size(); ++i) {
        VostelObj& object = *canvas.Elements[i];
        if (!object.Hidden && LiesOnImage(object))
            DrawCopy(object, view, parts.Handles && object.Selected, picture);
    }
    GdiFlush();
}

}
