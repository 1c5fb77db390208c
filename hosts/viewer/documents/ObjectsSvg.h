#pragma once

#include <QByteArray>
#include <vostel.hpp>

#include <vector>

namespace vostel::viewer {

// Objects alone, without the image, as a drawing for other programs: px of the image, cut to their bounds.
// Panels are left out.
QByteArray SvgOf(const std::vector<Object>& objects);

}
