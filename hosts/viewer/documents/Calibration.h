#pragma once

#include "documents/Outcome.h"

#include <vostel.hpp>

#include <optional>

namespace vostel::viewer {

class CanvasModel;

// How long a pixel is.
struct PixelScale {
    double  UnitsPerPixel = 1.0;
    QString Unit = QStringLiteral("px");
};

// The scale of all measures of a canvas, by hand or by a length that is known. It is saved with the session;
// for the pictures of a folder it can be remembered, so that the next one comes calibrated.
namespace Calibration {

PixelScale Of(const CanvasModel& model);
bool       IsSet(const CanvasModel& model);    // not one px

Outcome Set(CanvasModel& model, const PixelScale& scale);    // one step
// By the true length of a line, a polyline, a profile or an arrow.
Outcome ByLength(CanvasModel& model, const Object& line, double trueLength, const QString& unit);

std::optional<PixelScale> OfFolder(const QString& folder);
void                      KeepForFolder(const QString& folder, const PixelScale& scale);
void                      ForgetFolder(const QString& folder);

// What a picture that has just come starts with: the scale of its folder, else px. No step.
void Begin(CanvasModel& model, const QString& picture);

}

}
