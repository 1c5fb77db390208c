#pragma once

/// @file
/// The two controls that a canvas can draw over its image: a contrast slider, by which a user sets the window
/// of float data, and a progress bar. Both stay where they are through pan and zoom.
///
/// Places are in client pixels: x from the left edge of the window area to the control's left edge, y from
/// the bottom edge of the window area up to the control's bottom edge. A control has no size until it is
/// placed, and is hidden until it is shown by its call. Changes show at the next gCVSOnDraw.

#include "vostel/export.h"

/// Shows or hides the contrast slider, hidden at first. While shown it takes the presses that fall on it, and
/// its window is applied at the release and to each new float image.
VOSTEL_API void gCVSShowContrastCtrl(int canvas, bool show);

/// Places the contrast slider. Its caption takes 60 pixels of the width; the thumbs have no room to move
/// below a width of 75.
VOSTEL_API void gCVSSetContrastCtrlRectPos(int canvas, int x, int y, int w, int h);

/// Shows or hides the progress bar, hidden at first.
VOSTEL_API void gCVSShowProgress(int canvas, bool show);

/// Places the progress bar.
VOSTEL_API void gCVSSetProgressRectPos(int canvas, int x, int y, int w, int h);

/// Sets the range of the progress bar: the bar is empty at low and full at high. 100 to 200 at first. An
/// empty range, low equal to high, has no bar that makes sense.
VOSTEL_API void gCVSSetRange(int canvas, int low, int high);

/// Sets the position of the progress bar, 150 at first. It is not clamped: outside the range the bar runs
/// beyond its control.
VOSTEL_API void gCVSSetPos(int canvas, int pos);
