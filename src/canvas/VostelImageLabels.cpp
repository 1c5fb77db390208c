#include "canvas/VostelImage.h"

#include "base/Truncate.h"
#include "foundation/Planes.h"
#include "output/LabelPlane.h"
#include "vostel/RasterFills.h"

#include <vector>

namespace vostel {

namespace {

using WholePoints = std::vector<PointTemplateBase<int>>;

// The four corners of a box given by two opposite ones, in the order that the fill takes for a box dragged to
// the lower right. Other counts bound nothing.
void MakeBox(WholePoints& points)
{
    if (points.size() != 2) {
        points.clear();
        return;
    }
    const PointTemplateBase<int> a = points[0];
    const PointTemplateBase<int> b = points[1];
    points = {a, {b.x, a.y}, b, {a.x, b.y}};
}

}

int VostelImage::GenerateLabel(bool selectedOnly)
{
    RefuseGiantWithoutSurface();
    LabelsAreOld = false;
    SizeForOverwriting(LabelIma, CanvasWidth, CanvasHeight);
    int  lastLabel = 1;
    bool taken = false;
    FillLabelPlane(LabelIma.Ptr1D, LabelIma.Width, LabelIma.Height, 0);
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        VostelObj& element = *Elements.AsTheyLie()[i];
        if (selectedOnly && !element.Selected)
            continue;
        taken = true;    // also by an object that has no region
        if (RasteriseObject(Elements.Settle(element)))
            lastLabel = WrapAdd(element.SerialNo, 1);
    }
    if (Elements.empty() || (selectedOnly && !taken))
        FillLabelPlane(LabelIma.Ptr1D, LabelIma.Width, LabelIma.Height, 1);
    else
        FlipLabelPlane(LabelIma.Ptr1D, LabelIma.Width, LabelIma.Height);
    return lastLabel;
}

bool VostelImage::RasteriseObject(VostelObj& object)
{
    const int   label = WrapAdd(object.SerialNo, 1);
    WholePoints points;
    switch (object.TypeCode) {
    case OverlaySpline:
        // The curve of the last paint; a spline that was never painted has none.
        if (!object.GetLabelOutline(points))
            return false;
        break;
    case OverlayPolygon:
    case OverlayOneStroke:
        if (!object.GetImagePoints(points))
            return false;
        break;
    case OverlayRect:
        // A box in the plane even where it is drawn as an ellipse.
        if (!object.GetImagePoints(points))
            return false;
        MakeBox(points);
        break;
    case OverlayCustomRect:
        if (!object.GetImagePoints(points))
            return false;
        if (object.EllipseMode && points.size() == 2) {
            DrawEcllipse(LabelIma, points[0].x, points[0].y, points[1].x, points[1].y, true, label);
            return true;
        }
        MakeBox(points);
        break;
    default:
        return false;
    }
    FillPolygon(LabelIma, points, label);
    return true;
}

}
