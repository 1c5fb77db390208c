#pragma once

#include "Frames.h"

// Draws every kind of overlay object on the image that the canvas shows, with the gestures of a user, drags
// and zooms them, takes the label image, changes the contrast inside a region and saves in all six ways.
void RunDrawingSession(int canvas, Host& user, Frames& frames);
