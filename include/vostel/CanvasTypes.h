#pragma once

/// @file
/// Enumerations of the canvas calls. They cross the library's boundary as 32-bit values.

/// What mouse gestures may do to the view of a canvas.
enum DisplayMode : int {
    DisplayFixed = 0,         ///< neither pan nor zoom
    DisplayZoomCentre = 1,    ///< Control+drag pans, Control+wheel zooms about the image's center
    DisplayZoomCursor = 2     ///< Control+drag pans, Control+wheel zooms about the cursor; the default
};

/// What a canvas shows.
enum FileType : int {
    FileTypeNone = 0,        ///< nothing to save or read back; before any image and after a failed load
    FileTypeByte = 1,        ///< gray or color of 8 bits, which exists as pixels of the canvas surface only
    FileTypeRawPlain = 2,    ///< set by hosts only: values read back as for FileTypeRaw, contrast fixed
    FileTypeRaw = 3          ///< float data shown through the contrast window
};

/// Text styles of text boxes. Heights are in client pixels.
enum FontType : int {
    FontPlain18 = 0,        ///< black, 18 high, on a white box
    FontPlain24 = 1,        ///< black, 24 high, without an outline
    FontRed22 = 2,          ///< red, 22 high, without an outline
    FontRed22Framed = 3,    ///< red, 22 high, on a white box
    FontCustom = 4          ///< color, height and background mode as the call says, without an outline
};
