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
    constexpr int gap = 4, above = 3;
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
        const bool upper = number < above;
        const int  columns = upper ? above : CanvasCount - above;
        const int  column = upper ? number : number - above;
        const int  left = gap + (width() - gap) * column / columns;
        const int  right = gap + (width() - gap) * (column + 1) / columns;
        const int  middle = gap + (height() - gap) / 2;
        tile.setGeometry(left, upper ? gap : middle, right - left - gap,
                         (upper ? middle : height()) - (upper ? gap : middle) - gap);
        tile.setVisible(true);
    }
}

void CanvasArea::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(0x26, 0x29, 0x2e));
}

}
