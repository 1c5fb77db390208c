#pragma once

#include <QVariantMap>
#include <vostel.hpp>

#include <optional>

class QWidget;

namespace vostel::viewer {

// How data without a header lie in a file: slices of one layout, with the same number of bytes between them.
struct RawVolume {
    RawLayout Layout = {};
    int       Slices = 1;
    qint64    Gap = 0;    // bytes from the end of a slice to the next one

    qint64    SliceBytes() const;
    qint64    Bytes() const;    // up to the end of the last slice
    RawLayout LayoutOf(int slice) const;
};

bool IsColor(VostelPixel type);    // of several values a pixel
// Bytes of a pixel; 0 for other numbers.
int BytesOfPixel(VostelPixel type);

// For settings and files.
QVariantMap              ToMap(const RawVolume& volume);
std::optional<RawVolume> RawVolumeOf(const QVariantMap& map);

// Asks for the layout of a file, at first the one of the last file of its folder; nothing when cancelled.
std::optional<RawVolume> AskRawLayout(const QString& path, QWidget* parent);

}
