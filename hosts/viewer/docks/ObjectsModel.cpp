#include "docks/ObjectsModel.h"

#include "docks/KindNames.h"

#include <QColor>
#include <QFont>
#include <QIODevice>
#include <QMimeData>

#include <algorithm>

namespace vostel::viewer {

namespace {

const QString RowsType = QStringLiteral("application/x-vostel-object-rows");

}

const ObjectsModel::Entry* ObjectsModel::EntryOf(int row) const
{
    constexpr std::size_t Most = 4096;    // entries that are remembered
    const Object          object = At(row);
    const auto            known = Known.find(object.id());
    if (known != Known.end())
        return &known->second;
    if (Known.size() >= Most)
        Known.clear();
    try {
        const ObjectInfo info = object.info();
        return &(Known[object.id()] = {object.name(), info.kind, info.flags, info.label, object.style()});
    } catch (const Error&) {
        return nullptr;
    }
}

std::vector<VostelObject> ObjectsModel::Order()
{
    const std::vector<Object> all = Shown()->Open().object_list();
    std::vector<VostelObject> rows(all.size());
    std::transform(all.rbegin(), all.rend(), rows.begin(), [](const Object& object) { return object.id(); });
    return rows;
}

int ObjectsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant ObjectsModel::data(const QModelIndex& index, int role) const
{
    const Entry* const entry = index.isValid() ? EntryOf(index.row()) : nullptr;
    if (!entry)
        return {};
    const bool visible = (entry->Flags & VOSTEL_HIDDEN) == 0;
    const bool locked = (entry->Flags & VOSTEL_LOCKED) != 0;
    const auto line = QColor::fromRgb(static_cast<QRgb>(entry->Look.line_color));
    const auto text = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    switch (index.column()) {
    case Name:
        if (text)
            return NameOrNumber(entry->Name, At(index.row()).id());
        if (role == Qt::EditRole)
            return QString::fromStdString(entry->Name);
        if (role == Qt::FontRole && entry->Name.empty()) {
            QFont font;
            font.setItalic(true);
            return font;
        }
        break;
    case Kind:
        if (text)
            return KindName(entry->Kind, entry->Flags);
        break;
    case Label:
        if ((text || role == Qt::EditRole) && entry->Label > 0)
            return entry->Label;
        break;
    case Colour:
        if (role == Qt::DecorationRole)
            return line;
        if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
            return line.name();
        break;
    case Visible:
        if (role == Qt::CheckStateRole)
            return visible ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
            return visible ? tr("shown") : tr("hidden");
        break;
    case Locked:
        if (role == Qt::CheckStateRole)
            return locked ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
            return locked ? tr("locked") : tr("not locked");
        break;
    default:
        break;
    }
    return {};
}

bool ObjectsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const bool edited = role == Qt::EditRole && (index.column() == Name || index.column() == Label);
    const bool checked =
        role == Qt::CheckStateRole && (index.column() == Visible || index.column() == Locked);
    if (!index.isValid() || (!edited && !checked) || data(index, role) == value)
        return false;
    Q_EMIT changeWanted(At(index.row()), index.column(), value);
    return true;
}

QVariant ObjectsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Name");
    case Kind:
        return tr("Kind");
    case Label:
        return tr("Label");
    case Colour:
        return tr("Color");
    case Visible:
        return tr("Shown");
    case Locked:
        return tr("Locked");
    default:
        return {};
    }
}

Qt::ItemFlags ObjectsModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;    // between rows
    Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    const Entry* const entry = EntryOf(index.row());
    if (index.column() == Name || (index.column() == Label && entry && IsRegion(entry->Kind)))
        flags |= Qt::ItemIsEditable;
    if (index.column() == Visible || index.column() == Locked)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QStringList ObjectsModel::mimeTypes() const
{
    return {RowsType};
}

QMimeData* ObjectsModel::mimeData(const QModelIndexList& indexes) const
{
    QByteArray bytes;
    for (const QModelIndex& index : indexes)
        if (index.column() == Name)
            bytes += QByteArray::number(At(index.row()).id()) + '\n';
    auto* const data = new QMimeData;
    data->setData(RowsType, bytes);
    return data;
}

bool ObjectsModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                                   const QModelIndex& parent) const
{
    return action == Qt::MoveAction && !parent.isValid() && data->hasFormat(RowsType);
}

bool ObjectsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                const QModelIndex& parent)
{
    if (!Shown() || !canDropMimeData(data, action, row, column, parent))
        return false;
    std::vector<Object> objects;
    for (const QByteArray& id : data->data(RowsType).split('\n'))
        if (!id.isEmpty())
            objects.emplace_back(Shown()->Open().number(), id.toULongLong());
    return PutBefore(objects, row < 0 ? rowCount() : row);
}

// All go to the top, in their order, and from there to their place: two moves each, however many others lie
// between.
bool ObjectsModel::PutBefore(const std::vector<Object>& objects, int row)
{
    std::unordered_set<VostelObject> wanted;
    for (const Object& object : objects)
        wanted.insert(object.id());
    std::vector<VostelObject> moved, others;    // from the topmost
    std::size_t               place = 0;        // among the others
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        if (static_cast<int>(i) == row)
            place = others.size();
        (wanted.count(Rows[i]) != 0 ? moved : others).push_back(Rows[i]);
    }
    if (row >= rowCount())
        place = others.size();
    std::vector<VostelObject> order = others;
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), moved.begin(), moved.end());
    if (order == Rows)
        return false;
    const std::size_t top = Rows.size() - 1;
    const std::size_t bottom = others.size() - place;    // index of the lowest of the moved ones
    return Shown()->Try([&](Canvas& canvas) {
        const Step one = canvas.step("Change order");
        for (auto id = moved.rbegin(); id != moved.rend(); ++id)
            Object(canvas.number(), *id).move_to(top);
        for (std::size_t i = 0; i < moved.size(); ++i)
            Object(canvas.number(), moved[moved.size() - 1 - i]).move_to(bottom + i);
    });
}

}
