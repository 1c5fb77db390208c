#pragma once

#include "commands/Commands.h"
#include "commands/FileSave.h"
#include "commands/RecentFileList.h"
#include "commands/RoutineRunner.h"
#include "commands/ViewerWindow.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace vostel::viewer {

// What a viewer does, whatever its toolkit: which canvas is current, what each shows, the commands, files,
// recent files and routines. The toolkit lays out the window, forwards events and asks the questions.
class ViewerSession {
public:
    ViewerSession(ViewerWindow window, ViewerSettings settings);

    int  Current() const { return CurrentCanvas; }
    bool IsTiled() const { return Tiled; }    // all canvases side by side, else the current one alone
    bool RoutineRuns() const { return Runner.IsRunning(); }

    // The full path; empty when the image is not from a file.
    const std::wstring&              FileOf(int canvas) const { return At(canvas).Path; }
    std::wstring                     FileNameOf(int canvas) const;
    const std::vector<std::wstring>& RecentFiles() const { return Recent.Paths(); }
    void                             ClearRecentFiles() { Recent.Clear(); }

    // Before objects go that are in no session: asks, and saves them if wanted. False when the person stays.
    bool MayGo(int canvas);
    bool MayClose();    // all of them

    // The name that the library gets in place of the one that the person chose in a dialog for saving, so
    // that the session can tell what became of it.
    std::wstring NameToSave(const std::wstring& chosen) { return Saving.Begin(chosen); }
    // The length of a pixel in mm that the person gave when the library asked: captions have it then, and the
    // table of the canvas takes it when the command ends.
    void TakePixelLength(double length) { PixelLength = length; }
    // The library's own message; a save under way tells more than that itself.
    void ShowMessage(const std::wstring& text);

    void SaveMeasureTable(int canvas);    // asks where, and tells what became of it

    // Of all texts, those of the canvases too.
    Language     Speaks() const { return Spoken; }
    void         Speak(Language language);
    std::wstring Text(const char* english) const { return TextIn(Spoken, english); }

    bool IsEnabled(Command id) const;
    bool IsChecked(Command id) const;
    // For its menu: with the name of the step that would be taken back or brought again.
    std::wstring TextOf(Command id) const;

    // Whether a canvas gets a key without Control. C, I, R and T delete or overwrite objects, which a slip of
    // the hand should not: they need Command::KeysForAll.
    bool ForwardsKey(unsigned int virtualKey) const;

    void Carry(Command id);    // as its menu entry does
    void SelectCanvas(int canvas);
    void SetTiled(bool tiled);

    // The first goes to the current canvas, each further one to the next. What cannot be opened is reported
    // in one message.
    void OpenFiles(const std::vector<std::wstring>& paths);

    // The whole image stays in sight when the area of its canvas changes, until the person zooms or moves.
    void OnAreaChanged(int canvas);
    void OnViewDragged(int canvas);

    void CancelRoutine() { Runner.Cancel(); }

private:
    struct CanvasFile {
        std::wstring Path;
        std::wstring Session;         // the file that its objects were saved in or come from; empty: none
        std::string  Saved;           // the objects in it
        bool         Fits = false;    // whole image in sight from now on
    };

    CanvasFile&       At(int canvas) { return Canvases[static_cast<std::size_t>(canvas)]; }
    const CanvasFile& At(int canvas) const { return Canvases[static_cast<std::size_t>(canvas)]; }

    void         CarryOut(const CommandEntry& entry);
    void         AskForTextLines();
    std::wstring OpenOn(int canvas, const std::wstring& path);    // what is wrong with it, or nothing
    std::wstring ReadOnto(int canvas, const std::wstring& path, bool& cancelled);
    bool         SaveSession(int canvas, bool elsewhere);
    void         RunAndTell(const CommandEntry& entry);
    std::wstring TextOfProblem(const std::string& problem) const;    // the first line translated
    bool         ReportSaved(const std::wstring& path, const std::string& problem);
    void         ShowTable();
    void         StartRoutine(const Routine& routine);
    bool         AskForRoutine(RoutineQuestion& question);
    void         OfferSources(RoutineQuestion& question) const;
    void         ShowRoutineStep(int done, int total);
    void         FinishRoutine(const RoutineResult& result);
    void         ShowFitting(int canvas, const ImagePointer& image);

    ViewerWindow                        Window;
    ViewerSettings                      Settings;
    std::array<CanvasFile, CanvasCount> Canvases;
    int                                 CurrentCanvas = 0;
    bool                                Tiled = false;
    bool                                KeysForAll = false;
    Language                            Spoken = Language::English;
    RecentFileList                      Recent;
    RoutineRunner                       Runner;
    int                                 RoutineCanvas = -1;    // where the routine under way began
    std::wstring                        RoutineTitle;
    FileSave                            Saving;         // of the command that runs
    std::optional<double>               PixelLength;    // mm; of the command that runs
};

}
