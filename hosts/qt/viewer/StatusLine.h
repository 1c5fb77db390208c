#pragma once

#include <QObject>
#include <QPointF>
#include <QSize>

class QLabel;
class QStatusBar;

namespace vostel::viewer {

// The permanent part of the status bar: position and value under the cursor, zoom, image size and file.
class StatusLine : public QObject {
    Q_OBJECT

public:
    explicit StatusLine(QStatusBar* bar);

    void ShowCursor(QPointF image, float value);
    void ShowNoCursor();
    void ShowZoom(double zoom);
    void ShowSize(QSize size);    // empty: no image
    void ShowFile(const QString& path, int canvas);

private:
    QLabel *Position, *Value, *Zoom, *Size, *File;
};

}
