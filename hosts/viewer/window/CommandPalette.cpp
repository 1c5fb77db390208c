#include "window/CommandPalette.h"

#include "window/CommandList.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace vostel::viewer {

namespace {

constexpr int ActionRole = Qt::UserRole;

bool HasAll(const QString& text, const QStringList& words)
{
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}

CommandPalette::CommandPalette(CommandList& commands, QWidget* parent)
    : QDialog(parent), Commands(commands), Words(new QLineEdit), Found(new QListWidget)
{
    setWindowTitle(tr("Find a command"));
    setObjectName(QStringLiteral("CommandPalette"));
    Words->setObjectName(QStringLiteral("Words"));
    Words->setPlaceholderText(tr("Parts of a command's name"));
    Words->setAccessibleName(Words->placeholderText());
    Words->installEventFilter(this);
    Found->setObjectName(QStringLiteral("Found"));
    Found->setAccessibleName(tr("Commands that were found"));
    Found->setFocusPolicy(Qt::NoFocus);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(Words);
    rows->addWidget(Found);
    resize(fontMetrics().averageCharWidth() * 70, fontMetrics().height() * 18);
    connect(Words, &QLineEdit::textChanged, this, &CommandPalette::Filter);
    connect(Words, &QLineEdit::returnPressed, this, &CommandPalette::Run);
    connect(Found, &QListWidget::itemClicked, this, &CommandPalette::Run);
    Filter(QString());
}

void CommandPalette::Filter(const QString& words)
{
    const QStringList parts = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Found->clear();
    Commands.Update();
    for (QAction* const action : Commands.All()) {
        const QString path = Commands.PathOf(*action);
        // The text in front of the one to search in English too, whatever the language of the menus.
        if (!HasAll(path + QLatin1Char(' ') + Commands.IdOf(*action) + QLatin1Char(' ') + action->statusTip(),
                    parts))
            continue;
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        auto* const   item =
            new QListWidgetItem(key.isEmpty() ? path : path + QStringLiteral("    ") + key, Found);
        item->setData(ActionRole, QVariant::fromValue(action));
        item->setToolTip(action->statusTip());
        if (!action->isEnabled())
            item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
    }
    Found->setCurrentRow(0);
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Words && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0 && Found->count() > 0) {
            Found->setCurrentRow((Found->currentRow() + step + Found->count()) % Found->count());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void CommandPalette::Run()
{
    const QListWidgetItem* const item = Found->currentItem();
    if (!item || !(item->flags() & Qt::ItemIsEnabled))
        return;
    auto* const action = item->data(ActionRole).value<QAction*>();
    accept();
    // After this dialog is gone, so that what the command opens has the keys.
    QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

}
