#pragma once

/// @file
/// What a canvas holds, as files. Each call asks for a name by a save dialog (ChooseFiles of
/// VostelHostServices) and writes nothing when it is cancelled. All but gCVSSaveLabel need an image: with
/// FileTypeNone nothing is written after the dialog.
///
/// A file is written beside the one of its name and takes its place when it is whole: a save that fails, by a
/// full disk or, on Windows, because someone holds the old file open, leaves that and no fragment, whether it
/// is reported or not.

#include "vostel/export.h"

/// Saves the frame as last painted, objects and controls included, at the size of the window area: a picture
/// of 32 bits in the format that the extension names. With a rectangle of gCVSAddMRectangle selected, its box
/// alone. A failed write is reported by the message "保存图像文件失败！".
VOSTEL_API void gCVSSaveClient(int canvas);

/// Saves the part of the frame that shows the image, at the scale of the screen, objects included; the format
/// and failures are those of gCVSSaveClient. Where the image reaches beyond the window area the picture is
/// black.
VOSTEL_API void gCVSSaveImaWithOverlap(int canvas);

/// Saves the image as shown, at its own size, as a picture of 24 bits in the format that the extension names.
/// With a rectangle of gCVSAddMRectangle selected: its part of the image, both edges included, with the
/// length measures drawn in. A failed write is not reported.
VOSTEL_API void gCVSSaveNowShowIma(int canvas);

/// Saves the image as an 8-bit gray bitmap: trunc(0.587 g + 0.114 b + 0.299 r) of each pixel. A failed write
/// is not reported.
VOSTEL_API void gCVSSave8bit(int canvas);

/// Saves the float data stretched to 0..65535 without a header: 32-bit floats in the byte order of the
/// machine, top row first. The file is empty for 8-bit images. A failed write is not reported.
VOSTEL_API void gCVSSaveRaw(int canvas);

/// Rebuilds the label image for all regions, before the dialog, and saves it without a header: 32-bit
/// integers in the byte order of the machine, bottom row of the image first. A failed write is not reported.
VOSTEL_API void gCVSSaveLabel(int canvas);
