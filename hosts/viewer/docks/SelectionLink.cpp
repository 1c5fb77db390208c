#include "docks/SelectionLink.h"

#include <QAbstractItemView>

namespace vostel::viewer {

SelectionLink::SelectionLink(QAbstractItemView& view, ObjectTable& table)
    : QObject(&view), View(view), Table(table)
{
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, &SelectionLink::Give);
}

void SelectionLink::Take()
{
    CanvasModel* const   canvas = Table.Shown();
    const QItemSelection rows = canvas ? Table.RowsOf(canvas->Open().selection()) : QItemSelection();
    QItemSelectionModel& selection = *View.selectionModel();
    if (rows.isEmpty() && !selection.hasSelection())
        return;
    Taking = true;
    selection.select(rows, QItemSelectionModel::ClearAndSelect);
    if (!rows.isEmpty() && !selection.isRowSelected(selection.currentIndex().row())) {
        const QModelIndex first = rows.first().topLeft();
        selection.setCurrentIndex(first.siblingAtColumn(std::max(0, selection.currentIndex().column())),
                                  QItemSelectionModel::NoUpdate);
        View.scrollTo(first);
    }
    Taking = false;
}

void SelectionLink::Give()
{
    CanvasModel* const canvas = Table.Shown();
    if (Taking || Table.IsUpdating() || !canvas)
        return;
    try {
        canvas->Open().select(Table.At(View.selectionModel()->selectedRows()));
    } catch (const Error&) {
        return;    // an object has just gone, and the rows follow when the event loop turns
    }
}

}
