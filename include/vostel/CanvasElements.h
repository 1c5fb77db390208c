#pragma once

// Overlay objects of a canvas. Each call makes one object, numbers it, puts it on top and selects it, so that
// the next gestures go to it: Shift presses draw, a press on a handle drags a node, a press inside moves the
// shape.

#include "vostel/CanvasTypes.h"
#include "vostel/export.h"
#include "vostel/platform.h"

#include <vector>

// Regions; they reach the label plane.
VOSTEL_API void gCVSAddMRectangle(int canvas);
VOSTEL_API void gCVSAddCustomRectangle(int canvas);    // asks for the rectangle by the region dialog
VOSTEL_API void gCVSAddPoly(int canvas);
VOSTEL_API void gCVSAddSpline(int canvas);
VOSTEL_API void gCVSAddFreeRegion(int canvas);

// A drawing of several strokes; keys A and D change its pen while it is selected.
VOSTEL_API void gCVSAddFreeStroke(int canvas);

// Text. The first form asks for the text by the parameter dialog; x and y are client px, in the V2 form image
// px. bkMode, colour and height count for FontCustom: background 1 transparent, 2 a white box; px.
VOSTEL_API void gCVSAddTextOL(int canvas);
VOSTEL_API void gCVSAddTextOL(int canvas, CString text, int x, int y, FontType font, int bkMode,
                              unsigned long colour, int height);
VOSTEL_API void gCVSAddTextOLV2(int canvas, CString text, int x, int y, FontType font, int bkMode,
                                unsigned long colour, int height);
// The size such a text will have, at 0, 0. As a side effect the last object becomes the selected one.
VOSTEL_API CRect gCVSGetTextRectOL(int canvas, CString text, int x, int y, FontType font, int bkMode,
                                   unsigned long colour, int height);
VOSTEL_API void  gCVSAddTextML(int canvas, std::vector<CString>& lines, int x, int y);    // client px

// Measures. A length line takes the canvas's scale, length units an image pixel, when it is made; the double
// of gCVSAddMeasureLine is not used. The form without a scale asks for it by the parameter dialog.
VOSTEL_API void gCVSAddMeasureLine(int canvas, double unused);
VOSTEL_API void gCVSAddMeasureAngle3Pts(int canvas);
VOSTEL_API void gCVSAddMeasureAngle4Pts(int canvas);
VOSTEL_API void gCVSSetMeasureScale(int canvas, double scale);
VOSTEL_API void gCVSSetMeasureScale(int canvas);

// Read-outs that follow the mouse: position and value, a line profile with its plot, a grid of values.
VOSTEL_API void gCVSAddInfoWin(int canvas);
VOSTEL_API void gCVSAddLineProfile(int canvas);
VOSTEL_API void gCVSAddNeighborPV(int canvas);

VOSTEL_API void gCVSAddDoubleLine(int canvas);    // does nothing
