#pragma once

// Windows bitmaps as separate 8-bit planes. No routine here flips rows: container row 0 is the first row
// of the file, which a viewer shows at the bottom.

#include "vostel/Containers.h"
#include "vostel/export.h"
#include "vostel/platform.h"

// A bitmap's layout.
struct IMAGEPARAMENT {
    std::int32_t Width = 0;             // pixels
    std::int32_t Height = 0;            // pixels
    std::int32_t BitCount = 0;          // bits per pixel
    std::int32_t BytesPerLine = 0;      // (BitCount * Width + 31) / 32 * 4
    std::int32_t BytesPerPixel = 0;     // BitCount / 8
    std::int32_t PaletteEntries = 0;    // 1 << BitCount below 9 bits, else 0
    std::int32_t ImageBytes = 0;        // BytesPerLine * Height
};

// Reads a bitmap of 8, 24 or 32 bits into planes of its size; 8-bit values go to all three planes, palette
// ignored. Other depths leave the planes allocated and clear. alpha is allocated and cleared, never read
// from the file. False if the file cannot be opened or an argument is null (planes untouched), and false
// with released planes if
// - a size is negative, or the pixels do not count in 31 bits,
// - the file has lost more rows than it holds and these would take more than 32 MiB of a plane and its row
//   table: no file of a few bytes makes its reader ask for a gigabyte.
// Any other file cut short is read, and zero from where it ends, its header too.
VOSTEL_API bool ZEKReadColorBmp(char* path, ClassData2DIO<unsigned char>* red,
                                ClassData2DIO<unsigned char>* green, ClassData2DIO<unsigned char>* blue,
                                ClassData2DIO<unsigned char>* alpha);
// What ZEKColorToGray makes of ZEKReadColorBmp's planes. Always true; a file that cannot be read gives a
// 0 x 0 image.
VOSTEL_API bool ZEKReadGrayBmp(char* path, ClassData2DIO<unsigned char>* gray);

// Write an 8-bit bitmap with a gray palette, and a 24-bit bitmap from three planes of red's size; padding is
// zero, and so is what a plane smaller than red does not have. False if the file cannot be opened or a plane
// is null; a full disk is not noticed.
VOSTEL_API bool ZEKSaveGrayBmp(char* path, ClassData2DIO<unsigned char>& gray);
VOSTEL_API bool ZEKSaveColorBmp(const char* path, ClassData2DIO<unsigned char>* red,
                                ClassData2DIO<unsigned char>* green, ClassData2DIO<unsigned char>* blue);

// gray = trunc(0.587 G + 0.299 R + 0.114 B) in double, added in that order; allocated at red's size, 0 x 0
// if red is empty. Always true. The truncation lowers 65 of the 256 equal triples by one level.
VOSTEL_API bool ZEKColorToGray(ClassData2DIO<unsigned char>* red, ClassData2DIO<unsigned char>* green,
                               ClassData2DIO<unsigned char>* blue, ClassData2DIO<unsigned char>* gray);

// The layout of a picture; an empty picture leaves the record untouched.
VOSTEL_API void GetImageParament(ATL::CImage* image, IMAGEPARAMENT* params);
// A malloc'ed table of the picture's rows, top row first. Null for an empty picture.
VOSTEL_API unsigned char** Create2DList(ATL::CImage* image);
// Frees the table; the picture stays.
VOSTEL_API void Release2DList(unsigned char** list);
