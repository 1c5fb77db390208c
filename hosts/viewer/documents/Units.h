#pragma once

#include <QString>

namespace vostel::viewer {

// Centimetres of a unit of length by its name, such as "mm" or "µm"; 0 for others and for px.
double CentimetresOf(const QString& unit);

// Pixels in a centimetre at a scale; 0 if the unit is not known.
double PixelsPerCentimetre(double unitsPerPixel, const QString& unit);

}
