#pragma once

// Images on a canvas: showing data, reading files, the contrast window, reading values back and the label
// plane. References and pointers to a canvas's containers stay valid until the next show, read or label
// call on that canvas.

#include "vostel/CanvasTypes.h"
#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

// Show data, copied. clearObjects deletes all overlay objects; otherwise they stay at their image points.
// Float data is stretched over 0..65535 between its own minimum and maximum; keepOriginal also keeps it as
// it came, which reading values back needs. Of three colour planes the second is read one and the third two
// columns further to the right than the first. The pointer forms take Width * Height elements without
// padding and leave them the host's.
VOSTEL_API void gCVSShowRawFloat(int canvas, ClassData2DIO<float>& data, bool keepOriginal,
                                 bool clearObjects);
VOSTEL_API void gCVSShowUCGray(int canvas, ClassData2DIO<unsigned char>& gray, bool clearObjects);
VOSTEL_API void gCVSShowUCColor(int canvas, ClassData2DIO<unsigned char>& red,
                                ClassData2DIO<unsigned char>& green, ClassData2DIO<unsigned char>& blue,
                                bool clearObjects);
VOSTEL_API void gCVSShowRawFloat(int canvas, float* data, int width, int height, bool keepOriginal,
                                 bool clearObjects);
VOSTEL_API void gCVSShowUCGray(int canvas, unsigned char* gray, int width, int height, bool clearObjects);
VOSTEL_API void gCVSShowUCColor(int canvas, unsigned char* red, unsigned char* green, unsigned char* blue,
                                int width, int height, bool clearObjects);

// Reads a file: the extensions raw, hraw, his and none as headerless data whose layout the load dialog
// gives, all others as pictures. Always true; gCVSGetFileType tells whether an image came of it. All
// overlay objects are deleted, also when the dialog is cancelled.
VOSTEL_API bool gCVSReadFile(int canvas, CString& path, bool keepOriginal);

// The contrast window of float data, as fractions 0..1 of the stretched range; high at or below low leaves
// the window. Only pixels inside selected regions are redrawn, all of them when nothing is selected.
VOSTEL_API void gCVSSetLutPara(int canvas, float low, float high);

// The value under a client point, clamped to the nearest pixel of the image: float data as it came, the
// gray of a byte image, -1 where there is no image or the data was not kept.
VOSTEL_API float gCVSGetImaPixelValue(int canvas, CPoint point);

// Float data stretched to 0..65535 (Raw) and as it came (RawOri); both empty for byte images.
VOSTEL_API ClassData2DIO<float>& gCVSGetRaw(int canvas);
VOSTEL_API float*                gCVSGetRawPtr1D(int canvas);
VOSTEL_API float**               gCVSGetRawPtr2D(int canvas);
VOSTEL_API ClassData2DIO<float>& gCVSGetRawOri(int canvas);
VOSTEL_API float*                gCVSGetRawOriPtr1D(int canvas);
VOSTEL_API float**               gCVSGetRawOriPtr2D(int canvas);

VOSTEL_API FileType gCVSGetFileType(int canvas);
VOSTEL_API void     gCVSSetFileType(int canvas, FileType type);
VOSTEL_API int      gCVSGetCanvasWidth(int canvas);     // image pixels
VOSTEL_API int      gCVSGetCanvasHeight(int canvas);    // image pixels

// The label plane: 0 for no region, n + 1 for the region with serial number n, in the row order of the
// canvas surface (row 0 is the bottom of the image). Rebuilt for all regions or the selected ones; with no
// object on the canvas, or none selected when selectedOnly, every pixel is 1. Answers the last label
// written, 1 if none was.
VOSTEL_API int gCVSGenerateLabel(int canvas, bool selectedOnly);
VOSTEL_API ClassData2DIO<int>& gCVSGetLabelIma(int canvas);
VOSTEL_API int*                gCVSGetLabelImaPtr1D(int canvas);
VOSTEL_API int**               gCVSGetLabelImaPtr2D(int canvas);
