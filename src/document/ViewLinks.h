#pragma once

// Canvases that look at the same: they have the same scale and the same image point in the middle.
//
// Groups may change on any thread. The canvases of one are used by one thread at a time, as a single canvas
// is, since a call on one of them moves the others.

#include "canvas/view/ViewPlacing.h"

namespace vostel {

// Shows a view on a canvas that may be gone by now.
using ShowOnCanvas = void (*)(int canvas, const MiddleView& view);

// Makes one group of the groups of both.
void LinkCanvas(int canvas, int with, ShowOnCanvas show);
// Takes a canvas out of its group, if it is in one.
void UnlinkCanvas(int canvas) noexcept;
// Shows the view on all other canvases of the group.
void ShowOnLinked(int canvas, const MiddleView& view);

}
