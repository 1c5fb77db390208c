#include "docks/MeasuresModel.h"

#include "docks/KindNames.h"

#include <QElapsedTimer>

#include <algorithm>

namespace vostel::viewer {

const MeasuresModel::Entry* MeasuresModel::EntryOf(VostelObject id) const
{
    const auto known = Known.find(id);
    if (known != Known.end())
        return &known->second;
    try {
        const Object     object(Shown()->Open().number(), id);
        const ObjectInfo info = object.info();
        return &(Known[id] = {object.name(), info.kind, info.flags, info.label, object.measure()});
    } catch (const Error&) {
        return nullptr;
    }
}

void MeasuresModel::Forget(VostelObject object)
{
    Known.erase(object);
    FirstUnknown = 0;
}

void MeasuresModel::ForgetAll()
{
    Known.clear();
    FirstUnknown = 0;
}

void MeasuresModel::Choose(std::vector<int> columns)
{
    beginResetModel();
    Columns = std::move(columns);
    endResetModel();
}

void MeasuresModel::SetUnit(const QString& unit)
{
    Unit = unit;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

bool MeasuresModel::MeasureFor(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (FirstUnknown < Rows.size()) {
        EntryOf(Rows[FirstUnknown++]);
        if (time.elapsed() >= milliseconds)
            return FirstUnknown == Rows.size();
    }
    return true;
}

std::optional<double> MeasuresModel::Value(int row, int column) const
{
    const Object         object = At(row);
    const Entry* const   entry = EntryOf(object.id());
    const int            which = Columns[static_cast<std::size_t>(column)];
    const MeasureColumn& shown = MeasureColumns()[static_cast<std::size_t>(which)];
    if (!entry)
        return std::nullopt;
    if (which == ObjectNumber)
        return static_cast<double>(object.id());
    if (which == ObjectLabel)
        return entry->Label > 0 ? std::optional<double>(entry->Label) : std::nullopt;
    if (!shown.IsMeasured() || (entry->Values.valid & shown.Valid) == 0)
        return std::nullopt;
    return shown.Value(entry->Values);
}

QString MeasuresModel::Text(int row, int column, QString (*number)(double)) const
{
    const int which = Columns[static_cast<std::size_t>(column)];
    if (which == ObjectName || which == ObjectKind) {
        const Entry* const entry = EntryOf(At(row).id());
        if (!entry)
            return QString();
        return which == ObjectName ? QString::fromStdString(entry->Name)
                                   : KindName(entry->Kind, entry->Flags);
    }
    const std::optional<double> value = Value(row, column);
    return value ? number(*value) : QString();
}

QString MeasuresModel::Table(const std::vector<int>& rows, QChar separator) const
{
    const auto cell = [&](QString text) {
        if (text.contains(separator) || text.contains(QLatin1Char('"')) || text.contains(QLatin1Char('\n')))
            text =
                QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
        return text;
    };
    QStringList lines, cells;
    for (int column = 0; column < columnCount(); ++column)
        cells << cell(headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    lines << cells.join(separator);
    for (const int row : rows) {
        cells.clear();
        for (int column = 0; column < columnCount(); ++column)
            cells << cell(Text(row, column, ExactNumber));
        lines << cells.join(separator);
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

int MeasuresModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Columns.size());
}

QVariant MeasuresModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !Shown())
        return {};
    const int  which = Columns[static_cast<std::size_t>(index.column())];
    const bool isText = which == ObjectName || which == ObjectKind;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        if (which == ObjectName)
            return NameOrNumber(Text(index.row(), index.column(), ShownNumber).toStdString(),
                                At(index.row()).id());
        return Text(index.row(), index.column(), ShownNumber);
    case Qt::ToolTipRole:
        return Text(index.row(), index.column(), ExactNumber);
    case Qt::TextAlignmentRole:
        return static_cast<int>((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant MeasuresModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return TitleOf(MeasureColumns()[static_cast<std::size_t>(Columns[static_cast<std::size_t>(section)])],
                       Unit);
    const int which = Columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole && which != ObjectName && which != ObjectKind)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

void MeasuresModel::sort(int column, Qt::SortOrder order)
{
    SortedBy = column < 0 || column >= columnCount() ? -1 : Columns[static_cast<std::size_t>(column)];
    Direction = order;
    Update();
}

// Sorted when all is measured and nothing moves. Until then known rows keep their places and new ones follow.
std::vector<VostelObject> MeasuresModel::Order()
{
    std::vector<VostelObject> rows;
    for (const Object& object : Shown()->Open().object_list())
        rows.push_back(object.id());
    if (SortedBy < 0)
        return rows;
    const bool known =
        std::all_of(rows.begin(), rows.end(), [&](VostelObject object) { return Known.count(object) != 0; });
    if (known && !Holding) {
        Sort(rows);
        return rows;
    }
    std::unordered_set<VostelObject> left(rows.begin(), rows.end());
    std::vector<VostelObject>        kept;
    for (const VostelObject object : Rows)
        if (left.erase(object) != 0)
            kept.push_back(object);
    for (const VostelObject object : rows)
        if (left.count(object) != 0)
            kept.push_back(object);
    return kept;
}

// Equal ones stay in drawing order, and those without a value come last.
void MeasuresModel::Sort(std::vector<VostelObject>& rows) const
{
    const MeasureColumn& column = MeasureColumns()[static_cast<std::size_t>(SortedBy)];
    const bool           up = Direction == Qt::AscendingOrder;
    if (SortedBy == ObjectName || SortedBy == ObjectKind) {
        std::vector<std::pair<QString, VostelObject>> keys;
        for (const VostelObject object : rows) {
            const Entry& entry = Known.at(object);
            keys.emplace_back(SortedBy == ObjectKind ? KindName(entry.Kind, entry.Flags)
                                                     : NameOrNumber(entry.Name, object),
                              object);
        }
        std::stable_sort(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
            const int order = QString::localeAwareCompare(a.first, b.first);
            return up ? order < 0 : order > 0;
        });
        std::transform(keys.begin(), keys.end(), rows.begin(), [](const auto& key) { return key.second; });
        return;
    }
    std::vector<std::pair<std::optional<double>, VostelObject>> keys;
    for (const VostelObject object : rows) {
        const Entry&          entry = Known.at(object);
        std::optional<double> key;
        if (SortedBy == ObjectNumber)
            key = static_cast<double>(object);
        else if (SortedBy == ObjectLabel)
            key = entry.Label > 0 ? std::optional<double>(entry.Label) : std::nullopt;
        else if ((entry.Values.valid & column.Valid) != 0)
            key = column.Value(entry.Values);
        keys.emplace_back(key, object);
    }
    std::stable_sort(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
        if (!a.first || !b.first)
            return a.first.has_value() && !b.first.has_value();
        return up ? a.first.value() < b.first.value() : b.first.value() < a.first.value();
    });
    std::transform(keys.begin(), keys.end(), rows.begin(), [](const auto& key) { return key.second; });
}

}
