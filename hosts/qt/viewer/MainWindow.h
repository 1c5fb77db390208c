#pragma once

#include "commands/ViewerSession.h"

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

namespace vostel::viewer {

class CanvasArea;
class CommandActions;
class GesturePage;
class RecentFilesMenu;
class StatusLine;

// The viewer's window: canvases, menus, tool bars, status bar and dialogs around a session.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    void OpenFiles(const QStringList& paths);
    void Carry(Command id);    // as its menu entry does

    const ViewerSession& State() const { return Session; }
    CanvasArea&          Area() const { return *Canvases; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    ViewerWindow   Services();
    ViewerSettings Kept();

    void BuildBars();
    void ConnectCanvas(int number);
    void RestoreWindow();
    void ShowState();    // of the current canvas, everywhere in the window
    void Report(const QString& text);
    void ShowHelp();
    void ShowAbout();

    std::vector<std::wstring> AskFiles();
    bool                      AskTextLines(std::wstring& lines);
    bool                      AskRoutine(RoutineQuestion& question);
    bool ReadFile(int canvas, const std::wstring& path, const std::function<void()>& read);

    ViewerSession         Session;
    CanvasArea*           Canvases;
    CommandActions*       Commands;
    RecentFilesMenu*      Recent = nullptr;
    StatusLine*           Status;
    QPointer<GesturePage> Help;
};

}
