#pragma once

class QPainter;

namespace vostel::widget {

// Puts the frame that a canvas composed last at the painter's origin, one device pixel for one of the canvas.
//
// The frame is taken from the client surface itself. Its rows run bottom-up and its fourth byte is 0, both
// unlike a QImage: on an opaque device each row is drawn where it belongs, which costs one copy of the
// pixels; on others, which would take the fourth byte for full transparency, they are turned over into an
// image first.
void PaintFrame(QPainter& painter, int canvas, double devicePixelRatio);

}
