#pragma once

// Views by numbers of a host instead of gestures.

#include "canvas/view/CanvasView.h"

namespace vostel {

// Where the image is to lie: its scale, and its upper left corner in client px.
struct ImagePlace {
    double Scale = 1.0;
    double Left = 0.0;
    double Top = 0.0;
};

// The same, told by the image point in the middle of the client area, which does not depend on its size.
struct MiddleView {
    double Scale = 1.0;
    double X = 0.0;    // image px
    double Y = 0.0;
};

// Gives the image the scale and puts its corner on the whole client px nearest to the place. False, with the
// view as it was, for a scale beyond 1e-9 to 1e9 or an image beyond 1e9 client px.
bool PlaceImage(CanvasView& view, const ImagePlace& place);

MiddleView MiddleOf(const CanvasView& view);
// PlaceImage for the point in the middle. A view that has it there already, but for the rounding to whole
// px, stays as it is.
bool PlaceMiddle(CanvasView& view, const MiddleView& middle);

// The whole image in the middle of the client area, and the image at scale 1 there.
ImagePlace FittingPlace(const CanvasView& view);
ImagePlace CentredPlace(const CanvasView& view, double scale);

}
