#include "docks/StepList.h"

#include "canvas/StepNames.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <algorithm>

namespace vostel::viewer {

StepList& StepList::Of(CanvasModel& canvas)
{
    StepList* list = canvas.findChild<StepList*>(QString(), Qt::FindDirectChildrenOnly);
    if (!list)
        list = new StepList(canvas);
    return *list;
}

StepList::StepList(CanvasModel& canvas) : QAbstractListModel(&canvas), Canvas(canvas)
{
    connect(&canvas, &CanvasModel::historyChanged, this, &StepList::Follow);
    Follow();
}

// Without steps to bring again and with no more than before to take back, a step came and the oldest went.
void StepList::Follow()
{
    const HistoryInfo info = Canvas.Open().history_info();
    const int         undo = static_cast<int>(info.undo_count), redo = static_cast<int>(info.redo_count);
    const int         count = undo + redo;
    const int         before = static_cast<int>(Names.size());
    if (redo == 0 && undo > 0 && undo <= Done && Done == before)
        Names.erase(Names.begin(), Names.begin() + std::min(before, Done + 1 - undo));
    beginResetModel();
    Names.resize(static_cast<std::size_t>(count));
    if (const auto name = Canvas.Open().history_name(-1); name && undo > 0)
        Names[static_cast<std::size_t>(undo - 1)] = *name;
    if (const auto name = Canvas.Open().history_name(1); name && redo > 0)
        Names[static_cast<std::size_t>(undo)] = *name;
    Done = undo;
    endResetModel();
}

bool StepList::GoTo(int row)
{
    return Canvas.Try([&](vostel::Canvas& canvas) {
        while (Done > row && canvas.undo()) {
        }
        while (Done < row && canvas.redo()) {
        }
    });
}

int StepList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Names.size()) + 1;
}

QVariant StepList::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int row = index.row();
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
        if (row == 0)
            return tr("Before all steps");
        const std::string& name = Names[static_cast<std::size_t>(row - 1)];
        return name.empty() ? tr("Step %1").arg(row) : StepName(name);
    }
    if (role == Qt::FontRole && row == Done) {
        QFont font;
        font.setBold(true);
        return font;
    }
    if (role == Qt::ForegroundRole && row > Done)
        return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    return {};
}

}
