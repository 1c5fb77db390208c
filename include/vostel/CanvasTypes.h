#pragma once

// Enumerations of the canvas interface. They cross the boundary as 32-bit values.

// What mouse gestures may do to the view.
enum DisplayMode : int {
    DisplayFixed = 0,         // neither pan nor zoom
    DisplayZoomCentre = 1,    // Control+drag pans, Control+wheel zooms about the image's centre
    DisplayZoomCursor = 2     // Control+drag pans, Control+wheel zooms about the cursor
};

// What a canvas shows.
enum FileType : int {
    FileTypeNone = 0,        // nothing to save or read back
    FileTypeByte = 1,        // the image exists only as pixels of the canvas surface
    FileTypeRawPlain = 2,    // set by hosts only: read-back as for FileTypeRaw, no contrast changes
    FileTypeRaw = 3          // float data shown through the contrast window
};

// Text styles of text boxes.
enum FontType : int {
    FontPlain18 = 0,        // black, 18 px
    FontPlain24 = 1,        // black, 24 px, no outline
    FontRed22 = 2,          // red, 22 px, no outline
    FontRed22Framed = 3,    // red, 22 px, on a white box that covers its outline
    FontCustom = 4          // colour, height and background mode of the call
};
