#include "imaging/MatrixTiles.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

const MatrixVariant MatrixAvx2 = {.Multiply = MultiplyInTiles<SimdAvx2, 2>};

}
