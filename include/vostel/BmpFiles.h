#pragma once

/// @file
/// Windows bitmaps as separate 8-bit planes. No routine here flips rows: container row 0 is the first row of
/// the file, which a viewer shows at the bottom. Paths are in the system's code page, UTF-8 off Windows.

#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

/// A bitmap's layout.
struct IMAGEPARAMENT {
    std::int32_t Width = 0;             ///< pixels
    std::int32_t Height = 0;            ///< pixels
    std::int32_t BitCount = 0;          ///< bits per pixel
    std::int32_t BytesPerLine = 0;      ///< (BitCount * Width + 31) / 32 * 4
    std::int32_t BytesPerPixel = 0;     ///< BitCount / 8
    std::int32_t PaletteEntries = 0;    ///< 1 << BitCount below 9 bits, else 0
    std::int32_t ImageBytes = 0;        ///< BytesPerLine * Height
};

/// Reads a bitmap of 8, 24 or 32 bits into planes of its size; 8-bit values go to all three planes, palette
/// ignored. Other depths leave the planes allocated and clear. alpha is allocated and cleared, never read
/// from the file.
///
/// Returns false, with the planes as they were, if the file cannot be opened or an argument is null; false,
/// with the planes released, if a size is negative, if the pixels do not count in 31 bits, or if more rows
/// are missing than present and the missing ones would need more than 32 MiB. Any other file that is cut
/// short reads as zeros from where it ends, its header too.
VOSTEL_API bool ZEKReadColorBmp(char* path, ClassData2DIO<unsigned char>* red,
                                ClassData2DIO<unsigned char>* green, ClassData2DIO<unsigned char>* blue,
                                ClassData2DIO<unsigned char>* alpha);

/// Reads a bitmap as gray: what ZEKColorToGray makes of ZEKReadColorBmp's planes. Always true; a file that
/// cannot be read gives an image of 0 x 0.
VOSTEL_API bool ZEKReadGrayBmp(char* path, ClassData2DIO<unsigned char>* gray);

/// Writes an 8-bit bitmap with a gray palette, beside the path and then moved there: until the file is whole,
/// and where it never gets whole, the path leads to what was there before. Returns false if no file can be
/// made there; that the disk is full, or on Windows that someone holds the old file open, is not reported.
VOSTEL_API bool ZEKSaveGrayBmp(char* path, ClassData2DIO<unsigned char>& gray);

/// Writes a 24-bit bitmap of red's size; what a smaller plane does not have is zero. Returns false if no file
/// can be made there or a plane is null; else as ZEKSaveGrayBmp.
VOSTEL_API bool ZEKSaveColorBmp(const char* path, ClassData2DIO<unsigned char>* red,
                                ClassData2DIO<unsigned char>* green, ClassData2DIO<unsigned char>* blue);

/// Makes gray = trunc(0.587 G + 0.299 R + 0.114 B), in double, added in that order, allocated at red's size;
/// 0 x 0 if red is empty. What a smaller plane does not have counts as zero. The truncation lowers 65 of the
/// 256 equal triples by one level. Nothing happens if an argument is null. Always true.
VOSTEL_API bool ZEKColorToGray(ClassData2DIO<unsigned char>* red, ClassData2DIO<unsigned char>* green,
                               ClassData2DIO<unsigned char>* blue, ClassData2DIO<unsigned char>* gray);

/// Fills the record with the layout of a picture; an empty picture leaves it untouched.
VOSTEL_API void GetImageParament(ATL::CImage* image, IMAGEPARAMENT* params);

/// Returns a table of the picture's rows, top row first, to be freed with Release2DList; null for an empty
/// picture and where there is no memory.
VOSTEL_API unsigned char** Create2DList(ATL::CImage* image);

/// Frees a table of Create2DList; the picture stays.
VOSTEL_API void Release2DList(unsigned char** list);
