#pragma once

// Files without header: plain samples, row after row, little-endian, from the first byte. How many are read
// is the size of the image, which must be allocated. A path that does not exist shows "文件不存在"; what a
// file does not give counts as zero samples, be it missing, short, a directory or unreadable; what it has
// beyond is not read. An image without elements stays as it is.

#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

// 32-bit floats: (sample - low) * k in 32-bit float, k = float(65535 / (high - low)), truncated towards zero
// to 64 bits, of which the low 16 are stored: values outside low..high wrap round. Keeps the buffers. False,
// with the image as it was, when |high - low| is below 0.0001.
VOSTEL_API bool ReadUsDataFloat(ClassData2DIO<unsigned short>& image, char* path, float low, float high);

// Signed 16-bit samples plus 32768, and 8-bit samples as they are. Both always return true, and give the
// image new buffers: pointers taken before are gone.
VOSTEL_API bool ReadUsDataShort(ClassData2DIO<unsigned short>& image, char* path);
VOSTEL_API bool ReadUsDataChar(ClassData2DIO<unsigned short>& image, char* path);

// A 24-bit picture with equal channels; container row 0 is its top row. The extension chooses the codec.
// Always true: a failed save is not told. Nothing is written for an image without elements.
VOSTEL_API bool gSaveUcData(ClassData2DIO<unsigned char>* image, CString& path);
