#pragma once

#include "CanvasTile.h"
#include "commands/Commands.h"

#include <QWidget>

#include <array>

namespace vostel::viewer {

class ViewerSession;

// The canvases of a session: the current one alone, or all side by side, on a dark background.
class CanvasArea : public QWidget {
    Q_OBJECT

public:
    CanvasArea(const ViewerSession& session, QWidget* parent);

    CanvasTile&   Tile(int number) const { return *Tiles[static_cast<std::size_t>(number)]; }
    CanvasTile&   Current() const;
    VostelWidget& Canvas() const { return *Current().Canvas(); }

    void Arrange();                          // as the session says; the current canvas gets the focus
    int  NumberAt(QPoint position) const;    // the current one where there is no tile

    QSize sizeHint() const override { return QSize(960, 640); }
    QSize minimumSizeHint() const override { return QSize(360, 240); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void PlaceTiles();

    const ViewerSession&                 Session;
    std::array<CanvasTile*, CanvasCount> Tiles = {};
};

}
