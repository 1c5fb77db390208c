#pragma once

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QMenu;
class QMenuBar;
class QToolBar;

namespace vostel::viewer {

enum class Menu { File, Edit, View, Draw, Measure, Image, Process, Window, Help };

// What a command is; its English texts are translated when they are shown.
struct CommandText {
    const char* Id;                      // outlives versions: keys are kept by it
    const char* Text;                    // with the mnemonic of the menu
    const char* Key;                     // at first; null for none
    const char* Tip;                     // a sentence for tool tip and search; null for none
    const char* Context = "Commands";    // of the translations
};

// Every command of the viewer as an action: in the menus, found by search, its key changeable and kept.
class CommandList : public QObject {
    Q_OBJECT

public:
    explicit CommandList(QWidget* window);

    // Appended to its menu. A command whose availability is given is gray while that returns false.
    QAction& Add(Menu menu, const CommandText& text, std::function<void()> run,
                 std::function<bool()> available = nullptr);
    // One that is on or off.
    QAction& AddSwitch(Menu menu, const CommandText& text, std::function<void(bool)> run,
                       std::function<bool()> isOn, std::function<bool()> available = nullptr);
    void     AddSeparator(Menu menu);
    // A menu within a menu, which takes what is added with it until EndSubmenu.
    QMenu& BeginSubmenu(Menu menu, const char* title);
    void   EndSubmenu() { Submenu = nullptr; }

    void FillMenuBar(QMenuBar& bar);
    void FillToolBar(QToolBar& bar, const std::vector<const char*>& ids) const;    // null: a gap

    void Update();    // of all actions, what is gray and what is on

    QAction&               Of(const char* id) const;
    const QList<QAction*>& All() const { return Actions; }
    QString                IdOf(const QAction& action) const { return action.objectName(); }
    QString                PathOf(const QAction& action) const;    // "View, Zoom in", without mnemonics

    // Keys. A key that another command has moves to this one.
    void         SetKey(QAction& action, const QKeySequence& key);
    QKeySequence FirstKey(const QAction& action) const;
    void         ResetKeys();

    static QString Translated(const char* english, const char* context = "Commands");

Q_SIGNALS:
    void keysChanged();
    void updated();    // texts that tell more than the first ones are renewed

private:
    struct State {
        QAction*              Action;
        std::function<bool()> Available;
        std::function<bool()> IsOn;
    };

    QAction& Append(Menu menu, const CommandText& text, std::function<bool()> available);
    QMenu&   MenuOf(Menu menu);
    void     TakeKey(QAction& action, const QKeySequence& key);

    QWidget*           Window;
    QList<QAction*>    Actions;
    std::vector<State> States;
    QList<QMenu*>      Menus;    // by Menu
    QMenu*             Submenu = nullptr;
};

}
