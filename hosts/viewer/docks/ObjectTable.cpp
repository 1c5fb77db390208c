#include "docks/ObjectTable.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace vostel::viewer {

void ObjectTable::SetCanvas(CanvasModel* canvas)
{
    Updating = true;
    beginResetModel();
    Model = canvas;
    Rows.clear();
    Changed.clear();
    ForgetAll();
    if (Model)
        Rows = Order();
    endResetModel();
    Updating = AllChanged = false;
}

void ObjectTable::Update()
{
    if (!Model)
        return;
    Updating = true;
    if (AllChanged)
        ForgetAll();
    for (const VostelObject object : Changed)
        Forget(object);
    Take(Order());
    TellChanges();
    Changed.clear();
    Updating = AllChanged = false;
}

// What stands between rows that stay at both ends comes or goes; anything else is another order.
void ObjectTable::Take(std::vector<VostelObject> order)
{
    const auto head = std::mismatch(Rows.begin(), Rows.end(), order.begin(), order.end());
    if (head.first == Rows.end() && head.second == order.end())
        return;
    const int  first = static_cast<int>(head.first - Rows.begin());
    const auto tail = std::mismatch(Rows.rbegin(), std::make_reverse_iterator(head.first), order.rbegin(),
                                    std::make_reverse_iterator(head.second));
    const int  gone = static_cast<int>(tail.first.base() - head.first);
    const int  come = static_cast<int>(tail.second.base() - head.second);
    if (gone == 0) {
        beginInsertRows(QModelIndex(), first, first + come - 1);
        Rows = std::move(order);
        endInsertRows();
    } else if (come == 0) {
        beginRemoveRows(QModelIndex(), first, first + gone - 1);
        Rows = std::move(order);
        endRemoveRows();
    } else {
        Q_EMIT                                layoutAboutToBeChanged();
        std::unordered_map<VostelObject, int> places;
        for (std::size_t row = 0; row < order.size(); ++row)
            places.emplace(order[row], static_cast<int>(row));
        const QModelIndexList before = persistentIndexList();
        QModelIndexList       after;
        for (const QModelIndex& index : before) {
            const auto place = places.find(Rows[static_cast<std::size_t>(index.row())]);
            after.append(place == places.end() ? QModelIndex() : this->index(place->second, index.column()));
        }
        Rows = std::move(order);
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged();
    }
}

void ObjectTable::TellChanges()
{
    constexpr std::size_t Few = 16;
    const int             last = columnCount() - 1;
    if (Rows.empty() || (!AllChanged && Changed.empty()))
        return;
    if (AllChanged || Changed.size() > Few) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, last));
        return;
    }
    for (const VostelObject object : Changed)
        if (const int row = RowOf(object); row >= 0)
            Q_EMIT dataChanged(index(row, 0), index(row, last));
}

Object ObjectTable::At(int row) const
{
    if (!Model || row < 0 || row >= rowCount())
        return {};
    return Object(Model->Open().number(), Rows[static_cast<std::size_t>(row)]);
}

std::vector<Object> ObjectTable::At(const QModelIndexList& rows) const
{
    std::vector<Object> objects;
    objects.reserve(static_cast<std::size_t>(rows.size()));
    for (const QModelIndex& index : rows)
        objects.push_back(At(index.row()));
    return objects;
}

int ObjectTable::RowOf(VostelObject object) const
{
    const auto found = std::find(Rows.begin(), Rows.end(), object);
    return found == Rows.end() ? -1 : static_cast<int>(found - Rows.begin());
}

QItemSelection ObjectTable::RowsOf(const std::vector<Object>& objects) const
{
    std::unordered_set<VostelObject> wanted;
    for (const Object& object : objects)
        wanted.insert(object.id());
    QItemSelection selection;
    const int      last = columnCount() - 1;
    for (std::size_t row = 0; row < Rows.size() && !wanted.empty(); ++row) {
        const std::size_t first = row;
        while (row < Rows.size() && wanted.erase(Rows[row]) != 0)
            ++row;
        if (row > first)
            selection.append(QItemSelectionRange(index(static_cast<int>(first), 0),
                                                 index(static_cast<int>(row) - 1, last)));
    }
    return selection;
}

int ObjectTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Rows.size());
}

}
