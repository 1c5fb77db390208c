#pragma once

#include <QString>

namespace vostel::viewer {

// Order of names in which numbers count by their value, 2 before 10, whatever the locale: the toolkit's own
// comparison leaves the numbers alone in some.
bool NaturallyBefore(const QString& a, const QString& b);

}
