#include "commands/Commands.h"

namespace vostel::viewer {

std::span<const char* const> GestureHelp()
{
    static const char* const lines[] = {
        Words("See"),
        Words("Control + wheel\tzoom in and out"),
        Words("Control + drag\tmove the image"),
        Words("Drag the contrast slider\tset the darkest and the lightest value"),
        Words("Draw: choose a shape in the menu, then"),
        Words("Shift + drag\trectangle, length, profile, free region, free stroke"),
        Words("Shift + click\ta corner of a polygon, a point of a spline, an angle"),
        Words("Press without Shift\tends the shape"),
        Words("Change"),
        Words("Click\tselect the object under the cursor"),
        Words("Drag inside\tmove the object"),
        Words("Drag a handle\tmove one point of it"),
        Words("A, D\ta wider, a narrower pen for the selected free stroke"),
        Words("Delete\tdelete the selected object"),
        Words("Control + Delete\tdelete all objects"),
        Words("E\tturn all rectangles into ellipses, and back"),
        Words("Tab\tswitch the contrast slider off and on"),
        Words("X\tbring the contrast slider back into sight"),
        Words("Esc\tstop a routine that is under way"),
        Words("After Draw, Keys for all objects"),
        Words("C\tdelete all objects"),
        Words("R\tdelete the selected object"),
        Words("I\tmove all texts, profiles and rectangles by numbers to one place"),
        Words("T\tlike I, and give all texts the same words"),
    };
    return lines;
}

}
