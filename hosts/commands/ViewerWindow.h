#pragma once

// What a toolkit brings to a viewer: its window and a place for settings.

#include "commands/CanvasWork.h"
#include "commands/Routines.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vostel::viewer {

// What a dialog asks before a routine runs.
struct RoutineQuestion {
    struct Source {
        int          Canvas;
        std::wstring Name;    // what the person knows the canvas by
    };

    const Routine*      Asked = nullptr;
    std::vector<double> Values;         // in: what the fields start with; out: what was entered
    std::vector<Source> Sources;        // of the second image; empty for routines of fewer images
    int                 Second = -1;    // in: the likeliest canvas of the second image; out: the chosen one
};

// What a dialog for a file to be written starts with.
struct SaveQuestion {
    std::wstring Name;
    std::wstring Ending;    // of a name that is typed without one: "csv"
    std::wstring Filter;    // "text|pattern|text|pattern||"
};

// What is to become of work that is in no file.
enum class Keeping : int { Save, Discard, Stay };

// All are called on the thread of the window. An empty member does nothing; but Post must be there.
struct ViewerWindow {
    // Makes a call later on the thread of the window. The one member that is called on other threads.
    std::function<void(std::function<void()> call)> Post;

    // The window.
    std::function<void()>           Arrange;      // another canvas is current, or the tiling changed
    std::function<void(int canvas)> Repaint;      // the canvas shows something else
    std::function<void()>           ShowState;    // files, what is enabled and what is checked
    std::function<void()>           ShowTexts;    // the texts are of another language
    std::function<void(const std::wstring& text)>      ShowStatus;    // in the status bar; empty clears it
    std::function<void(const std::wstring& sentences)> Report;        // problems, in a message
    std::function<void()>                              ShowHelp;
    std::function<void()>                              ShowAbout;
    std::function<void()>                              Close;

    // Questions; false or nothing when the person cancels.
    std::function<std::vector<std::wstring>()>                AskFiles;
    std::function<bool(std::wstring& lines)>                  AskTextLines;
    std::function<bool(RoutineQuestion& question)>            AskRoutine;
    std::function<std::wstring(const SaveQuestion& question)> AskSavePath;
    std::function<Keeping(const std::wstring& sentence)>      AskToKeep;
    std::function<void(int canvas, const MeasureTable& measures)>
        ShowMeasures;    // with titles as they are told
    // Calls read; where the file is a raw one, asks for its layout first and gives it to the library, which
    // asks while it reads. The library itself would ask after it has deleted the objects of the canvas.
    // False, without a call, if the person cancels. Empty: the library asks.
    std::function<bool(int canvas, const std::wstring& path, const std::function<void()>& read)> ReadFile;
};

// What is kept between runs; an empty member keeps nothing.
struct ViewerSettings {
    std::function<std::vector<std::wstring>()>                   LoadRecentFiles;
    std::function<void(const std::vector<std::wstring>& newest)> SaveRecentFiles;
    std::function<void(Language language)>                       SaveLanguage;
    // Values of the routines' dialogs, by the names of the routine and the parameter, which outlive their
    // numbers.
    std::function<std::optional<double>(const Routine&, const RoutineParameter&)> LoadValue;
    std::function<void(const Routine&, const RoutineParameter&, double value)>    SaveValue;
};

}
