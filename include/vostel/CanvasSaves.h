#pragma once

// What a canvas holds, as files. Each call asks the user for a name by a save dialog first; a cancelled
// dialog writes nothing. All but gCVSSaveLabel then need an image.

#include "vostel/export.h"

// As pictures, in the format that the extension names. The client area as last painted, or the box of the
// selected rectangle in it; the part that shows the image, with everything drawn on it. A picture that cannot
// be written is told by a message.
VOSTEL_API void gCVSSaveClient(int canvas);
VOSTEL_API void gCVSSaveImaWithOverlap(int canvas);

// The image as shown, at its own resolution in 24 bits. With a rectangle selected: its part of the image,
// edges included, with the length measures burned in.
VOSTEL_API void gCVSSaveNowShowIma(int canvas);

// The image as an 8-bit gray bitmap.
VOSTEL_API void gCVSSave8bit(int canvas);

// Headerless planes in the byte order of the machine: the float data stretched to 0..65535, and the labels of
// all regions as 32-bit integers with the bottom row of the image first. The label plane is rebuilt before
// the dialog.
VOSTEL_API void gCVSSaveRaw(int canvas);
VOSTEL_API void gCVSSaveLabel(int canvas);
