#pragma once

// Canvas state that the library has no getter for.

#include "commands/Routines.h"

#include <memory>
#include <vector>

namespace vostel::viewer {

// An image as a canvas showed it.
struct ImageBefore {
    FileType                  Type = FileTypeNone;
    ImagePointer              Data;      // of float data, as it came
    std::vector<unsigned int> Pixels;    // of a byte image: the canvas surface
    int                       Width = 0;
    int                       Height = 0;
};

struct CanvasState {    // starts as a fresh canvas of the library does
    Command                      Mouse = Command::MouseZoomCursor;
    bool                         Fast = true;
    bool                         Contrast = false;
    std::unique_ptr<ImageBefore> Undo;    // what the last routine worked on
};

CanvasState* StateOf(int canvas);    // null outside 0..4

// Brings the image of Undo back and forgets it; nothing happens without one.
void ShowImageBefore(int canvas);

}
