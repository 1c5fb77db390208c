

namespace vostel {

#pragma once

// Label planes: Width x Height integers without padding. An empty size does nothing.

void FillLabelPlane(int* plane, int width, int height, int value);

// Row y gets what was in row Height - 1 - y: regions are rasterised top row first, the finished plane lies in
// the row order of the canvas surface.
void FlipLabelPlane(int* plane, int width, int height);

}
