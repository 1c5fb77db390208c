#pragma once

// A canvas's image and objects as documents of shapes.

#include "document/PictureDrawing.h"
#include "interchange/FileObject.h"

#include <string>

namespace vostel {

// Of a canvas that shows an image. The size is that of the picture at the scale.
std::string SvgOfCanvas(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                        ImageSize size);
std::string PdfOfCanvas(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                        ImageSize size);

}
