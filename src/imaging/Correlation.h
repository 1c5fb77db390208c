#pragma once

// Rows of a correlation of an image with a kernel, and the variants of its inner block.

#include "vostel/Containers.h"

#include <cstddef>
#include <vector>

namespace vostel {

// One sum per output sample: sum += kernel * source, each a 32-bit float step from 0.0, down the kernel's
// rows and along each row. sources[q] + offset is the sample under the first tap of the first column, q
// counting the source rows of all output rows together: output row r uses sources r .. r + kernelHeight - 1.
// Writes columns targets[r][first] .. targets[r][first + columns - 1].
struct CorrelationBlock {
    const float* const* Sources;
    std::ptrdiff_t      Offset;
    const float*        Kernel;
    int                 KernelWidth;
    int                 KernelHeight;
    float* const*       Targets;
    std::ptrdiff_t      First;
    std::ptrdiff_t      Columns;
    bool Streaming;    // whole cache lines of the target by non-temporal stores; Fence has to follow
};

struct CorrelationVariant {
    int RowsAtOnce;
    void (*Rows)(const CorrelationBlock& block);    // RowsAtOnce output rows
    void (*Row)(const CorrelationBlock& block);     // one
    void (*Fence)();                                // before another thread may read what was streamed
};

const CorrelationVariant& ActiveCorrelationVariant();

extern const CorrelationVariant CorrelationPlain;
extern const CorrelationVariant CorrelationAvx2;
extern const CorrelationVariant CorrelationAvx512;

// An image, the taps and the mirrored border between them. Borrows the image's rows.
class Correlation {
public:
    // Both have samples.
    Correlation(const StructData2D<float>& image, const StructData2D<float>& kernel);

    // Output rows first..end-1, whole: columns whose taps leave the image read mirrored samples.
    // A target larger than the caches is stored without reading its lines first.
    void DoRows(float* const* targets, int first, int end) const;

    // The same into the image itself. All memory is taken before the first row changes.
    void DoRowsInPlace(StructData2D<float>& image, int first, int end) const;

    int HalfWidth = 0;
    int HalfHeight = 0;

private:
    class EdgeCopies;

    // rowsDone(y) is called when all rows before y have their results.
    template <typename RowsDone>
    void DoRows(float* const* targets, int first, int end, bool streaming, RowsDone rowsDone) const;

    int                       Width;
    int                       Height;
    int                       TapWidth;     // 2 HalfWidth + 1
    int                       TapHeight;    // 2 HalfHeight + 1
    int                       EdgeWidth;    // output columns at each side that are computed from copies
    std::vector<float>        Taps;         // TapHeight rows of TapWidth
    std::vector<const float*> Rows;         // of the image
    const CorrelationVariant& Variant;
};

}
