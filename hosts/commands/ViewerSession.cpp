#include "commands/ViewerSession.h"

#include "commands/FilePaths.h"
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

// Follows the size of the image, so that a value for another image is of no use.
bool IsOfImage(const RoutineParameter& parameter)
{
    return parameter.From != StartFrom::Number;
}

constexpr const char* NoMemoryForImage = Words("There is not enough memory for this image.");

}

ViewerSession::ViewerSession(ViewerWindow window, ViewerSettings settings)
    : Window(std::move(window)), Settings(std::move(settings)),
      Recent(Settings.LoadRecentFiles ? Settings.LoadRecentFiles() : std::vector<std::wstring>(),
             Settings.SaveRecentFiles),
      Runner(Window.Post)
{
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

bool ViewerSession::ForwardsKey(unsigned int virtualKey) const
{
    return KeysForAll || (virtualKey != 'C' && virtualKey != 'I' && virtualKey != 'T');
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
    RunCommand(id, CurrentCanvas);
    // How the new object is drawn can be read while it is.
    if (entry.In == Menu::Draw || entry.In == Menu::Measure)
        Call(Window.ShowStatus, Text(entry.Hint));
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
    const char* problem = nullptr;
    const auto  read = [&] { problem = OpenFile(canvas, path.c_str()); };
    try {
        if (!Window.ReadFile)
            read();
        else if (!Window.ReadFile(canvas, path, read))
            return {};
    } catch (const std::bad_alloc&) {
        problem = NoMemoryForImage;
    }
    const bool shown = !problem && HasImage(canvas);
    if (shown)
        At(canvas).Fits = ScaleOf(canvas) < 0.99;    // it was zoomed out to fit
    if (shown || !HasImage(canvas))
        At(canvas).Path = shown ? path : std::wstring();
    Call(Window.Repaint, canvas);
    if (shown)
        Recent.Add(path);
    else if (problem)
        Recent.Remove(path);
    return problem ? Text(problem) : std::wstring();
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
