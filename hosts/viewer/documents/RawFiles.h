#pragma once

#include "documents/Outcome.h"
#include "documents/RawVolume.h"

#include <optional>

namespace vostel::viewer {

// Data without a header, rows from the top, in the byte order of the machine, and beside them "NAME.raw.json"
// with their layout, which the viewer reads instead of asking.
Outcome SaveRaw(const VostelPlane& plane, const QString& path);

// The layout that stands beside a file, if it is just what the file holds.
std::optional<RawVolume> LayoutBeside(const QString& path);

}
