#include "window/KeysDialog.h"

#include "window/CommandList.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vostel::viewer {

namespace {

constexpr int CommandRole = Qt::UserRole;

}

KeysDialog::KeysDialog(CommandList& commands, QWidget* parent)
    : QDialog(parent), Commands(commands), List(new QTreeWidget), Key(new QKeySequenceEdit)
{
    setWindowTitle(tr("Keys"));
    setObjectName(QStringLiteral("KeysDialog"));
    List->setObjectName(QStringLiteral("Commands"));
    List->setAccessibleName(tr("Commands and their keys"));
    List->setHeaderLabels({tr("Command"), tr("Key")});
    List->setRootIsDecorated(false);
    List->setUniformRowHeights(true);
    Key->setObjectName(QStringLiteral("Key"));
    Key->setAccessibleName(tr("Key of the chosen command"));
    auto* const set = new QPushButton(tr("Set"));
    set->setObjectName(QStringLiteral("Set"));
    auto* const none = new QPushButton(tr("No key"));
    auto* const first = new QPushButton(tr("All as at first"));

    auto* const row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Key:")));
    row->addWidget(Key, 1);
    row->addWidget(set);
    row->addWidget(none);
    row->addWidget(first);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(List, 1);
    rows->addLayout(row);
    rows->addWidget(new QLabel(tr("A key that another command has moves to the chosen one.")));
    rows->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 30);

    connect(List, &QTreeWidget::currentItemChanged, this, &KeysDialog::ShowKey);
    connect(set, &QPushButton::clicked, this, &KeysDialog::TakeKey);
    connect(none, &QPushButton::clicked, this, [this] {
        Key->clear();
        TakeKey();
    });
    connect(first, &QPushButton::clicked, this, [this] {
        Commands.ResetKeys();
        Fill();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Fill();
}

void KeysDialog::Fill()
{
    const int row = List->indexOfTopLevelItem(List->currentItem());
    List->clear();
    for (QAction* const action : Commands.All()) {
        auto* const item = new QTreeWidgetItem(
            List, {Commands.PathOf(*action), action->shortcut().toString(QKeySequence::NativeText)});
        item->setData(0, CommandRole, QVariant::fromValue(action));
        item->setToolTip(0, action->statusTip());
    }
    List->resizeColumnToContents(0);
    List->setCurrentItem(List->topLevelItem(std::max(row, 0)));
}

QAction* KeysDialog::Chosen() const
{
    const QTreeWidgetItem* const item = List->currentItem();
    return item ? item->data(0, CommandRole).value<QAction*>() : nullptr;
}

void KeysDialog::ShowKey()
{
    if (const QAction* const action = Chosen())
        Key->setKeySequence(action->shortcut());
}

void KeysDialog::TakeKey()
{
    if (QAction* const action = Chosen()) {
        Commands.SetKey(*action, Key->keySequence());
        Fill();
    }
}

}
