#include "plots/MapColours.h"

#include <QCoreApplication>
#include <vostel.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>

namespace vostel::viewer {

namespace {

// The names that are words; the others are proper names.
[[maybe_unused]] constexpr const char* Words[] = {
    QT_TRANSLATE_NOOP("ColorMaps", "gray"), QT_TRANSLATE_NOOP("ColorMaps", "inverted"),
    QT_TRANSLATE_NOOP("ColorMaps", "fire"), QT_TRANSLATE_NOOP("ColorMaps", "ice")};

}

std::vector<std::string> MapNames()
{
    std::size_t length = 0;
    vostel_contrast_map_names(nullptr, 0, &length);
    std::string text(length + 1, '\0');
    vostel_contrast_map_names(text.data(), text.size(), nullptr);
    text.resize(length);
    std::vector<std::string> names;
    std::istringstream       lines(text);
    for (std::string line; std::getline(lines, line);)
        if (!line.empty())
            names.push_back(line);
    return names;
}

QString MapText(const std::string& map)
{
    return QCoreApplication::translate("ColorMaps", map.c_str());
}

// A canvas that shows all 256 values of a byte tells what they look like.
QImage ShadesOf(const std::string& map, double gamma)
{
    constexpr int                   Count = 256;
    std::array<std::uint8_t, Count> values = {};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<std::uint8_t>(i);
    QImage shades(Count, 1, QImage::Format_RGB32);
    Canvas canvas(Count, 1);
    canvas.image_show(VOSTEL_U8, values.data(), Count, 1);
    canvas.contrast_set(0.0, 255.0);
    canvas.contrast_gamma(gamma);
    canvas.contrast_map(map);
    canvas.picture_render_to(shades.bits(), Count, 1, 1.0, 0, shades.bytesPerLine());
    return shades;
}

}
