#pragma once

/// @file
/// Images on a canvas: showing data, reading files, the contrast window, values read back and the label
/// image.
///
/// References and pointers to the containers of a canvas stay valid until the next show, read or label call
/// on that canvas, a contrast change included. A new image keeps zoom and pan. Changes show at the next
/// gCVSOnDraw.

#include "vostel/CanvasTypes.h"
#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

/// Shows float data, copied, as gray. Its range, minimum to maximum, is stretched over 0..65535 and shown
/// through the contrast window: the whole range, or that of the contrast slider while it is shown.
///
/// keepOriginal also keeps the data as it came, which gCVSGetImaPixelValue and the read-outs need.
/// clearObjects deletes all overlay objects; otherwise they stay at their image points. A range below 1e-10
/// is not stretched. The minimum counts as 1e7 at most and the maximum as -1e7 at least.
VOSTEL_API void gCVSShowRawFloat(int canvas, ClassData2DIO<float>& data, bool keepOriginal,
                                 bool clearObjects);

/// Shows 8-bit gray, copied. clearObjects as for gCVSShowRawFloat. The float data of the canvas is released.
VOSTEL_API void gCVSShowUCGray(int canvas, ClassData2DIO<unsigned char>& gray, bool clearObjects);

/// Shows three 8-bit planes as color, copied; the size is that of red. The second plane is read one column
/// and the third two columns further to the right than the first, running on into the next row; behind the
/// last element they read 0. clearObjects as for gCVSShowRawFloat. The float data of the canvas is released.
VOSTEL_API void gCVSShowUCColor(int canvas, ClassData2DIO<unsigned char>& red,
                                ClassData2DIO<unsigned char>& green, ClassData2DIO<unsigned char>& blue,
                                bool clearObjects);

/// Shows float data as above, from width * height elements without padding, top row first. The buffer stays
/// the host's and is not used after the call. A negative height fails by the allocator's exception.
VOSTEL_API void gCVSShowRawFloat(int canvas, float* data, int width, int height, bool keepOriginal,
                                 bool clearObjects);

/// Shows 8-bit gray as above, from width * height elements without padding, top row first. The buffer stays
/// the host's and is not used after the call. A negative height fails by the allocator's exception.
VOSTEL_API void gCVSShowUCGray(int canvas, unsigned char* gray, int width, int height, bool clearObjects);

/// Shows three 8-bit planes as above, each of width * height elements without padding, top row first. The
/// buffers stay the host's and are not used after the call. A negative height fails by the allocator's
/// exception.
VOSTEL_API void gCVSShowUCColor(int canvas, unsigned char* red, unsigned char* green, unsigned char* blue,
                                int width, int height, bool clearObjects);

/// Reads a file and shows it. All overlay objects are deleted first, also when nothing comes of the read.
///
/// - The extensions raw, hraw, his and nul in any case, and files without one: headerless data, whose layout
///   the load dialog asks for (gDlgGetImaLoadPara). A file that does not exist is reported by the message
///   "文件不存在"; what it lacks reads as zeros. A size above 2^24 pixels that the file does not fill to a
///   quarter is refused.
/// - All others: pictures of 8, 24 or 32 bits per pixel, see ATL::CImage. Of 8 bits the bytes count as gray,
///   whatever the palette. Other depths leave a black image. Pixels are shown as the file stores them:
///   orientation tags are not followed, and alpha changes no color.
///
/// keepOriginal as for gCVSShowRawFloat. Always true: gCVSGetFileType returns FileTypeNone when the dialog
/// was cancelled or the file cannot be shown. The previous image then stays visible, but for other depths.
VOSTEL_API bool gCVSReadFile(int canvas, CString& path, bool keepOriginal);

/// Sets the contrast window of float data: fractions of the stretched range, 0..1, that become black and
/// white. The window stays as it was unless high is above low. Only the pixels inside of selected regions are
/// drawn anew, all of them when nothing is selected. Nothing happens unless the canvas shows FileTypeRaw. The
/// label image is rebuilt for the selected regions.
VOSTEL_API void gCVSSetLutPara(int canvas, float low, float high);

/// Returns the value under a client point, of the nearest image pixel if the point is beside the image.
///
/// Float data as it came, -1 if it was not kept; of 8-bit images trunc(0.587 g + 0.299 r + 0.114 b), which
/// for 65 of the 256 grays is one less than the gray; -1 without an image.
VOSTEL_API float gCVSGetImaPixelValue(int canvas, CPoint point);

/// Returns the float data stretched to 0..65535, top row first; the canvas's own. Empty for 8-bit images.
/// What a host writes into it shows at the next contrast change.
VOSTEL_API ClassData2DIO<float>& gCVSGetRaw(int canvas);

/// Returns Ptr1D of gCVSGetRaw, null for 8-bit images.
VOSTEL_API float* gCVSGetRawPtr1D(int canvas);

/// Returns Ptr2D of gCVSGetRaw, null for 8-bit images.
VOSTEL_API float** gCVSGetRawPtr2D(int canvas);

/// Returns the float data as it came, top row first; the canvas's own. Empty for 8-bit images and unless it
/// was to be kept.
VOSTEL_API ClassData2DIO<float>& gCVSGetRawOri(int canvas);

/// Returns Ptr1D of gCVSGetRawOri, null where that is empty.
VOSTEL_API float* gCVSGetRawOriPtr1D(int canvas);

/// Returns Ptr2D of gCVSGetRawOri, null where that is empty.
VOSTEL_API float** gCVSGetRawOriPtr2D(int canvas);

/// Returns what the canvas shows.
VOSTEL_API FileType gCVSGetFileType(int canvas);

/// Says what the canvas shows and changes nothing else: for images that a host draws itself, and to switch
/// contrast changes off (FileTypeRawPlain).
VOSTEL_API void gCVSSetFileType(int canvas, FileType type);

/// Returns the width of the image in pixels; 0 before the first image.
VOSTEL_API int gCVSGetCanvasWidth(int canvas);

/// Returns the height of the image in pixels; 0 before the first image.
VOSTEL_API int gCVSGetCanvasHeight(int canvas);

/// Rebuilds the label image at the size of the image: 0 where no region is, n + 1 inside the region with
/// serial number n, later regions over earlier ones. Regions are the objects named so in CanvasElements.h,
/// numbered from 0 in the order of their creation.
///
/// selectedOnly takes the selected regions alone; if nothing is selected all pixels are 1. Without any object
/// all pixels are 1, too. A spline counts with the curve of the last gCVSOnDraw. Returns the label written
/// last, 1 if none was.
VOSTEL_API int gCVSGenerateLabel(int canvas, bool selectedOnly);

/// Returns the label image as last rebuilt, bottom row of the image first, as on the canvas surface; the
/// canvas's own. Contrast changes and gCVSSaveLabel rebuild it, too.
VOSTEL_API ClassData2DIO<int>& gCVSGetLabelIma(int canvas);

/// Returns Ptr1D of gCVSGetLabelIma, null before it was first built.
VOSTEL_API int* gCVSGetLabelImaPtr1D(int canvas);

/// Returns Ptr2D of gCVSGetLabelIma, null before it was first built.
VOSTEL_API int** gCVSGetLabelImaPtr2D(int canvas);
