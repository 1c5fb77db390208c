#include "documents/Document.h"
#include "documents/RecentPaths.h"
#include "documents/Saves.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <QFileDialog>
#include <QMenu>
#include <QSettings>

namespace vostel::viewer {

namespace {

constexpr CommandText Open = {
    "file.open", QT_TRANSLATE_NOOP("Commands", "&Open..."), "Ctrl+O",
    QT_TRANSLATE_NOOP("Commands", "Pictures, stacks, raw data, sessions and regions")};
constexpr CommandText OpenFolder = {"file.openFolder", QT_TRANSLATE_NOOP("Commands", "Open &folder..."),
                                    "Ctrl+Shift+O",
                                    QT_TRANSLATE_NOOP("Commands", "The pictures of a folder as one stack")};
constexpr CommandText OpenSeries = {
    "file.openSeries", QT_TRANSLATE_NOOP("Commands", "Open s&eries..."), nullptr,
    QT_TRANSLATE_NOOP("Commands", "A picture and all that are numbered like it, as one stack")};
constexpr CommandText OpenRaw = {
    "file.openRaw", QT_TRANSLATE_NOOP("Commands", "Open ra&w data..."), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Any file as values without a header, one picture or a volume")};
constexpr CommandText Save = {"file.save", QT_TRANSLATE_NOOP("Commands", "&Save session"), "Ctrl+S",
                              QT_TRANSLATE_NOOP("Commands",
                                                "Objects, names, contrast, scale and view, with the "
                                                "picture by its path")};
constexpr CommandText SaveAs = {"file.saveAs", QT_TRANSLATE_NOOP("Commands", "Save session &as..."),
                                "Ctrl+Shift+S", nullptr};
constexpr CommandText Close = {"file.close", QT_TRANSLATE_NOOP("Commands", "&Close"), "Ctrl+W", nullptr};
constexpr CommandText Quit = {"file.quit", QT_TRANSLATE_NOOP("Commands", "&Quit"), "Ctrl+Q", nullptr};

const QString FolderKey = QStringLiteral("OpenFolder");

QString LastFolder()
{
    return QSettings().value(FolderKey, QDir::homePath()).toString();
}

void KeepFolder(const QString& path)
{
    QSettings().setValue(FolderKey, QFileInfo(path).absolutePath());
}

void AskAndOpen(MainWindow& window)
{
    const QStringList paths = QFileDialog::getOpenFileNames(&window, CommandList::tr("Open"), LastFolder());
    if (paths.isEmpty())
        return;
    KeepFolder(paths.front());
    window.OpenFiles(paths);
}

void AskAndOpenFolder(MainWindow& window)
{
    const QString path =
        QFileDialog::getExistingDirectory(&window, CommandList::tr("Open folder"), LastFolder());
    if (path.isEmpty())
        return;
    QSettings().setValue(FolderKey, path);
    window.OpenFiles({path});
}

// Of one file, in the current document if that is empty.
void AskAndOpenAs(MainWindow& window, const QString& title, Outcome (Document::*open)(const QString&))
{
    const QString path = QFileDialog::getOpenFileName(&window, title, LastFolder());
    if (path.isEmpty())
        return;
    KeepFolder(path);
    window.OpenAs(path, open);
}

// A menu of paths, made anew each time when it opens.
void AddRecent(MainWindow& window, const char* title, QStringList (*paths)())
{
    QMenu& menu = window.Commands().BeginSubmenu(Menu::File, title);
    window.Commands().EndSubmenu();
    QObject::connect(&menu, &QMenu::aboutToShow, &window, [&window, &menu, paths] {
        menu.clear();
        for (const QString& path : paths()) {
            QString name = QDir::toNativeSeparators(path);
            QObject::connect(menu.addAction(name.replace(QLatin1Char('&'), QStringLiteral("&&"))),
                             &QAction::triggered, &window, [&window, path] { window.OpenFiles({path}); });
        }
        menu.addSeparator();
        QAction* const forget = menu.addAction(CommandList::tr("Forget all"));
        forget->setEnabled(menu.actions().size() > 2);
        QObject::connect(forget, &QAction::triggered, &window, [] { RecentPaths::Clear(); });
    });
    menu.addSeparator();    // what is empty cannot be opened
}

}

bool SaveSession(MainWindow& window, Document& document, bool asAnother)
{
    QString path = document.SessionPath();
    if (path.isEmpty() || asAnother) {
        const QString beside = document.PicturePath().isEmpty()
                                   ? QDir(LastFolder()).filePath(document.Title())
                                   : document.PicturePath();
        path = QFileDialog::getSaveFileName(&window, CommandList::tr("Save session"),
                                            path.isEmpty() ? beside + QStringLiteral(".vostel.json") : path,
                                            CommandList::tr("Sessions") + QStringLiteral(" (*.vostel.json)"));
        if (path.isEmpty())
            return false;
    }
    const Outcome outcome = document.SaveSession(path);
    window.Report(outcome);
    return outcome.IsDone();
}

void AddFileCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    const auto   hasImage = [&window] { return window.Shown().Model().HasImage(); };
    commands.Add(Menu::File, Open, [&window] { AskAndOpen(window); });
    commands.Add(Menu::File, OpenFolder, [&window] { AskAndOpenFolder(window); });
    commands.Add(Menu::File, OpenSeries, [&window] {
        AskAndOpenAs(window, CommandList::tr("Open a picture of a series"), &Document::OpenSeries);
    });
    commands.Add(Menu::File, OpenRaw,
                 [&window] { AskAndOpenAs(window, CommandList::tr("Open raw data"), &Document::OpenRaw); });
    AddRecent(window, QT_TRANSLATE_NOOP("Commands", "Open &recent"), RecentPaths::Files);
    AddRecent(window, QT_TRANSLATE_NOOP("Commands", "Recent sess&ions"), RecentPaths::Sessions);
    commands.AddSeparator(Menu::File);
    commands.Add(
        Menu::File, Save, [&window] { SaveSession(window, window.Shown(), false); }, hasImage);
    commands.Add(
        Menu::File, SaveAs, [&window] { SaveSession(window, window.Shown(), true); }, hasImage);
    commands.AddSeparator(Menu::File);
    for (const SaveKind& kind : Saves::All())
        commands.Add(
            Menu::File,
            {kind.Id, kind.Title, kind.Id == std::string_view("picture") ? "Ctrl+E" : nullptr, nullptr,
             "Saves"},
            [&window, &kind] { window.Report(Saves::Ask(kind, window.Shown(), &window)); },
            [&window, &kind] { return kind.Applies(window.Shown()); });
    commands.AddSeparator(Menu::File);
    commands.Add(Menu::File, Close, [&window] { window.CloseDocument(window.Area().CurrentIndex()); });
    commands.Add(Menu::File, Quit, [&window] { window.close(); });
}

}
