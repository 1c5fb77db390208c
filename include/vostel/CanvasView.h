#pragma once

/// @file
/// The view of a canvas: its window area, how mouse gestures move the image in it, and the conversion between
/// client points and image points.
///
/// Client points are integer pixels of the host's window, 0, 0 at its top left, y downwards. Image points are
/// doubles in pixels of the image, 0, 0 at the top left corner of its top left pixel, y downwards.
///
///     image.x = (client.x - region.left) / scale        region: gCVSGetCanvasRegion
///     client.x = trunc(image.x * scale + region.left)   scale:  client pixels per image pixel
///
/// A new canvas has scale 1 and its image in the middle of the window area. Nothing fits an image to the
/// window, and neither a new image nor a new window area changes the scale.

#include "vostel/CanvasTypes.h"
#include "vostel/Geometry.h"
#include "vostel/export.h"
#include "vostel/platform.h"

/// Gives a canvas its window area and the context that gCVSOnDraw copies frames to. Call it before any other
/// canvas call, and again on each resize: it makes a new client surface, blank until the next gCVSOnDraw.
///
/// The rectangle is in client pixels with its left top at 0, 0; one without an area leaves the canvas without
/// a client surface. The context stays the host's and must live as long as frames are drawn; a null one is
/// allowed: frames are then found in the client surface only, see gCVSGetClientPixelPtr. After the first call
/// the image keeps its distance from the middle of the area as a fraction of the area's size.
VOSTEL_API void gCVSSetClient(int canvas, CRect& clientRect, HDC dc);

/// Sets what Control+drag and Control+wheel do from now on.
VOSTEL_API void gCVSSetCanvasMoveMode(int canvas, DisplayMode mode);

/// Returns where the whole image lies, in client pixels. It may reach beyond the window area on any side.
VOSTEL_API CRect gCVSGetCanvasRegion(int canvas);

/// Returns the width of the window area in client pixels; 0 before the first gCVSSetClient.
VOSTEL_API int gCVSGetClientWidth(int canvas);

/// Returns the height of the window area in client pixels; 0 before the first gCVSSetClient.
VOSTEL_API int gCVSGetClientHeight(int canvas);

/// Converts a client point to an image point, neither rounded nor clamped: beside the image it is negative or
/// beyond the image's size.
VOSTEL_API void gCVSGetOriPt(int canvas, CPoint point, PointTemplateBase<double>& imagePoint);

/// Converts a client point to image coordinates, neither rounded nor clamped.
VOSTEL_API void gCVSGetOriPt(int canvas, CPoint point, double& imageX, double& imageY);

/// Converts an image point to a client point, truncated towards zero: the way there and back may differ by
/// one pixel.
VOSTEL_API void gCVSGetDisplayPt(int canvas, PointTemplateBase<double> imagePoint, CPoint& point);

/// Converts image coordinates to a client point, truncated towards zero.
VOSTEL_API void gCVSGetDisplayPt(int canvas, double imageX, double imageY, CPoint& point);
