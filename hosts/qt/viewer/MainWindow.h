#pragma once

#include "commands/Commands.h"
#include "commands/Routines.h"

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

class CanvasArea;
class CommandActions;
class GesturePage;
class RecentFiles;
class RoutineRunner;
class StatusLine;

// The viewer's window: canvases, menus, tool bars and status bar, and what the command table leaves to it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    // The first goes to the current canvas, each further one to the next. Files that cannot be opened are
    // told of in one message.
    void OpenFiles(const QStringList& paths);

    void        Carry(Command id);    // as its menu entry does
    CanvasArea& Area() const { return *Canvases; }
    bool        RoutineRuns() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void    BuildBars();
    void    ConnectCanvas(int number);
    void    RestoreWindow();
    void    CarryHere(Command id);
    void    AskForFiles();
    QString OpenOn(int number, const QString& path);    // what is wrong with it, or nothing
    void    AskForTextLines();
    void    StartRoutine(const Routine& routine);
    void    FinishRoutine(const RoutineResult& result);
    void    ShowHelp();
    void    ShowAbout();
    void    ShowState();    // of the current canvas, everywhere in the window
    void    Report(const QString& text);

    CanvasArea*           Canvases;
    CommandActions*       Commands;
    RecentFiles*          Recent = nullptr;
    StatusLine*           Status;
    RoutineRunner*        Runner;
    QPointer<GesturePage> Help;
    int                   RoutineCanvas = -1;    // where the routine under way began
    QString               RoutineTitle;
};
