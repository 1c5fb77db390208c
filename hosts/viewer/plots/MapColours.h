#pragma once

#include <QImage>
#include <QString>

#include <string>
#include <vector>

namespace vostel::viewer {

// The names of the color maps.
std::vector<std::string> MapNames();

// What a person reads of a name.
QString MapText(const std::string& map);

// The shades of a color map from the lower end of the window to the upper, as one row of 256 px.
QImage ShadesOf(const std::string& map, double gamma = 1.0);

}
