#pragma once

#include "vostel/platform.h"

#include <cstddef>

namespace vostel {

struct CanvasSettings;

// What captions of measures say. No settings count as the Chinese ones.
CString LengthCaption(double length, const CString& unit, const CanvasSettings* settings);
CString AngleCaption(double degrees, const CanvasSettings* settings);
CString CountCaption(std::size_t count, const CanvasSettings* settings);

}
