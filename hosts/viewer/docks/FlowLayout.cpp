#include "docks/FlowLayout.h"

#include <algorithm>

namespace vostel::viewer {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(4);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item)
{
    Items.emplace_back(item);
}

int FlowLayout::count() const
{
    return static_cast<int>(Items.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? Items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* const taken = Items[static_cast<std::size_t>(index)].release();
    Items.erase(Items.begin() + index);
    return taken;
}

int FlowLayout::heightForWidth(int width) const
{
    return Arrange(QRect(0, 0, width, 0), false);
}

void FlowLayout::setGeometry(const QRect& place)
{
    QLayout::setGeometry(place);
    Arrange(place, true);
}

// About as wide as a dock is at first, in two rows.
QSize FlowLayout::sizeHint() const
{
    int width = 0;
    for (const auto& item : Items)
        width += item->sizeHint().width() + spacing();
    width = std::max(minimumSize().width(), width / 2);
    return QSize(width, heightForWidth(width));
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : Items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

int FlowLayout::Arrange(const QRect& place, bool really) const
{
    int         x = place.left(), y = place.top();
    std::size_t first = 0;
    while (first < Items.size()) {
        std::size_t last = first;
        int         row = 0;
        for (x = place.left(); last < Items.size(); ++last) {
            const QSize size = Items[last]->sizeHint();
            if (last > first && x + size.width() > place.left() + place.width())
                break;
            x += size.width() + spacing();
            row = std::max(row, size.height());
        }
        x = place.left();
        for (; first < last; ++first) {
            const QSize size = Items[first]->sizeHint();
            if (really)
                Items[first]->setGeometry(QRect(x, y, std::min(size.width(), place.width()), row));
            x += size.width() + spacing();
        }
        y += row + spacing();
    }
    return std::max(0, y - spacing() - place.top());
}

}
