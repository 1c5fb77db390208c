#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace vostel::viewer {

// A coarse copy of a picture, at least as large as room where the picture is, for the time until the whole is
// read. Null of formats that cannot be decoded at a fraction of their size, which would take as long as the
// whole. For any thread.
QImage PreviewOf(const QString& file, QSize room);

}
