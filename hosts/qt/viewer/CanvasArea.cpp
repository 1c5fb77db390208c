#include "CanvasArea.h"

#include "commands/ViewerSession.h"

#include <QPainter>

namespace vostel::viewer {

CanvasArea::CanvasArea(const ViewerSession& session, QWidget* parent) : QWidget(parent), Session(session)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    int number = 0;
    for (CanvasTile*& tile : Tiles)
        tile = new CanvasTile(number++, this);
    setFocusProxy(&Canvas());
    PlaceTiles();
}

CanvasTile& CanvasArea::Current() const
{
    return Tile(Session.Current());
}

void CanvasArea::Arrange()
{
    PlaceTiles();
    setFocusProxy(&Canvas());
    Canvas().setFocus();
}

int CanvasArea::NumberAt(QPoint position) const
{
    for (int number = 0; number < CanvasCount; ++number)
        if (Tile(number).isVisible() && Tile(number).geometry().contains(position))
            return number;
    return Session.Current();
}

void CanvasArea::resizeEvent(QResizeEvent*)
{
    PlaceTiles();
}

// Three above two, each row as wide as the area.
void CanvasArea::PlaceTiles()
{
    constexpr int Gap = 4, Above = 3;
    for (int number = 0; number < CanvasCount; ++number) {
        CanvasTile& tile = Tile(number);
        const bool  isCurrent = number == Session.Current();
        tile.SetCurrent(isCurrent);
        tile.ShowCaption(Session.IsTiled());
        if (!Session.IsTiled()) {
            if (isCurrent)
                tile.setGeometry(rect());
            tile.setVisible(isCurrent);
            continue;
        }
        const bool upper = number < Above;
        const int  columns = upper ? Above : CanvasCount - Above;
        const int  column = upper ? number : number - Above;
        const int  left = Gap + (width() - Gap) * column / columns;
        const int  right = Gap + (width() - Gap) * (column + 1) / columns;
        const int  middle = Gap + (height() - Gap) / 2;
        tile.setGeometry(left, upper ? Gap : middle, right - left - Gap,
                         (upper ? middle : height()) - (upper ? Gap : middle) - Gap);
        tile.setVisible(true);
    }
}

void CanvasArea::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(0x26, 0x29, 0x2e));
}

}
