#pragma once

#include "docks/ObjectTable.h"

#include <unordered_map>

namespace vostel::viewer {

// The objects in drawing order, the topmost in the first row. What a row shows is read when it is shown.
class ObjectsModel : public ObjectTable {
    Q_OBJECT

public:
    enum Column { Name, Kind, Label, Colour, Visible, Locked, ColumnCount };

    using ObjectTable::ObjectTable;

    // Puts objects, as one step, before the row that stands there now; behind the last at rowCount().
    bool PutBefore(const std::vector<Object>& objects, int row);

    int             columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant        data(const QModelIndex& index, int role) const override;
    bool            setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant        headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags   flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList     mimeTypes() const override;
    QMimeData*      mimeData(const QModelIndexList& indexes) const override;
    bool            canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                    const QModelIndex& parent) const override;
    bool            dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                 const QModelIndex& parent) override;

Q_SIGNALS:
    void changeWanted(Object object, int column, const QVariant& value);

protected:
    std::vector<VostelObject> Order() override;
    void                      Forget(VostelObject object) override { Known.erase(object); }
    void                      ForgetAll() override { Known.clear(); }

private:
    struct Entry {
        std::string   Name;
        VostelKind    Kind = 0;
        std::uint32_t Flags = 0;
        std::int32_t  Label = 0;
        Style         Look = {};
    };

    const Entry* EntryOf(int row) const;    // null for an object that has gone

    mutable std::unordered_map<VostelObject, Entry> Known;
};

}
