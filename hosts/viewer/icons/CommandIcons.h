#pragma once

#include <QIcon>
#include <QLatin1String>

namespace vostel::viewer {

// The icon of a command by its name; a null icon for other names. Drawn in code at the size that is
// asked for, in the colors of the palette, and so crisp on every screen.
QIcon CommandIcon(QLatin1String name);

}
