#include "imaging/CorrelationBlocks.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

const CorrelationVariant CorrelationAvx2 = {.RowsAtOnce = BlockRows,
                                            .Rows = SumColumns<SimdAvx2, BlockRows, 2>,
                                            .Row = SumColumns<SimdAvx2, 1, 4>,
                                            .Fence = SimdAvx2::Fence};

}
