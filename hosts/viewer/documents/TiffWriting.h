#pragma once

#include <vostel.hpp>

class QIODevice;

namespace vostel::viewer {

// Bytes that a plane takes as a TIFF; files beyond 4 GiB are not written.
bool FitsTiff(const VostelPlane& plane);

// Writes the values as they are as an uncompressed TIFF of one page: 8 and 16 bits, signed or not, float, and
// colors with their fourth byte as alpha. Returns false if the device does not take everything.
// @param pixelsPerCentimetre 0: not known
bool WriteTiff(QIODevice& file, const VostelPlane& plane, double pixelsPerCentimetre);

}
