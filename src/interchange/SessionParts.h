#pragma once

// What a session holds beside image and objects: view, contrast, scale, and the numbers that count objects.

#include "canvas/ElementCounts.h"
#include "canvas/view/CanvasView.h"
#include "interchange/JsonText.h"
#include "interchange/Remarks.h"
#include "output/ContrastState.h"

#include <optional>

namespace vostel {

struct SavedView {
    double Scale = 1.0;
    int    Width = 0;    // client px of the area
    int    Height = 0;
    int    CentreX = 0;    // client px; where the image's middle lay
    int    CentreY = 0;
    double MiddleX = 0.0;    // image px; what lay in the middle of the area
    double MiddleY = 0.0;
    bool   AnyScale = true;
    // Of the area: where the next resize puts the middle, if that does not follow from where it lies.
    std::optional<PointTemplateBase<double>> Anchor;
};

Json      JsonOfView(const CanvasView& view);
SavedView ViewOfJson(const Json& view);
// Looks at what was looked at: in an area of the same size exactly, else at the point in the middle. A view
// beyond what coordinates reach stays.
void TakeView(CanvasView& view, const SavedView& saved, bool sameImageSize);

struct SavedContrast {
    ContrastState State;
    std::string   LaterMap;    // of a later version, for which the state's map stands; else empty
};

// Without numbers where there are none.
Json                         JsonOfContrast(const ContrastState& state);
std::optional<SavedContrast> ContrastOfJson(const Json& contrast, Remarks& told);

struct SavedScale {
    double  UnitsPerPixel = 1.0;
    CString Unit = L"px";
    double  DrawnScale = 1.0;
};
Json       JsonOfScale(const CanvasSettings& settings, double drawnScale);
SavedScale ScaleOfJson(const Json& scale);

Json JsonOfCounts(const ElementCounts& counts);
// What is not said is as taken has it.
void TakeCounts(const Json& counts, ElementCounts& taken);

// Members of those that are not known.
Json UnknownOfParts(const Json& session);

}
