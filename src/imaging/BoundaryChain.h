#pragma once

#include "vostel/Geometry.h"

#include <cstddef>
#include <vector>

namespace vostel {

// The ends of the horizontal spans of a closed polygon, row by row. Within a row they are in no order:
// sorted by column, consecutive pairs are the spans.
struct SpanEnds {
    int                      Left = 0;    // the box of the points
    int                      Top = 0;
    int                      Right = -1;
    int                      Bottom = -1;
    std::vector<std::size_t> RowEnds;    // of row Top + i: where its columns end and those of the next begin
    std::vector<int>         Columns;

    std::size_t Rows() const { return static_cast<std::size_t>(Bottom - Top + 1); }
    int*        Begin(std::size_t row) { return Columns.data() + (row == 0 ? 0 : RowEnds[row - 1]); }
    int*        End(std::size_t row) { return Columns.data() + RowEnds[row]; }
};

// For points at x, y >= 0; at least one. Storage of earlier calls is used again.
void FindSpanEnds(const std::vector<PointTemplateBase<int>>& points, SpanEnds& ends);

}
