#pragma once

/// @file
/// Files without header: plain samples, row after row, little-endian, from the first byte. How many are read
/// is the size of the image, which must be allocated. A path that does not exist is reported by the message
/// "文件不存在"; what a file does not have counts as zero samples, be it missing, short, a directory or
/// unreadable; what it has beyond is not read. An image without elements stays as it is. Narrow paths are in
/// the system's code page, UTF-8 off Windows.

#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

/// Reads 32-bit floats: (sample - low) * k in 32-bit float, k = float(65535 / (high - low)), truncated
/// towards zero to 64 bits, of which the low 16 are stored: values outside low..high wrap round. The image
/// keeps its buffers. Returns false, with the image as it was, when |high - low| is below 0.0001.
VOSTEL_API bool ReadUsDataFloat(ClassData2DIO<unsigned short>& image, char* path, float low, float high);

/// Reads signed 16-bit samples plus 32768. The image gets new buffers: row pointers from before are dead.
/// Always true.
VOSTEL_API bool ReadUsDataShort(ClassData2DIO<unsigned short>& image, char* path);

/// Reads 8-bit samples as they are. The image gets new buffers: row pointers from before are dead. Always
/// true.
VOSTEL_API bool ReadUsDataChar(ClassData2DIO<unsigned short>& image, char* path);

/// Writes a 24-bit picture with equal channels; container row 0 is its top row. The extension chooses the
/// format, see ATL::CImage. Always true: a failed save, on Windows also because someone holds the old file
/// open, is not reported, and leaves the file that was there. Nothing is written for an image without
/// elements.
VOSTEL_API bool gSaveUcData(ClassData2DIO<unsigned char>* image, CString& path);
