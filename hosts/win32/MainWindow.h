#pragma once

// The main window around a session: menu bar, five canvases, status bar and dialogs.

#include "CallQueue.h"
#include "CanvasWindow.h"
#include "SettingsFile.h"
#include "StatusBar.h"
#include "commands/ViewerSession.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace vostel::viewer {

class MainWindow {
public:
    // The language of this run; without one the kept one, else that of the system.
    explicit MainWindow(std::optional<Language> language) : Wanted(language) {}

    bool Create(int show);
    void OpenFiles(const std::vector<std::wstring>& paths) { Session.OpenFiles(paths); }
    int  Run();    // the message loop; returns the exit code

    void    Attach(HWND window) { Window = window; }    // for the class's procedure, as is the next
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    std::optional<Language>               Wanted;
    HWND                                  Window = nullptr;
    HMENU                                 Bar = nullptr;
    HACCEL                                Accelerators = nullptr;
    StatusBar                             Status;
    std::array<CanvasWindow, CanvasCount> Canvases;
    SettingsFile                          Settings;
    CallQueue                             Posted;
    ViewerSession                         Session{Services(), Kept()};
    std::wstring                          LastLines;    // of the text dialog
    TessikDialogs                         Dialogs;      // the library's, while the window stands

    // The window.
    void          CreateParts();
    void          ConnectCanvas(CanvasWindow& window);
    void          Layout();
    RECT          CellOf(int canvas) const;    // of the client area, with the frame
    void          PaintFrames();
    void          OnCommand(UINT number);
    void          OnDropFiles(HDROP drop);
    void          OnMenuSelect(WPARAM wParam);
    CanvasWindow& CanvasAt(int canvas) { return Canvases[static_cast<std::size_t>(canvas)]; }
    CanvasWindow& CurrentCanvas() { return CanvasAt(Session.Current()); }

    HWND Front() const { return GetLastActivePopup(Window); }    // the dialog that is up, or itself

    // What the session asks of it.
    ViewerWindow   Services();
    ViewerSettings Kept();

    void                      Repaint(int canvas);
    void                      ShowState();
    void                      ShowTexts();
    void                      Report(const std::wstring& sentences);
    void                      ShowAbout();
    std::vector<std::wstring> AskFiles();
    std::wstring              AskSavePath(const SaveQuestion& question);
    Keeping                   AskToKeep(const std::wstring& sentence);
    bool                      AskTextLines(std::wstring& lines);
    bool                      AskRoutine(RoutineQuestion& question);
};

}
