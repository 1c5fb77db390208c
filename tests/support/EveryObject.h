#pragma once

// One object of each class, and points that its kind takes. Inner tests only.

#include "instruments/VostelArrow.h"
#include "instruments/VostelImaInfo.h"
#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "instruments/VostelNeighborV.h"
#include "instruments/VostelPoints.h"
#include "instruments/VostelProgress.h"
#include "instruments/VostelSlider.h"
#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"

#include <memory>
#include <vector>

namespace vostel {

using ImagePoints = std::vector<PointTemplateBase<double>>;

struct ObjectClass {
    const char* Name;
    std::unique_ptr<VostelObj> (*Make)();
    std::size_t Fewest;    // points taken; 0 for an object without points
    std::size_t Most;
};

template <typename Class>
ObjectClass ClassOf(const char* name, std::size_t fewest, std::size_t most)
{
    return {name, []() -> std::unique_ptr<VostelObj> { return std::make_unique<Class>(); }, fewest, most};
}

inline std::vector<ObjectClass> EveryClass()
{
    constexpr std::size_t Any = 1000000;
    return {ClassOf<VostelRect>("rectangle", 2, 2),
            ClassOf<VostelCustomRect>("custom rectangle", 2, 2),
            ClassOf<VostelPolygon>("polygon", 3, Any),
            ClassOf<VostelSpline>("spline", 3, 198),
            ClassOf<VostelCrayonOneStroke>("free region", 3, Any),
            ClassOf<VostelCrayonMStroke>("free strokes", 2, Any),
            ClassOf<VostelTextRect>("text", 1, 1),
            ClassOf<VostelMeasureLine>("length", 2, 2),
            ClassOf<VostelMeasureAngle3Pts>("angle", 3, 3),
            ClassOf<VostelMeasureAngle4Pts>("angle of two lines", 4, 4),
            ClassOf<VostelLineProfile>("profile", 2, 2),
            ClassOf<VostelPoints>("points", 1, Any),
            ClassOf<VostelPolyline>("polyline", 2, Any),
            ClassOf<VostelArrow>("arrow", 2, 2),
            ClassOf<VostelTextML>("panel", 1, 1),
            ClassOf<VostelImaInfo>("read-out", 1, 1),
            ClassOf<VostelNeighborV>("neighbours", 1, 1),
            ClassOf<VostelSlider>("slider", 0, 0),
            ClassOf<VostelProgress>("progress bar", 0, 0)};
}

// Points that lie apart, within 20..80 and not on whole pixels.
inline ImagePoints SomePoints(std::size_t count)
{
    ImagePoints points;
    for (std::size_t i = 0; i < count; ++i)
        points.emplace_back(20.25 + static_cast<double>(i * 37 % 61),
                            20.5 + static_cast<double>(i * 23 % 59));
    return points;
}

// A view of an image of 100 x 80 whose upper left corner lies at client point 10, 20.
inline CanvasView SomeView(double scale = 2.0)
{
    CanvasView view;
    view.ImageWidth = 100;
    view.ImageHeight = 80;
    view.Scale = scale;
    view.ClientRect = CRect(0, 0, 300, 250);
    view.DisplayRect = CRect(10, 20, 10 + static_cast<int>(100 * scale), 20 + static_cast<int>(80 * scale));
    return view;
}

}
