#pragma once

/// @file
/// The two surfaces of a canvas, for hosts that read or write pixels themselves.
///
/// - The canvas surface holds the image at its own size. It comes with each image and with gCVSPrepareCanvas;
///   until the next of these its context, pixels and row table are valid.
/// - The client surface holds the frame that the screen gets, at the size of the window area. It comes with
///   gCVSSetClient and with each new image; until the next of these its context, pixels and row table are
///   valid.
///
/// Both hold pixels of 32 bits, 0x00RRGGBB, rows bottom-up and without padding: pixel x of image row y is at
/// `pixels[(height - 1 - y) * width + x]`. Both belong to the canvas. A host may select pens, brushes and
/// fonts into the contexts, and puts back what was there before; it selects no other bitmap and deletes
/// nothing. After GDI calls on a context GdiFlush comes before its pixels are touched.

#include "vostel/export.h"
#include "vostel/platform.h"

/// Makes a black canvas surface of a size in pixels and deletes all objects. A size below 1 leaves the canvas
/// without a surface. What gCVSGetFileType and gCVSGetRaw return stays: a host that has drawn an image sets
/// FileTypeByte, so that it can be saved and read back. Always true.
VOSTEL_API bool gCVSPrepareCanvas(int canvas, int width, int height);

/// Sets all pixels of the canvas surface to one value, 0x00RRGGBB. Nothing happens without a surface.
VOSTEL_API void gCVSSetCanvasColor(int canvas, unsigned int color);

/// Returns the memory context that the canvas surface is selected in; null before the first image.
VOSTEL_API HDC gCVSGetCanvasHDC(int canvas);

/// Returns the pixels of the canvas surface, bottom row first; null without a surface.
VOSTEL_API unsigned int* gCVSGetCanvasPixelPtr(int canvas);

/// Makes a table of the rows of the canvas surface, row 0 at the bottom; an empty one without a surface. It
/// belongs to the canvas and replaces the table made before.
VOSTEL_API unsigned int** gCVSCreateCanvasPixelPtr2D(int canvas);

/// Frees the table of gCVSCreateCanvasPixelPtr2D, if there is one. Always true.
VOSTEL_API bool gCVSReleaseCanvasPixelPtr2D(int canvas);

/// Chooses how the next frames scale the image: true takes the nearest pixel, which is fast and the default;
/// false smooths.
VOSTEL_API void gCVSSetCanvasFastDisplayMode(int canvas, bool fast);

/// Returns the memory context that the client surface is selected in; null before gCVSSetClient and without a
/// window area.
VOSTEL_API HDC gCVSGetClientMemDC(int canvas);

/// Returns the pixels of the client surface, bottom row first: the frame as gCVSOnDraw last composed it. Null
/// before gCVSSetClient and without a window area.
VOSTEL_API unsigned int* gCVSGetClientPixelPtr(int canvas);

/// Makes a table of the rows of the client surface, row 0 at the bottom; an empty one without a surface. It
/// belongs to the canvas and replaces the table made before.
VOSTEL_API unsigned int** gCVSCreateClientPixelPtr2D(int canvas);

/// Frees the table of gCVSCreateClientPixelPtr2D, if there is one. Always true.
VOSTEL_API bool gCVSReleaseClientPixelPtr2D(int canvas);

/// True: gCVSOnDraw composes nothing and only copies the client surface, which holds what the host drew into
/// it. False, the default, composes frames.
VOSTEL_API void gCVSSetUseClientMemDCPixelDirect(int canvas, bool direct);
