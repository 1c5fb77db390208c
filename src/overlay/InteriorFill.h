#pragma once

#include "canvas/view/PaintKit.h"
#include "geometry/Outline.h"

namespace vostel {

class CanvasView;

// The outline of image px in client px.
Outline ClientOutline(const Outline& imageOutline, const CanvasView& view);

// Lays 0xAARRGGBB over the pixels inside an outline of client px, on the surface that the kit is bound to, of
// 32 bits and with its rows bottom-up; or records it.
void FillInterior(const PaintKit& kit, const Outline& clientOutline, unsigned int color);

// Whether a pixel inside the outline of client px is the given one or touches it.
bool IsInsideOutline(const Outline& clientOutline, CPoint pixel);

}
