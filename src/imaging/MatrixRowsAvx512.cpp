#include "imaging/MatrixTiles.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

const MatrixVariant MatrixAvx512 = {.Multiply = MultiplyInTiles<SimdAvx512, 4>};

}
