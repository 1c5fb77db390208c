#pragma once

#include "commands/Commands.h"

#include <QHash>
#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;
class QToolBar;

namespace vostel::viewer {

class ViewerSession;

// The table of commands as actions, menus and tool bars. Signals which command is wanted; the window
// carries it out and then calls Update.
class CommandActions : public QObject {
    Q_OBJECT

public:
    explicit CommandActions(QObject* parent);

    void   FillMenuBar(QMenuBar* bar);
    void   FillToolBar(QToolBar* bar, std::initializer_list<Menu> menus) const;
    QMenu* SubmenuOf(Command id) const { return Submenus.value(static_cast<int>(id)); }

    QAction* Find(Command id) const { return Actions.value(static_cast<int>(id)); }

    void Update(const ViewerSession& session);    // what can be chosen and what is on

Q_SIGNALS:
    void wanted(Command id);

private:
    void Make(const CommandEntry& entry);

    QHash<int, QAction*>      Actions;
    QHash<int, QMenu*>        Submenus;
    QHash<int, QActionGroup*> Groups;
};

}
