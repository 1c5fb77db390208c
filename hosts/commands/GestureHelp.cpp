#include "commands/Commands.h"

namespace vostel::viewer {

std::span<const char* const> GestureHelp()
{
    static const char* const lines[] = {
        QT_TRANSLATE_NOOP("Commands", "See"),
        QT_TRANSLATE_NOOP("Commands", "Control + wheel\tzoom in and out"),
        QT_TRANSLATE_NOOP("Commands", "Control + drag\tmove the image"),
        QT_TRANSLATE_NOOP("Commands", "Drag the contrast slider\tset the darkest and the lightest value"),
        QT_TRANSLATE_NOOP("Commands", "Draw: choose a shape in the menu, then"),
        QT_TRANSLATE_NOOP("Commands", "Shift + drag\trectangle, length, profile, free region, free stroke"),
        QT_TRANSLATE_NOOP("Commands", "Shift + click\ta corner of a polygon, a point of a spline, an angle"),
        QT_TRANSLATE_NOOP("Commands", "Press without Shift\tends the shape"),
        QT_TRANSLATE_NOOP("Commands", "Change"),
        QT_TRANSLATE_NOOP("Commands", "Click\tselect the object under the cursor"),
        QT_TRANSLATE_NOOP("Commands", "Drag inside\tmove the object"),
        QT_TRANSLATE_NOOP("Commands", "Drag a handle\tmove one point of it"),
        QT_TRANSLATE_NOOP("Commands", "A, D\ta wider, a narrower pen for the selected free stroke"),
        QT_TRANSLATE_NOOP("Commands", "R, Delete\tdelete the selected object"),
        QT_TRANSLATE_NOOP("Commands", "Control + Delete\tdelete all objects"),
        QT_TRANSLATE_NOOP("Commands", "E\tturn all rectangles into ellipses, and back"),
        QT_TRANSLATE_NOOP("Commands", "Tab\tswitch the contrast slider off and on"),
        QT_TRANSLATE_NOOP("Commands", "X\tbring the contrast slider back into sight"),
        QT_TRANSLATE_NOOP("Commands", "Esc\tstop a routine that is under way"),
        QT_TRANSLATE_NOOP("Commands", "After Draw, Keys for all objects"),
        QT_TRANSLATE_NOOP("Commands", "C\tdelete all objects"),
        QT_TRANSLATE_NOOP("Commands", "I\tmove all texts, profiles and rectangles by numbers to one place"),
        QT_TRANSLATE_NOOP("Commands", "T\tlike I, and give all texts the same words"),
    };
    return lines;
}

}
