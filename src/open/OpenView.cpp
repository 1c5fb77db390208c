#include "canvas/view/ViewPlacing.h"
#include "document/ViewLinks.h"
#include "open/OpenCall.h"

#include <utility>

using namespace vostel;
using namespace vostel::open;

namespace {

void NeedImageSize(const CanvasView& view)
{
    if (view.ImageWidth < 1 || view.ImageHeight < 1)
        Fail(VOSTEL_NO_IMAGE, "the canvas shows no image");
}

void NeedClientArea(const CanvasView& view)
{
    if (view.ClientRect.IsRectEmpty())
        Fail(VOSTEL_NOT_FOUND, "the canvas has no area yet");
}

void Place(VostelImage& image, const ImagePlace& place)
{
    const double scale = image.View.Scale;
    const CPoint centre(image.View.CentreX, image.View.CentreY);
    if (!PlaceImage(image.View, place))
        Fail(VOSTEL_INVALID_ARGUMENT, "the image would lie beyond 1e9 client px, or the scale beyond 1e9");
    try {
        image.ViewMoved();
    } catch (...) {
        // Objects that have moved already find their places again with the next paint or move.
        image.View.PlaceCentre(scale, centre.x, centre.y);
        throw;
    }
}

// Of a linked canvas, which may have gone meanwhile.
void ShowLinkedView(int canvas, const MiddleView& middle)
{
    if (const CanvasCall call{canvas})
        call.Notes().Follow(middle);
}

}

VostelStatus vostel_view_get(int32_t canvas, VostelView* view)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const CRect& shown = image.View.DisplayRect;
        GiveRecord(
            view,
            VostelView{0, image.View.Scale, static_cast<double>(shown.left), static_cast<double>(shown.top)},
            "view");
    });
}

VostelStatus vostel_view_set(int32_t canvas, const VostelView* view)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const CRect&     shown = image.View.DisplayRect;
        const VostelView now = {0, image.View.Scale, static_cast<double>(shown.left),
                                static_cast<double>(shown.top)};
        const VostelView asked = RecordFrom(view, now, "view");
        NeedPositive(asked.scale, "scale");
        NeedFinite(asked.left, "left");
        NeedFinite(asked.top, "top");
        Place(image, {asked.scale, asked.left, asked.top});
    });
}

VostelStatus vostel_view_fit(int32_t canvas)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedImageSize(image.View);
        NeedClientArea(image.View);
        Place(image, FittingPlace(image.View));
    });
}

VostelStatus vostel_view_actual(int32_t canvas)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedImageSize(image.View);
        NeedClientArea(image.View);
        Place(image, CentredPlace(image.View, 1.0));
    });
}

VostelStatus vostel_view_zoom(int32_t canvas, double factor, double client_x, double client_y)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPositive(factor, "factor");
        NeedFinite(client_x, "client_x");
        NeedFinite(client_y, "client_y");
        const CRect& shown = image.View.DisplayRect;
        Place(image, {image.View.Scale * factor, client_x - (client_x - shown.left) * factor,
                      client_y - (client_y - shown.top) * factor});
    });
}

VostelStatus vostel_view_to_image(int32_t canvas, double client_x, double client_y, double* x, double* y)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPointer(x, "x");
        NeedPointer(y, "y");
        NeedFinite(client_x, "client_x");
        NeedFinite(client_y, "client_y");
        const CRect& shown = image.View.DisplayRect;
        Give(x, (client_x - shown.left) / image.View.Scale);
        Give(y, (client_y - shown.top) / image.View.Scale);
    });
}

VostelStatus vostel_view_to_client(int32_t canvas, double x, double y, double* client_x, double* client_y)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPointer(client_x, "client_x");
        NeedPointer(client_y, "client_y");
        NeedFinite(x, "x");
        NeedFinite(y, "y");
        const CRect& shown = image.View.DisplayRect;
        Give(client_x, x * image.View.Scale + shown.left);
        Give(client_y, y * image.View.Scale + shown.top);
    });
}

VostelStatus vostel_view_set_smooth(int32_t canvas, int32_t smooth)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const int mode = smooth != 0 ? HALFTONE : COLORONCOLOR;
        if (std::exchange(image.CanvasSurface.StretchMode, mode) != mode)
            notes.PictureChanged();
    });
}

VostelStatus vostel_view_link(int32_t canvas, int32_t with)
{
    return OnCanvas(canvas, [&](VostelImage&, Document&) {
        if (canvas == with) {
            UnlinkCanvas(canvas);
            return;
        }
        const CanvasCall other(with);
        if (!other)
            FailNoCanvas(with);
        other.Notes();    // sees from now on what moves its view
        LinkCanvas(canvas, with, ShowLinkedView);
        ShowOnLinked(with, MiddleOf(other->View));
    });
}
