#include "canvas/view/ViewPlacing.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace vostel {

namespace {

// Sums and differences of two coordinates within it fit in 32 bits.
constexpr double Farthest = 1e9;

bool IsWithin(double coordinate)
{
    return std::fabs(coordinate) <= Farthest;    // false for what is not a number
}

double MiddleOfClient(LONG low, LONG high)
{
    return (static_cast<double>(low) + high) * 0.5;
}

// The view keeps a whole centre and truncates the edges towards zero: of the centres around, the one whose
// edges come nearest to the wanted ones, the lower edge before the upper one.
int NearestCentre(double low, double extent)
{
    const double wanted = low + extent * 0.5;
    double       best = std::floor(wanted) - 1.0;
    double       bestLow = 1e300;
    double       bestHigh = 1e300;
    for (const double step : {-1.0, 0.0, 1.0, 2.0}) {
        const double centre = std::floor(wanted) + step;
        const double edge = centre - extent * 0.5;
        const double missLow = std::fabs(std::trunc(edge) - low);
        const double missHigh = std::fabs(std::trunc(edge + extent) - (low + extent));
        if (missLow < bestLow || (missLow == bestLow && missHigh < bestHigh)) {
            best = centre;
            bestLow = missLow;
            bestHigh = missHigh;
        }
    }
    return static_cast<int>(best);
}

}

bool PlaceImage(CanvasView& view, const ImagePlace& place)
{
    const double width = view.ImageWidth * place.Scale;
    const double height = view.ImageHeight * place.Scale;
    if (!(place.Scale > 0.0) || !IsWithin(place.Scale) || !IsWithin(1.0 / place.Scale) ||
        !IsWithin(place.Left) || !IsWithin(place.Top) || !IsWithin(place.Left + width) ||
        !IsWithin(place.Top + height))
        return false;
    view.PlaceCentre(place.Scale, NearestCentre(place.Left, width), NearestCentre(place.Top, height));
    return true;
}

MiddleView MiddleOf(const CanvasView& view)
{
    const CRect& client = view.ClientRect;
    return {view.Scale, (MiddleOfClient(client.left, client.right) - view.DisplayRect.left) / view.Scale,
            (MiddleOfClient(client.top, client.bottom) - view.DisplayRect.top) / view.Scale};
}

bool PlaceMiddle(CanvasView& view, const MiddleView& middle)
{
    // Two clients of odd and even size are half a px apart at best.
    constexpr double Rounding = 0.75;
    const CRect&     client = view.ClientRect;
    const double     left = MiddleOfClient(client.left, client.right) - middle.X * middle.Scale;
    const double     top = MiddleOfClient(client.top, client.bottom) - middle.Y * middle.Scale;
    if (view.Scale == middle.Scale && std::fabs(view.DisplayRect.left - left) < Rounding &&
        std::fabs(view.DisplayRect.top - top) < Rounding)
        return true;
    return PlaceImage(view, {middle.Scale, left, top});
}

ImagePlace FittingPlace(const CanvasView& view)
{
    const CRect& client = view.ClientRect;
    return CentredPlace(view, std::min(static_cast<double>(client.Width()) / view.ImageWidth,
                                       static_cast<double>(client.Height()) / view.ImageHeight));
}

ImagePlace CentredPlace(const CanvasView& view, double scale)
{
    const CRect& client = view.ClientRect;
    return {scale, MiddleOfClient(client.left, client.right) - view.ImageWidth * scale * 0.5,
            MiddleOfClient(client.top, client.bottom) - view.ImageHeight * scale * 0.5};
}

}
