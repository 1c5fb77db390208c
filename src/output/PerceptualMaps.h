#pragma once

#include "output/ColorMaps.h"

namespace vostel {

extern const ColorMap Viridis;
extern const ColorMap Magma;
extern const ColorMap Inferno;
extern const ColorMap Plasma;

}
