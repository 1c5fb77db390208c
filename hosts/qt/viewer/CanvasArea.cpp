#include "CanvasArea.h"

#include <QPainter>

CanvasArea::CanvasArea(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (int number = 0; number < Count; ++number) {
        auto* const tile = new CanvasTile(number, this);
        Tiles[static_cast<std::size_t>(number)] = tile;
        connect(tile->Canvas(), &VostelWidget::activated, this, [this, number] { SetCurrent(number); });
    }
    setFocusProxy(Tiles[0]->Canvas());
    Arrange();
}

void CanvasArea::SetCurrent(int number)
{
    if (number < 0 || number >= Count || number == Number)
        return;
    Number = number;
    Arrange();
    setFocusProxy(Current().Canvas());
    Current().Canvas()->setFocus();
    Q_EMIT currentChanged(number);
}

void CanvasArea::SetTiled(bool tiled)
{
    Tiled = tiled;
    Arrange();
    Current().Canvas()->setFocus();
}

int CanvasArea::NumberAt(QPoint position) const
{
    for (int number = 0; number < Count; ++number)
        if (Tile(number).isVisible() && Tile(number).geometry().contains(position))
            return number;
    return Number;
}

void CanvasArea::resizeEvent(QResizeEvent*)
{
    Arrange();
}

// Three above two, each row as wide as the area.
void CanvasArea::Arrange()
{
    constexpr int gap = 4, above = 3;
    for (int number = 0; number < Count; ++number) {
        CanvasTile& tile = Tile(number);
        tile.SetCurrent(number == Number);
        tile.ShowCaption(Tiled);
        if (!Tiled) {
            if (number == Number)
                tile.setGeometry(rect());
            tile.setVisible(number == Number);
            continue;
        }
        const bool upper = number < above;
        const int  columns = upper ? above : Count - above;
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
