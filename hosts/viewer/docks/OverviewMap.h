#pragma once

#include "canvas/CanvasModel.h"

#include <QImage>
#include <QWidget>

#include <optional>

namespace vostel::viewer {

// The picture of the overview. A drag of its frame moves the view, a click centres it, the wheel zooms.
class OverviewMap : public QWidget {
    Q_OBJECT

public:
    explicit OverviewMap(QWidget* parent = nullptr);

    void SetCanvas(CanvasModel* canvas);
    void DrawPicture();    // anew

    QPointF PlaceOf(Point image) const;    // layout px of the widget
    QRectF  FramePlace() const;            // of the visible part, held within the widget

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRectF  Place() const;      // of the picture, layout px
    QRectF  Visible() const;    // image px
    void    Centre(QPointF image);
    QPointF ImageAt(QPointF place) const;

    CanvasModel*           Model = nullptr;
    QSize                  Size;    // of the image
    QImage                 Picture;
    std::optional<QPointF> Grip;    // from the centre of the frame to the pointer, image px
};

}
