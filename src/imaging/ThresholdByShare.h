#pragma once

#include "vostel/Containers.h"

namespace vostel {

// LAT_Constant with another share of the mean than 0.85, to the same pixels for that one.
void ThresholdByShare(ClassData2DIO<unsigned char>& image, int size, double share);

}
