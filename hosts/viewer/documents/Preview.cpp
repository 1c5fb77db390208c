#include "documents/Preview.h"

#include <QImageReader>

#include <algorithm>

namespace vostel::viewer {

QImage PreviewOf(const QString& file, QSize room)
{
    QImageReader reader(file);
    const QSize  whole = reader.size();
    // Of the formats that have the option only this one decodes less for less.
    if (reader.format() != "jpeg" || whole.isEmpty() || room.isEmpty())
        return {};
    reader.setAutoTransform(true);
    const int fraction =
        std::clamp(std::min(whole.width() / room.width(), whole.height() / room.height()), 1, 8);
    reader.setScaledSize(whole / fraction);
    reader.setQuality(0);    // the quick transform
    return reader.read();
}

}
