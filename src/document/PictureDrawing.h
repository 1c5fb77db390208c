#pragma once

#include "canvas/PixelSurface.h"

namespace vostel {

class Document;
class VectorDrawing;
class VostelImage;

// What a picture shows beside the image.
struct PictureParts {
    bool Objects = true;
    bool Captions = true;    // of objects
    bool Handles = false;    // and which objects are selected
};

// Draws the whole image with its objects over all of the picture's surface. The canvas's view, area and
// objects stay as they are: copies of the objects are drawn. What has its place in the area and not on the
// image is left out: panels, and plots of profiles. Scale is that of the view, px per image px.
void DrawPicture(VostelImage& canvas, double scale, const PictureParts& parts, PixelSurface& picture);

// Records the objects that DrawPicture draws on a picture of the drawing's size, a group with its name for
// each. The image is the canvas's surface as it then stands.
void RecordPicture(VostelImage& canvas, const Document& notes, double scale, const PictureParts& parts,
                   VectorDrawing& drawing);

}
