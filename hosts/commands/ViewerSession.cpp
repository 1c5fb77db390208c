#include "commands/ViewerSession.h"

#include "commands/CanvasState.h"
#include "commands/CanvasWork.h"
#include "commands/FilePaths.h"
#include "commands/Utf8Text.h"
#include "common/CanvasFacts.h"

#include <vostel.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace vostel::viewer {

using namespace hosts;

namespace {

// Calls a service of the window; an empty one does nothing.
template <typename Service, typename... Arguments>
void Call(const Service& service, const Arguments&... arguments)
{
    if (service)
        service(arguments...);
}

bool HasImage(int canvas)
{
    return gCVSGetFileType(canvas) != FileTypeNone;
}

bool IsCanvasChoice(Command id)
{
    return id >= Command::Canvas1 && id <= Command::Canvas5;
}

int CanvasOf(Command id)
{
    return static_cast<int>(id) - static_cast<int>(Command::Canvas1);
}

Step StepOf(Command id)
{
    return id == Command::Undo ? Step::Undo : Step::Redo;
}

// Follows the size of the image, so that a value for another image is of no use.
bool IsOfImage(const RoutineParameter& parameter)
{
    return parameter.From != StartFrom::Number;
}

// The library's names of the columns of a table, and ours.
constexpr std::pair<const wchar_t*, const char*> Titles[] = {
    {L"object", Words("Number")},
    {L"name", Words("Name")},
    {L"kind", Words("Kind")},
    {L"label", Words("Label")},
    {L"unit", Words("Unit")},
    {L"pixels", Words("Pixels")},
    {L"not_finite", Words("Not finite")},
    {L"area", Words("Area")},
    {L"perimeter", Words("Perimeter")},
    {L"length", Words("Length")},
    {L"angle", Words("Angle")},
    {L"centroid_x", Words("Centroid x")},
    {L"centroid_y", Words("Centroid y")},
    {L"left", Words("Left")},
    {L"top", Words("Top")},
    {L"right", Words("Right")},
    {L"bottom", Words("Bottom")},
    {L"mean", Words("Mean")},
    {L"sd", Words("Deviation")},
    {L"min", Words("Minimum")},
    {L"max", Words("Maximum")},
    {L"sum", Words("Sum")},
    {L"median", Words("Median")},
    {L"feret_max", Words("Greatest width")},
    {L"feret_min", Words("Least width")},
    {L"circularity", Words("Circularity")},
};

// "Move polygon" by its two parts.
std::wstring StepText(Language language, const std::string& english)
{
    const std::size_t space = english.find(' ');
    if (space == std::string::npos)
        return TextIn(language, english.c_str());
    return Filled(TextIn(language, (english.substr(0, space) + " %1").c_str()),
                  {TextIn(language, english.substr(space + 1).c_str())});
}

constexpr const char* NoMemoryForImage = Words("There is not enough memory for this image.");

}

ViewerSession::ViewerSession(ViewerWindow window, ViewerSettings settings)
    : Window(std::move(window)), Settings(std::move(settings)),
      Recent(Settings.LoadRecentFiles ? Settings.LoadRecentFiles() : std::vector<std::wstring>(),
             Settings.SaveRecentFiles),
      Runner(Window.Post)
{
    for (int canvas = 0; canvas < CanvasCount; ++canvas)
        BeginHistory(canvas);
}

void ViewerSession::Speak(Language language)
{
    Spoken = language;
    for (int canvas = 0; canvas < CanvasCount; ++canvas)
        vostel_canvas_set_language(canvas, language == Language::Chinese ? "zh" : "en");
    Call(Window.ShowTexts);
    Call(Window.ShowState);
}

std::wstring ViewerSession::FileNameOf(int canvas) const
{
    return WideName(PathOf(FileOf(canvas).c_str()).filename());
}

bool ViewerSession::IsEnabled(Command id) const
{
    const CommandEntry* const entry = FindCommand(id);
    if (!entry || !IsAvailable(id, CurrentCanvas))
        return false;
    if (id == Command::CancelRoutine)
        return RoutineRuns();
    if (id == Command::Undo || id == Command::Redo)
        return !StepName(CurrentCanvas, StepOf(id)).empty();
    if (entry->Kind == CommandKind::Routine || id == Command::UndoRoutine)
        return !RoutineRuns();
    return true;
}

bool ViewerSession::IsChecked(Command id) const
{
    if (id == Command::OneCanvas || id == Command::TileCanvases)
        return Tiled == (id == Command::TileCanvases);
    if (IsCanvasChoice(id))
        return CanvasOf(id) == CurrentCanvas;
    if (id == Command::KeysForAll)
        return KeysForAll;
    if (id == Command::SpeakEnglish || id == Command::SpeakChinese)
        return (id == Command::SpeakChinese) == (Spoken == Language::Chinese);
    return IsOn(id, CurrentCanvas);
}

std::wstring ViewerSession::TextOf(Command id) const
{
    const CommandEntry* const entry = FindCommand(id);
    if (id != Command::Undo && id != Command::Redo)
        return entry ? Text(entry->Text) : std::wstring();
    const std::string step = StepName(CurrentCanvas, StepOf(id));
    if (step.empty())
        return Text(entry->Text);
    return Filled(Text(id == Command::Undo ? Words("&Undo: %1") : Words("&Redo: %1")),
                  {StepText(Spoken, step)});
}

bool ViewerSession::ForwardsKey(unsigned int virtualKey) const
{
    return KeysForAll || (virtualKey != 'C' && virtualKey != 'I' && virtualKey != 'R' && virtualKey != 'T');
}

void ViewerSession::Carry(Command id)
{
    const CommandEntry* const entry = FindCommand(id);
    if (!entry || !IsEnabled(id))
        return;
    if (id == Command::Quit) {
        Call(Window.Close);
        return;
    }
    Call(Window.ShowStatus, L"");    // what was said of the command before
    try {
        CarryOut(*entry);
    } catch (const std::bad_alloc&) {
        Call(Window.Report, Text(Words("There is not enough memory for this.")));
    }
    Call(Window.Repaint, CurrentCanvas);
    Call(Window.ShowState);
}

void ViewerSession::CarryOut(const CommandEntry& entry)
{
    const Command id = entry.Id;
    if (IsCanvasChoice(id)) {
        SelectCanvas(CanvasOf(id));
        return;
    }
    if (const Routine* const routine = FindRoutine(id)) {
        StartRoutine(*routine);
        return;
    }
    switch (id) {
    case Command::Open:
        if (Window.AskFiles)
            OpenFiles(Window.AskFiles());
        return;
    case Command::SaveSession:
    case Command::SaveSessionAs:
        SaveSession(CurrentCanvas, id == Command::SaveSessionAs);
        return;
    case Command::Undo:
    case Command::Redo:
        Take(CurrentCanvas, StepOf(id));
        return;
    case Command::MeasureTable:
        ShowTable();
        return;
    case Command::OneCanvas:
    case Command::TileCanvases:
        SetTiled(id == Command::TileCanvases);
        return;
    case Command::DrawTextLines:
        AskForTextLines();
        return;
    case Command::KeysForAll:
        KeysForAll = !KeysForAll;
        return;
    case Command::SpeakEnglish:
    case Command::SpeakChinese:
        Speak(id == Command::SpeakChinese ? Language::Chinese : Language::English);
        Call(Settings.SaveLanguage, Spoken);
        return;
    case Command::CancelRoutine:
        CancelRoutine();
        return;
    case Command::HelpGestures:
        Call(Window.ShowHelp);
        return;
    case Command::About:
        Call(Window.ShowAbout);
        return;
    case Command::FitImage:
        At(CurrentCanvas).Fits = true;
        break;
    default:
        break;
    }
    RunAndTell(entry);
}

void ViewerSession::RunAndTell(const CommandEntry& entry)
{
    Saving = FileSave();
    PixelLength.reset();
    RunCommand(entry.Id, CurrentCanvas);
    if (PixelLength)
        vostel_set_scale(CurrentCanvas, *PixelLength, "mm");
    if (Saving.HasBegun()) {
        const char* const problem = Saving.End();
        ReportSaved(Saving.Wanted(), problem ? problem : "");
        Saving = FileSave();
    }
    // How the new object is drawn can be read while it is.
    if (entry.In == Menu::Draw || entry.In == Menu::Measure)
        Call(Window.ShowStatus, Text(entry.Hint));
}

void ViewerSession::ShowMessage(const std::wstring& text)
{
    if (!Saving.HasBegun())
        Call(Window.Report, text);
}

void ViewerSession::SelectCanvas(int canvas)
{
    if (canvas < 0 || canvas >= CanvasCount || canvas == CurrentCanvas)
        return;
    CurrentCanvas = canvas;
    Call(Window.Arrange);
    Call(Window.ShowState);
}

void ViewerSession::SetTiled(bool tiled)
{
    Tiled = tiled;
    Call(Window.Arrange);
    Call(Window.ShowState);
}

void ViewerSession::AskForTextLines()
{
    std::wstring lines;
    if (Window.AskTextLines && Window.AskTextLines(lines))
        AddTextLines(CurrentCanvas, lines.c_str());
}

void ViewerSession::OpenFiles(const std::vector<std::wstring>& paths)
{
    const int    first = CurrentCanvas;
    std::wstring problems;
    if (paths.size() > 1)
        SetTiled(true);    // before, so that each canvas has its size when its image comes
    int canvas = first;
    for (const std::wstring& path : paths) {
        const std::wstring problem = canvas < CanvasCount
                                         ? OpenOn(canvas, AbsolutePath(path))
                                         : Text(Words("There are no more than five canvases."));
        ++canvas;
        if (problem.empty())
            continue;
        if (!problems.empty())
            problems += L"\n\n";
        problems += path + L'\n' + problem;
    }
    Call(Window.ShowState);
    if (!problems.empty())
        Call(Window.Report, problems);
}

std::wstring ViewerSession::OpenOn(int canvas, const std::wstring& path)
{
    if (RoutineRuns() && canvas == RoutineCanvas)
        return Text(Words("A routine works on this canvas. Press Esc to stop it first."));
    if (!MayGo(canvas))
        return {};
    bool         cancelled = false;
    std::wstring problem;
    try {
        problem = ReadOnto(canvas, path, cancelled);
    } catch (const std::bad_alloc&) {
        problem = Text(NoMemoryForImage);
    }
    if (cancelled)
        return {};
    const bool shown = problem.empty() && HasImage(canvas);
    if (shown || !HasImage(canvas)) {
        CanvasFile& file = At(canvas);
        file.Path = shown ? path : std::wstring();
        file.Session = shown && IsSessionFile(path) ? path : std::wstring();
        file.Saved = DrawnOn(canvas);
        file.Fits = shown && file.Session.empty() && ScaleOf(canvas) < 0.99;    // it was zoomed out to fit
        BeginHistory(canvas);
    }
    Call(Window.Repaint, canvas);
    if (shown)
        Recent.Add(path);
    else if (!problem.empty())
        Recent.Remove(path);
    return problem;
}

std::wstring ViewerSession::ReadOnto(int canvas, const std::wstring& path, bool& cancelled)
{
    if (IsSessionFile(path)) {
        const std::string problem = OpenSession(canvas, path);
        if (problem.empty())
            StateOf(canvas)->Undo.reset();
        return TextOfProblem(problem);
    }
    const char* problem = nullptr;
    const auto  read = [&] { problem = OpenFile(canvas, path.c_str()); };
    if (!Window.ReadFile)
        read();
    else
        cancelled = !Window.ReadFile(canvas, path, read);
    return problem ? Text(problem) : std::wstring();
}

bool ViewerSession::MayGo(int canvas)
{
    if (!Window.AskToKeep || DrawnOn(canvas) == At(canvas).Saved)
        return true;
    SelectCanvas(canvas);
    const std::wstring sentence =
        Filled(Text(Words("The objects on canvas %1 are not saved. Save them as a session?")),
               {std::to_wstring(canvas + 1)});
    switch (Window.AskToKeep(sentence)) {
    case Keeping::Save:
        return SaveSession(canvas, false);
    case Keeping::Discard:
        return true;
    case Keeping::Stay:
        break;
    }
    return false;
}

bool ViewerSession::MayClose()
{
    for (int canvas = 0; canvas < CanvasCount; ++canvas)
        if (!MayGo(canvas))
            return false;
    return true;
}

// True if it is saved.
bool ViewerSession::SaveSession(int canvas, bool elsewhere)
{
    CanvasFile&  file = At(canvas);
    std::wstring path = elsewhere ? std::wstring() : file.Session;
    if (path.empty() && Window.AskSavePath) {
        const std::wstring name = file.Session.empty() ? file.Path + L".vostel.json" : file.Session;
        path = Window.AskSavePath({WideName(PathOf(name.c_str()).filename()), L"json",
                                   Text(Words("Sessions")) + L"|*.vostel.json;*.json||"});
    }
    if (path.empty() || !ReportSaved(path, viewer::SaveSession(canvas, path)))
        return false;
    file.Session = path;
    file.Saved = DrawnOn(canvas);
    Recent.Add(path);
    return true;
}

void ViewerSession::SaveMeasureTable(int canvas)
{
    if (!Window.AskSavePath)
        return;
    const std::wstring path = Window.AskSavePath(
        {L"measures.csv", L"csv", L"CSV|*.csv|" + Text(Words("Text with tabs")) + L"|*.tsv|JSON|*.json||"});
    if (!path.empty())
        ReportSaved(path, SaveMeasures(canvas, path));
}

std::wstring ViewerSession::TextOfProblem(const std::string& problem) const
{
    const std::size_t end = std::min(problem.find('\n'), problem.size());
    return Text(problem.substr(0, end).c_str()) + WideOf(problem.substr(end));
}

bool ViewerSession::ReportSaved(const std::wstring& path, const std::string& problem)
{
    if (problem.empty())
        Call(Window.ShowStatus, Filled(Text(Words("Saved %1")), {WideName(PathOf(path.c_str()).filename())}));
    else
        Call(Window.Report, path + L'\n' + TextOfProblem(problem));
    return problem.empty();
}

void ViewerSession::ShowTable()
{
    const int            canvas = CurrentCanvas;
    viewer::MeasureTable table = MeasuresOf(canvas);
    const auto kinds = std::find(table.Titles.begin(), table.Titles.end(), L"kind") - table.Titles.begin();
    for (std::vector<std::wstring>& row : table.Rows)
        row[static_cast<std::size_t>(kinds)] = Text(Utf8Of(row[static_cast<std::size_t>(kinds)]).c_str());
    for (std::wstring& title : table.Titles)
        for (const auto& [name, words] : Titles)
            if (title == name)
                title = Text(words);
    Call(Window.ShowMeasures, canvas, table);
}

void ViewerSession::OnAreaChanged(int canvas)
{
    if (!At(canvas).Fits || !HasImage(canvas))
        return;
    RunCommand(Command::FitImage, canvas);
    Call(Window.Repaint, canvas);
}

void ViewerSession::OnViewDragged(int canvas)
{
    At(canvas).Fits = false;
}

void ViewerSession::StartRoutine(const Routine& routine)
{
    const int       canvas = CurrentCanvas;
    RoutineQuestion question;
    question.Asked = &routine;
    if (!AskForRoutine(question))
        return;
    std::vector<ImagePointer> inputs = TakeInputs(routine, canvas, question.Second);
    RoutineCanvas = canvas;
    RoutineTitle = Text(routine.Title);
    ShowRoutineProgress(canvas, true);
    Call(Window.ShowStatus, Filled(Text(Words("%1 ...")), {RoutineTitle}));
    Runner.Start(
        routine, std::move(inputs), std::move(question.Values),
        [this](int done, int total) { ShowRoutineStep(done, total); },
        [this](const RoutineResult& result) { FinishRoutine(result); });
}

// Starts with the values of the last run. True, too, if there is nothing to ask.
bool ViewerSession::AskForRoutine(RoutineQuestion& question)
{
    const Routine& routine = *question.Asked;
    question.Values =
        DefaultValues(routine, gCVSGetCanvasWidth(CurrentCanvas), gCVSGetCanvasHeight(CurrentCanvas));
    for (std::size_t i = 0; i < question.Values.size(); ++i) {
        const RoutineParameter& parameter = routine.Parameters[i];
        if (IsOfImage(parameter) || !Settings.LoadValue)
            continue;
        const std::optional<double> last = Settings.LoadValue(routine, parameter);
        if (last && std::isfinite(*last))
            question.Values[i] = std::clamp(parameter.Kind == ParameterKind::Real ? *last : std::trunc(*last),
                                            parameter.Low, parameter.High);
    }
    if (routine.Input == RoutineInput::Two)
        OfferSources(question);
    if (question.Values.empty() && routine.Input != RoutineInput::Two)
        return true;
    if (!Window.AskRoutine || !Window.AskRoutine(question))
        return false;
    for (std::size_t i = 0; i < question.Values.size() && Settings.SaveValue; ++i)
        if (!IsOfImage(routine.Parameters[i]))
            Settings.SaveValue(routine, routine.Parameters[i], question.Values[i]);
    return true;
}

void ViewerSession::OfferSources(RoutineQuestion& question) const
{
    question.Second = CurrentCanvas;
    for (int canvas = CanvasCount; canvas-- > 0;) {
        if (!HasImage(canvas))
            continue;
        const std::wstring name =
            Filled(Text(Words("Canvas %1  %2")), {std::to_wstring(canvas + 1), FileNameOf(canvas)});
        question.Sources.insert(question.Sources.begin(), {canvas, name});
        if (canvas != CurrentCanvas)
            question.Second = canvas;    // likelier than the image with itself
    }
}

void ViewerSession::ShowRoutineStep(int done, int total)
{
    SetRoutineProgress(RoutineCanvas, done, total);
    Call(Window.Repaint, RoutineCanvas);
    Call(Window.ShowStatus, Filled(Text(Words("%1: step %2 of %3")),
                                   {RoutineTitle, std::to_wstring(done), std::to_wstring(total)}));
}

void ViewerSession::FinishRoutine(const RoutineResult& result)
{
    const int   canvas = RoutineCanvas;
    const char* problem = result.Problem;
    const char* status = nullptr;
    ShowRoutineProgress(canvas, false);
    if (result.Cancelled)
        status = Words("%1: cancelled");
    if (result.Result) {
        try {
            ShowFitting(canvas, result.Result);
            status = Words("%1: done");
        } catch (const std::bad_alloc&) {
            problem = NoMemoryForImage;
        }
    }
    Call(Window.Repaint, canvas);
    Call(Window.ShowStatus, status ? Filled(Text(status), {RoutineTitle}) : std::wstring());
    Call(Window.ShowState);
    if (problem)
        Call(Window.Report, Text(problem));
}

void ViewerSession::ShowFitting(int canvas, const ImagePointer& image)
{
    const bool sameSize = HasImage(canvas) && image->Width == gCVSGetCanvasWidth(canvas) &&
                          image->Height == gCVSGetCanvasHeight(canvas);
    ShowResult(canvas, image);
    if (sameSize)
        return;
    RunCommand(Command::FitImage, canvas);
    At(canvas).Fits = true;
}

}
