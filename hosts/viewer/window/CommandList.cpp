#include "window/CommandList.h"

#include "documents/Mnemonics.h"
#include "icons/CommandIcons.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>

#include <stdexcept>

namespace vostel::viewer {

namespace {

constexpr const char* MenuTitles[] = {
    QT_TRANSLATE_NOOP("Commands", "&File"),    QT_TRANSLATE_NOOP("Commands", "&Edit"),
    QT_TRANSLATE_NOOP("Commands", "&View"),    QT_TRANSLATE_NOOP("Commands", "&Draw"),
    QT_TRANSLATE_NOOP("Commands", "&Measure"), QT_TRANSLATE_NOOP("Commands", "&Image"),
    QT_TRANSLATE_NOOP("Commands", "&Process"), QT_TRANSLATE_NOOP("Commands", "&Window"),
    QT_TRANSLATE_NOOP("Commands", "&Help")};

constexpr char FirstKeyProperty[] = "firstKey";
constexpr char PathProperty[] = "menuPath";

QString KeySetting(const QAction& action)
{
    return QStringLiteral("Keys/") + action.objectName();
}

}

CommandList::CommandList(QWidget* window) : QObject(window), Window(window)
{
    for (const char* const title : MenuTitles)
        Menus.append(new QMenu(Translated(title), window));
}

QString CommandList::Translated(const char* english, const char* context)
{
    return QCoreApplication::translate(context, english);
}

QMenu& CommandList::MenuOf(Menu menu)
{
    return *Menus[static_cast<qsizetype>(menu)];
}

QAction& CommandList::Append(Menu menu, const CommandText& text, std::function<bool()> available)
{
    auto* const action = new QAction(Translated(text.Text, text.Context), this);
    action->setObjectName(QLatin1String(text.Id));
    action->setIcon(CommandIcon(QLatin1String(text.Id)));
    action->setShortcutContext(Qt::WindowShortcut);
    const QString tip = text.Tip ? Translated(text.Tip, text.Context) : WithoutMnemonic(action->text());
    action->setStatusTip(tip);
    const QKeySequence first = text.Key ? QKeySequence(QLatin1String(text.Key)) : QKeySequence();
    action->setProperty(FirstKeyProperty, QVariant::fromValue(first));
    const QVariant kept = QSettings().value(KeySetting(*action));
    action->setShortcut(kept.isValid() ? QKeySequence(kept.toString()) : first);
    QString path = WithoutMnemonic(MenuOf(menu).title());
    if (Submenu)
        path += QStringLiteral(", ") + WithoutMnemonic(Submenu->title());
    action->setProperty(PathProperty, path + QStringLiteral(", ") + WithoutMnemonic(action->text()));
    (Submenu ? *Submenu : MenuOf(menu)).addAction(action);
    Window->addAction(action);
    Actions.append(action);
    States.push_back({action, std::move(available), nullptr});
    return *action;
}

QAction& CommandList::Add(Menu menu, const CommandText& text, std::function<void()> run,
                          std::function<bool()> available)
{
    QAction& action = Append(menu, text, std::move(available));
    connect(&action, &QAction::triggered, this, [this, run = std::move(run)] {
        run();
        Update();
    });
    return action;
}

QAction& CommandList::AddSwitch(Menu menu, const CommandText& text, std::function<void(bool)> run,
                                std::function<bool()> isOn, std::function<bool()> available)
{
    QAction& action = Append(menu, text, std::move(available));
    action.setCheckable(true);
    States.back().IsOn = std::move(isOn);
    connect(&action, &QAction::triggered, this, [this, run = std::move(run)](bool on) {
        run(on);
        Update();
    });
    return action;
}

void CommandList::AddSeparator(Menu menu)
{
    (Submenu ? *Submenu : MenuOf(menu)).addSeparator();
}

QMenu& CommandList::BeginSubmenu(Menu menu, const char* title)
{
    Submenu = MenuOf(menu).addMenu(Translated(title));
    Submenu->setObjectName(QLatin1String(title));
    return *Submenu;
}

void CommandList::FillMenuBar(QMenuBar& bar)
{
    for (QMenu* const menu : Menus)
        if (!menu->isEmpty()) {
            bar.addMenu(menu);
            connect(menu, &QMenu::aboutToShow, this, &CommandList::Update);
        }
}

void CommandList::FillToolBar(QToolBar& bar, const std::vector<const char*>& ids) const
{
    for (const char* const id : ids) {
        if (id)
            bar.addAction(&Of(id));
        else
            bar.addSeparator();
    }
}

void CommandList::Update()
{
    for (const State& state : States) {
        state.Action->setEnabled(!state.Available || state.Available());
        if (state.IsOn)
            state.Action->setChecked(state.IsOn());
    }
    Q_EMIT updated();
}

QAction& CommandList::Of(const char* id) const
{
    QAction* const action = findChild<QAction*>(QLatin1String(id), Qt::FindDirectChildrenOnly);
    if (!action)
        throw std::logic_error(std::string("no command is named ") + id);
    return *action;
}

QString CommandList::PathOf(const QAction& action) const
{
    return action.property(PathProperty).toString();
}

QKeySequence CommandList::FirstKey(const QAction& action) const
{
    return action.property(FirstKeyProperty).value<QKeySequence>();
}

void CommandList::TakeKey(QAction& action, const QKeySequence& key)
{
    action.setShortcut(key);
    QSettings settings;
    if (key == FirstKey(action))
        settings.remove(KeySetting(action));
    else
        settings.setValue(KeySetting(action), key.toString());
}

void CommandList::SetKey(QAction& action, const QKeySequence& key)
{
    for (QAction* const other : Actions)
        if (other != &action && !key.isEmpty() && other->shortcut() == key)
            TakeKey(*other, QKeySequence());
    TakeKey(action, key);
    Q_EMIT keysChanged();
}

void CommandList::ResetKeys()
{
    for (QAction* const action : Actions)
        TakeKey(*action, FirstKey(*action));
    Q_EMIT keysChanged();
}

}
