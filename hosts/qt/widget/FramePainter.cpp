#include "FramePainter.h"

#include <VostelObj.h>

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

namespace vostel::widget {

namespace {

// A device that shows what the fourth byte hides. Other devices than images are taken for one.
bool IsOpaque(QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    const auto* const         image = engine ? dynamic_cast<const QImage*>(engine->paintDevice()) : nullptr;
    return image && image->format() == QImage::Format_RGB32;
}

void PaintRows(QPainter& painter, const unsigned int* pixels, int width, int height, double ratio)
{
    for (int y = 0; y < height; ++y) {
        const auto* row = reinterpret_cast<const uchar*>(pixels + static_cast<std::size_t>(height - 1 - y) *
                                                                      static_cast<std::size_t>(width));
        QImage      line(row, width, 1, width * 4, QImage::Format_RGB32);
        line.setDevicePixelRatio(ratio);
        painter.drawImage(QPointF(0.0, y / ratio), line);
    }
}

QImage TurnedOver(const unsigned int* pixels, int width, int height)
{
    QImage frame(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height && !frame.isNull(); ++y) {
        const unsigned int* row =
            pixels + static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width);
        auto* target = reinterpret_cast<unsigned int*>(frame.scanLine(y));
        for (int x = 0; x < width; ++x)
            target[x] = row[x] | 0xFF000000u;
    }
    return frame;
}

}

void PaintFrame(QPainter& painter, int canvas, double devicePixelRatio)
{
    GdiFlush();
    const unsigned int* const pixels = gCVSGetClientPixelPtr(canvas);
    const int                 width = gCVSGetClientWidth(canvas);
    const int                 height = gCVSGetClientHeight(canvas);
    if (!pixels || width < 1 || height < 1)
        return;
    if (IsOpaque(painter)) {
        PaintRows(painter, pixels, width, height, devicePixelRatio);
        return;
    }
    QImage frame = TurnedOver(pixels, width, height);
    frame.setDevicePixelRatio(devicePixelRatio);
    painter.drawImage(QPointF(0.0, 0.0), frame);
}

}
