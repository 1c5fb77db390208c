#include "imaging/CorrelationBlocks.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

const CorrelationVariant CorrelationAvx512 = {.RowsAtOnce = BlockRows,
                                              .Rows = SumColumns<SimdAvx512, BlockRows, 4>,
                                              .Row = SumColumns<SimdAvx512, 1, 4>,
                                              .Fence = SimdAvx512::Fence};

}
