#include "interchange/CanvasDrawing.h"

#include "canvas/VostelImage.h"
#include "canvas/view/VectorDrawing.h"
#include "interchange/DeflatedPixels.h"
#include "interchange/PdfPicture.h"
#include "interchange/SvgPicture.h"

namespace vostel {

namespace {

bool IsSmooth(const VostelImage& canvas)
{
    return canvas.CanvasSurface.StretchMode == HALFTONE;
}

}

std::string SvgOfCanvas(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                        ImageSize size)
{
    VectorDrawing drawing(size.Width, size.Height, false);
    RecordPicture(canvas, notes, scale, parts, drawing);
    return SvgOf(drawing, PngOf(DeflatePixels(canvas.CanvasSurface)), IsSmooth(canvas));
}

std::string PdfOfCanvas(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                        ImageSize size)
{
    VectorDrawing drawing(size.Width, size.Height, true);
    RecordPicture(canvas, notes, scale, parts, drawing);
    return PdfOf(drawing, DeflatePixels(canvas.CanvasSurface), canvas.CanvasWidth * scale,
                 canvas.CanvasHeight * scale, IsSmooth(canvas));
}

}
