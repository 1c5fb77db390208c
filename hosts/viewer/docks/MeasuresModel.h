#pragma once

#include "docks/MeasureColumns.h"
#include "docks/ObjectTable.h"

#include <unordered_map>

namespace vostel::viewer {

// The objects with their measures, each measured when it is first asked for or when there is time.
class MeasuresModel : public ObjectTable {
    Q_OBJECT

public:
    using ObjectTable::ObjectTable;

    const std::vector<int>& Chosen() const { return Columns; }    // of MeasureColumns()
    void                    Choose(std::vector<int> columns);
    void                    SetUnit(const QString& unit);

    bool MeasureFor(int milliseconds);                      // true when all are measured
    void SetHolding(bool holding) { Holding = holding; }    // rows keep their places, while something moves

    std::optional<double> Value(int row, int column) const;    // nothing where it has no meaning
    QString               Text(int row, int column, QString (*number)(double)) const;
    QString               Table(const std::vector<int>& rows, QChar separator) const;    // with titles

    int      columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void     sort(int column, Qt::SortOrder order) override;    // -1: drawing order

protected:
    std::vector<VostelObject> Order() override;
    void                      Forget(VostelObject object) override;
    void                      ForgetAll() override;

private:
    struct Entry {
        std::string   Name;
        VostelKind    Kind = 0;
        std::uint32_t Flags = 0;
        std::int32_t  Label = 0;
        Measures      Values = {};
    };

    const Entry* EntryOf(VostelObject object) const;    // null for an object that has gone
    void         Sort(std::vector<VostelObject>& rows) const;

    std::vector<int>                                Columns;
    QString                                         Unit = QStringLiteral("px");
    mutable std::unordered_map<VostelObject, Entry> Known;
    std::size_t                                     FirstUnknown = 0;    // rows before are measured
    int                                             SortedBy = -1;       // of MeasureColumns()
    Qt::SortOrder                                   Direction = Qt::AscendingOrder;
    bool                                            Holding = false;
};

}
