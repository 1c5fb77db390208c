#pragma once

#include <QColor>
#include <QLatin1String>

class QPainter;

namespace vostel::viewer {

inline constexpr double IconSide = 24.0;    // units of the drawings

struct IconInks {
    QColor Line;       // the painter's pen has it already
    QColor Fill;       // what the picture is about
    QColor Warning;    // what takes away
};

using IconDrawing = void (*)(QPainter& painter, const IconInks& inks);

// Null for a name without a drawing.
IconDrawing FindIconDrawing(QLatin1String name);

}
