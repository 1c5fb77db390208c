#pragma once

#include <QImage>

#include <string>
#include <vector>

namespace vostel::viewer {

// The names of the color maps.
std::vector<std::string> MapNames();

// The shades of a color map from the lower end of the window to the upper, as one row of 256 px.
QImage ShadesOf(const std::string& map, double gamma = 1.0);

}
