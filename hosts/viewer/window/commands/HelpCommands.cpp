#include "help/HelpWindow.h"
#include "help/Tour.h"
#include "window/CommandList.h"
#include "window/CommandPalette.h"
#include "window/KeysDialog.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <QMessageBox>

namespace vostel::viewer {

namespace {

constexpr CommandText Find = {"help.find", QT_TRANSLATE_NOOP("Commands", "&Find a command..."),
                              "Ctrl+Shift+P", nullptr};
constexpr CommandText Guide = {
    "help.guide", QT_TRANSLATE_NOOP("Commands", "&Guide"), "F1",
    QT_TRANSLATE_NOOP("Commands", "How to measure, what the numbers mean, what files hold")};
constexpr CommandText FirstSteps = {"help.tour", QT_TRANSLATE_NOOP("Commands", "First &steps"), nullptr,
                                    nullptr};
constexpr CommandText Keys = {
    "help.keys", QT_TRANSLATE_NOOP("Commands", "&Keys..."), "Ctrl+F1",
    QT_TRANSLATE_NOOP("Commands", "All commands with their keys, which can be changed")};
constexpr CommandText About = {"help.about", QT_TRANSLATE_NOOP("Commands", "&About"), nullptr, nullptr};

template <typename Dialog>
void ShowOnce(MainWindow& window)
{
    auto* const dialog = new Dialog(window.Commands(), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

}

void AddHelpCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    commands.Add(Menu::Help, Find, [&window] { ShowOnce<CommandPalette>(window); });
    commands.Add(Menu::Help, Keys, [&window] { ShowOnce<KeysDialog>(window); });
    commands.Add(Menu::Help, Guide, [&window] { (new HelpWindow(&window))->show(); });
    commands.Add(Menu::Help, FirstSteps, [&window] { new Tour(&window.Area()); });
    commands.AddSeparator(Menu::Help);
    commands.Add(Menu::Help, About, [&window] {
        QMessageBox::about(&window, CommandList::tr("About"),
                           CommandList::tr("<h3>Vostel Viewer %1</h3><p>Shows pictures, stacks and raw data, "
                                           "with regions, measures and their numbers.</p><p>Qt %2</p>")
                               .arg(QStringLiteral(VOSTEL_VERSION), QString::fromLatin1(qVersion())));
    });
}

}
