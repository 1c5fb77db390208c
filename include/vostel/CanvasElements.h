#pragma once

/// @file
/// Overlay objects of a canvas. Each gCVSAdd... call makes one object, puts it on top and makes it the one
/// that Shift presses go to. The canvas owns it. Shapes are drawn by the mouse; all positions that they keep
/// are image points, so that they follow pan and zoom.
///
/// **A new object is blind until the next mouse move or view change.** It gets the view of its canvas at the
/// next gCVSOnMouseMove, gCVSOnMouseWheel, gCVSSetClient or new image. A press or a paint that needs the view
/// before that shows the message "显示信息未提供" and takes 0, 0 for the point. Where no mouse moves by
/// itself, call gCVSOnMouseWheel(canvas, 0, 0, CPoint(0, 0)) after each gCVSAdd... call: without Control it
/// hands the view over and does nothing else. Texts and read-outs have their view from the start.
///
/// **Paint between a press and its release.** Boxes, handles at the middle of lines, curves and the place of
/// a length's caption are computed by gCVSOnDraw.
///
/// Gestures of shapes, unless a call says otherwise: a press on a handle, a circle of radius 4 around a node,
/// drags the node; a press inside moves the shape; a line is moved by the handle in its middle. Nodes stay on
/// the image. A shape ends when the user stops pressing: there is nothing to finish. Selected objects are
/// drawn red, others blue.
///
/// Regions, which gCVSGenerateLabel labels, are rectangles, polygons, splines and free regions. They are
/// numbered from 0 in the order of their creation.

#include "vostel/CanvasTypes.h"
#include "vostel/export.h"
#include "vostel/platform.h"

#include <vector>

/// Deletes all objects and starts their numbers at 0 again.
VOSTEL_API void gCVSDelAllElement(int canvas);

/// Takes the selected object off the canvas, if there is one. The object made before it gets the next Shift
/// press, without being drawn as selected. The memory is freed by gCVSDelAllElement and with the canvas.
///
/// The numbers of all objects made after it go down by one, and so does that of the next region, whatever
/// kind is deleted: only among regions the numbers stay without gaps.
VOSTEL_API void gCVSDelSelElement(int canvas);

/// Adds a rectangle, a region: a Shift press sets one corner, the drag the other. A press inside moves it.
VOSTEL_API void gCVSAddMRectangle(int canvas);

/// Adds a rectangle, a region, that the region dialog asks for in image pixels (gDlgGetImaROIRectPara);
/// nothing when it is cancelled. A press inside moves it, also off the image; it has no handles.
VOSTEL_API void gCVSAddCustomRectangle(int canvas);

/// Adds a polygon, a region: each Shift press adds a node. It is always closed.
VOSTEL_API void gCVSAddPoly(int canvas);

/// Adds a smooth closed curve, a region: each Shift press adds a node that the curve passes through, see
/// mB3Line. Up to 198 nodes; more have no curve.
VOSTEL_API void gCVSAddSpline(int canvas);

/// Adds a region drawn freehand: a drag that begins with a Shift press draws its outline. It has no handles.
VOSTEL_API void gCVSAddFreeRegion(int canvas);

/// Adds a drawing of several strokes: each drag with Shift held draws one. It may leave the image and has no
/// handles; keys A and D change the pen of selected drawings.
VOSTEL_API void gCVSAddFreeStroke(int canvas);

/// Adds a text that the parameter dialog asks for (gDlgGetImaGeneralParaV2 with section TextInfo, file
/// TextInfo.ini), in style FontRed22Framed at client point 200, 200; nothing when it is cancelled.
VOSTEL_API void gCVSAddTextOL(int canvas);

/// Adds one line of text with its top left at a client point. The box keeps its size on the screen, and its
/// top left is tied to the image. bkMode, color and height count for FontCustom only: bkMode 1 draws no
/// background, 2 a white box; color is 0x00BBGGRR; height in client pixels.
VOSTEL_API void gCVSAddTextOL(int canvas, CString text, int x, int y, FontType font, int bkMode,
                              unsigned long color, int height);

/// Adds a text as gCVSAddTextOL, but x and y are image pixels.
VOSTEL_API void gCVSAddTextOLV2(int canvas, CString text, int x, int y, FontType font, int bkMode,
                                unsigned long color, int height);

/// Returns the size in client pixels that a text of gCVSAddTextOL will have, as a rectangle at 0, 0; empty
/// without a client surface. x and y are not used. The call moves the selection: the last object gets the
/// next Shift press.
VOSTEL_API CRect gCVSGetTextRectOL(int canvas, CString text, int x, int y, FontType font, int bkMode,
                                   unsigned long color, int height);

/// Adds lines of red text, copied, with the top left of their box at a client point. The box is sized at each
/// paint, is dragged by a press inside, and stays where it is through pan and zoom.
VOSTEL_API void gCVSAddTextML(int canvas, std::vector<CString>& lines, int x, int y);

/// Adds a length measure: a Shift press sets one end, the drag the other; both may leave the image. Its
/// caption "长度 = 1.234 mm" is the length in image pixels times the scale that gCVSSetMeasureScale had when
/// the measure was made; the number given here is not used. The first release places the caption right of and
/// above the middle; then it can be dragged.
VOSTEL_API void gCVSAddMeasureLine(int canvas, double unused);

/// Adds an angle between two arms: a Shift press makes all three points, vertex under the cursor. Handles
/// drag the arms, the one of the vertex the whole. Caption in degrees, "角度 = 90.000 度", measured on image
/// points.
VOSTEL_API void gCVSAddMeasureAngle3Pts(int canvas);

/// Adds an angle between two lines of two points each: a Shift press makes all four points. Handles drag the
/// ends, the yellow circle where the lines meet the whole. Caption in degrees, measured on client points, so
/// that its last decimals depend on the zoom.
VOSTEL_API void gCVSAddMeasureAngle4Pts(int canvas);

/// Sets the length of an image pixel for measures made from now on, 1 at first; captions call the unit mm.
VOSTEL_API void gCVSSetMeasureScale(int canvas, double scale);

/// Asks for the measure scale by the parameter dialog (gDlgGetImaGeneralParaV2 with section MeasureScaleInfo,
/// file MeasureScale.ini). A text that is not a number sets 0; nothing happens when it is cancelled.
VOSTEL_API void gCVSSetMeasureScale(int canvas);

/// Adds a read-out of the image position under the mouse and of the value there: of float data as it came and
/// as stretched, of 8-bit images red, green and blue. Dragged by a press inside.
VOSTEL_API void gCVSAddInfoWin(int canvas);

/// Adds a line profile: a line drawn as a length measure, and a plot of the values under it that is dragged
/// by a press inside. It samples once per image pixel of length, from 10 pixels on, at each mouse move while
/// it is selected: float data as it came, of 8-bit images the blue byte.
VOSTEL_API void gCVSAddLineProfile(int canvas);

/// Adds a read-out of the values of gCVSGetImaPixelValue at the five by five client points around the mouse.
/// Dragged by a press inside.
VOSTEL_API void gCVSAddNeighborPV(int canvas);

/// Does nothing.
VOSTEL_API void gCVSAddDoubleLine(int canvas);
