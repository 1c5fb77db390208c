#pragma once

// The main window: menu bar, five canvases of which one is the current, and the status bar.

#include "CanvasWindow.h"
#include "RoutineJob.h"
#include "StatusBar.h"
#include "ViewerSettings.h"
#include "commands/Commands.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace vostel::viewer {

class MainWindow {
public:
    static constexpr int CanvasCount = 5;

    bool Create(int show);
    // The first file goes to the given canvas, the others to the ones after it; several are shown tiled.
    void OpenFiles(const std::vector<std::wstring>& paths, int canvas);
    int  Run();    // the message loop; what the program answers

    void    Attach(HWND window) { Window = window; }    // for the class's procedure, as is the next
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    HWND                                   Window = nullptr;
    HMENU                                  Bar = nullptr;
    HACCEL                                 Accelerators = nullptr;
    StatusBar                              Status;
    std::array<CanvasWindow, CanvasCount>  Canvases;
    std::array<std::wstring, CanvasCount>  Files;    // what each canvas shows; empty: nothing
    int                                    Current = 0;
    bool                                   Tiled = false;
    ViewerSettings                         Settings;
    RoutineJob                             Job;
    std::map<Command, std::vector<double>> LastValues;    // of the routines' dialogs
    std::wstring                           LastLines;     // of the text dialog

    // The window.
    void          CreateParts();
    void          Layout();
    RECT          CellOf(int canvas) const;    // of the client area, with the frame
    void          PaintFrames();
    void          SelectCanvas(int canvas);
    void          ShowTiled(bool tiled);
    void          ShowTitle();
    void          OnDropFiles(HDROP drop);
    void          OnMenuSelect(WPARAM wParam);
    CanvasWindow& CurrentCanvas() { return Canvases[static_cast<std::size_t>(Current)]; }

    // The commands.
    bool IsEnabled(Command id) const;
    bool IsChecked(Command id) const;
    void OnCommand(UINT number);
    void RunByViewer(Command id);
    void AskForFiles();
    void OpenOne(const std::wstring& path, int canvas);
    void AskForTextLines();
    void AskForRoutine(const Routine& routine);
    void OnRoutineProgress(int done, int total);
    void OnRoutineFinished();
    void ShowProblem(const std::wstring& sentence);
    void AfterChange();    // of what the current canvas shows
};

}
