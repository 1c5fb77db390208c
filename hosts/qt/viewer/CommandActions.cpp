#include "CommandActions.h"

#include "Translations.h"
#include "commands/ViewerSession.h"
#include "icons/CommandIcons.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>

namespace vostel::viewer {

namespace {

// Without the mark of the mnemonic, with the shortcut: the tip of a tool button.
QString ToolTip(const CommandEntry& entry)
{
    QString text = CommandText(entry.Text);
    // Chinese texts carry the mnemonic in brackets at their end.
    if (const qsizetype bracket = text.indexOf(QStringLiteral("(&")); bracket >= 0)
        text.remove(bracket, 4);
    text.remove(u'&').remove(QStringLiteral("..."));
    const QString keys = QKeySequence(QString::fromLatin1(entry.Shortcut)).toString(QKeySequence::NativeText);
    return keys.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, keys);
}

bool HasPlaceInToolBar(const CommandEntry& entry)
{
    // One button for the six saves, and one for the two entries with the same picture.
    return *entry.Icon && entry.Id != Command::ConvolveByForm &&
           (entry.In != Menu::File || entry.Id == Command::Open ||
            entry.Id == Command::SaveImageWithOverlays);
}

}

CommandActions::CommandActions(QObject* parent) : QObject(parent)
{
    for (const CommandEntry& entry : AllCommands())
        Make(entry);
}

void CommandActions::Make(const CommandEntry& entry)
{
    const int id = static_cast<int>(entry.Id);
    if (entry.Kind == CommandKind::Submenu) {
        auto* const menu = new QMenu(CommandText(entry.Text));
        connect(this, &QObject::destroyed, menu, &QObject::deleteLater);
        menu->setToolTipsVisible(true);
        menu->menuAction()->setStatusTip(CommandText(entry.Hint));
        Submenus.insert(id, menu);
        Actions.insert(id, menu->menuAction());
        return;
    }
    auto* const action = new QAction(CommandText(entry.Text), this);
    action->setStatusTip(CommandText(entry.Hint));
    action->setToolTip(ToolTip(entry));
    if (*entry.Shortcut)
        action->setShortcut(QKeySequence(QString::fromLatin1(entry.Shortcut)));
    if (*entry.Icon)
        action->setIcon(CommandIcon(QLatin1String(entry.Icon)));
    action->setCheckable(entry.Kind == CommandKind::Toggle || entry.Kind == CommandKind::Choice);
    if (entry.Group != ChoiceGroup::None) {
        QActionGroup*& group = Groups[static_cast<int>(entry.Group)];
        if (!group)
            group = new QActionGroup(this);
        group->addAction(action);
    }
    if (entry.Id == Command::Quit)
        action->setMenuRole(QAction::QuitRole);
    if (entry.Id == Command::About)
        action->setMenuRole(QAction::AboutRole);
    connect(action, &QAction::triggered, this, [this, command = entry.Id] { Q_EMIT wanted(command); });
    Actions.insert(id, action);
}

void CommandActions::FillMenuBar(QMenuBar* bar)
{
    for (const Menu id : AllMenus()) {
        QMenu* const menu = bar->addMenu(CommandText(MenuTitle(id)));
        for (const CommandEntry& entry : AllCommands()) {
            if (entry.In != id)
                continue;
            if (entry.SeparatorBefore)
                menu->addSeparator();
            menu->addAction(Find(entry.Id));
        }
    }
}

void CommandActions::FillToolBar(QToolBar* bar, std::initializer_list<Menu> menus) const
{
    bool first = true;
    for (const Menu id : menus) {
        if (!first)
            bar->addSeparator();
        first = false;
        bool between = false;
        for (const CommandEntry& entry : AllCommands()) {
            if (entry.In != id || !HasPlaceInToolBar(entry))
                continue;
            if (entry.SeparatorBefore && between && id != Menu::File)
                bar->addSeparator();
            bar->addAction(Find(entry.Id));
            between = true;
        }
    }
}

void CommandActions::Update(const ViewerSession& session)
{
    for (const CommandEntry& entry : AllCommands()) {
        QAction* const action = Find(entry.Id);
        action->setEnabled(session.IsEnabled(entry.Id));
        if (action->isCheckable())
            action->setChecked(session.IsChecked(entry.Id));
    }
}

}
