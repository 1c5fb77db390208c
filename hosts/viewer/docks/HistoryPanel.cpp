#include "docks/HistoryPanel.h"

#include "docks/StepList.h"

#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QVBoxLayout>

namespace vostel::viewer {

HistoryPanel::HistoryPanel(QWidget* parent) : CanvasPanel(parent), List(new QListView), Memory(new QLabel)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(List, 1);
    rows->addWidget(Memory);
    List->setObjectName(QStringLiteral("history"));
    List->setAccessibleName(tr("Steps that can be taken back and brought again"));
    List->setUniformItemSizes(true);
    List->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Memory->setObjectName(QStringLiteral("historyMemory"));
    Memory->setWordWrap(true);
    const auto go = [this](const QModelIndex& index) {
        if (Shown() && index.isValid())
            StepList::Of(*Shown()).GoTo(index.row());
    };
    connect(List, &QListView::clicked, this, go);
    connect(List, &QListView::activated, this, go);
    Refresh();
}

void HistoryPanel::Attach(CanvasModel* canvas)
{
    List->setModel(nullptr);
    if (!canvas)
        return;
    List->setModel(&StepList::Of(*canvas));
    connect(canvas, &CanvasModel::historyChanged, this, &HistoryPanel::Later);
}

void HistoryPanel::Refresh()
{
    if (!Shown()) {
        Memory->setText(tr("No canvas"));
        return;
    }
    const StepList&   steps = StepList::Of(*Shown());
    const QModelIndex current = steps.index(steps.Current(), 0);
    List->setCurrentIndex(current);
    List->scrollTo(current);
    const HistoryInfo info = Shown()->Open().history_info();
    const int         count = steps.rowCount() - 1;
    const QLocale     locale;
    const auto        size = [&](std::uint64_t bytes) {
        return locale.formattedDataSize(static_cast<qint64>(bytes), 1);
    };
    Memory->setText((count == 1 ? tr("1 step, %1 of %2") : tr("%3 steps, %1 of %2"))
                        .arg(size(info.bytes), size(info.limit))
                        .replace(QStringLiteral("%3"), QString::number(count)));
}

}
