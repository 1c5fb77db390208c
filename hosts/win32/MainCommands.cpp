#include "MainWindow.h"

#include "CommandMenu.h"
#include "FileDialogs.h"
#include "RoutineDialog.h"
#include "TextDialogs.h"
#include "common/CanvasFacts.h"

namespace vostel::viewer {

using namespace hosts;

namespace {

// The library deletes the objects of a canvas before it asks how a raw file lies. This asks now and takes the
// answer down for the library; false when the person cancelled.
bool AskLayout(const std::wstring& file, TessikDialogs& answered)
{
    if (!IsRawFile(file.c_str()) || GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_DIRECTORY)
        return true;    // also what is not there
    tagZEKImaLoadPara layout;
    if (!gDlgGetImaLoadPara(layout))
        return false;
    answered.ImaLoadPara = [layout](tagZEKImaLoadPara& para) {
        para = layout;
        return true;
    };
    return true;
}

}

bool MainWindow::IsEnabled(Command id) const
{
    const CommandEntry* const entry = FindCommand(id);
    if (!entry || !IsAvailable(id, Current))
        return false;
    if (id == Command::CancelRoutine)
        return Job.IsRunning();
    // The result will be shown where the routine took its image from.
    if (Job.IsRunning())
        return entry->Kind != CommandKind::Routine && id != Command::Open && id != Command::UndoRoutine;
    return true;
}

bool MainWindow::IsChecked(Command id) const
{
    switch (id) {
    case Command::OneCanvas:
        return !Tiled;
    case Command::TileCanvases:
        return Tiled;
    case Command::Canvas1:
    case Command::Canvas2:
    case Command::Canvas3:
    case Command::Canvas4:
    case Command::Canvas5:
        return static_cast<int>(id) - static_cast<int>(Command::Canvas1) == Current;
    default:
        return IsOn(id, Current);
    }
}

void MainWindow::OnCommand(UINT number)
{
    if (number >= FirstRecentFile) {
        const std::vector<std::wstring> files = Settings.RecentFiles();
        if (number - FirstRecentFile < files.size())
            OpenFiles({files[number - FirstRecentFile]}, Current);
        return;
    }
    const Command             id = static_cast<Command>(number);
    const CommandEntry* const entry = FindCommand(id);
    if (!entry || !IsEnabled(id))
        return;
    Status.ShowHint(Wide(entry->Hint));
    if (const Routine* const routine = FindRoutine(id))
        AskForRoutine(*routine);
    else if (!RunCommand(id, Current))
        RunByViewer(id);
    if (id == Command::ContrastSlider)
        CurrentCanvas().RunTimer(IsOn(id, Current));
    if (id != Command::Quit)
        AfterChange();
}

void MainWindow::RunByViewer(Command id)
{
    switch (id) {
    case Command::Open:
        AskForFiles();
        break;
    case Command::Quit:
        SendMessageW(Window, WM_CLOSE, 0, 0);
        break;
    case Command::OneCanvas:
    case Command::TileCanvases:
        ShowTiled(id == Command::TileCanvases);
        break;
    case Command::Canvas1:
    case Command::Canvas2:
    case Command::Canvas3:
    case Command::Canvas4:
    case Command::Canvas5:
        SelectCanvas(static_cast<int>(id) - static_cast<int>(Command::Canvas1));
        break;
    case Command::DrawTextLines:
        AskForTextLines();
        break;
    case Command::CancelRoutine:
        Job.Cancel();
        break;
    case Command::HelpGestures:
        GesturesDialog().Ask(Window);
        break;
    case Command::About:
        MessageBoxW(Window, L"Vostel viewer " VIEWER_VERSION L"\n\nShows, marks and measures images.",
                    L"About", MB_OK | MB_ICONINFORMATION);
        break;
    default:
        break;
    }
}

void MainWindow::AskForFiles()
{
    VostelFileRequest request;
    request.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT;
    request.Filter = Wide(OpenFilter()).c_str();
    std::vector<CString> chosen;
    if (!AskForFileNames(Window, request, chosen))
        return;
    std::vector<std::wstring> paths;
    for (const CString& path : chosen)
        paths.push_back(path.GetString());
    OpenFiles(paths, Current);
}

void MainWindow::OpenFiles(const std::vector<std::wstring>& paths, int canvas)
{
    if (paths.empty())
        return;
    if (Job.IsRunning()) {
        ShowProblem(L"A routine is under way. Press Esc to stop it first.");
        return;
    }
    if (paths.size() > 1)
        ShowTiled(true);
    for (std::size_t i = 0; i < paths.size() && i < CanvasCount; ++i)
        OpenOne(paths[i], (canvas + static_cast<int>(i)) % CanvasCount);
    SelectCanvas(canvas);
}

void MainWindow::OpenOne(const std::wstring& path, int canvas)
{
    wchar_t            whole[MAX_PATH] = L"";
    const DWORD        length = GetFullPathNameW(path.c_str(), MAX_PATH, whole, nullptr);
    const std::wstring file = length > 0 && length < MAX_PATH ? whole : path;
    TessikDialogs      answered;
    if (!AskLayout(file, answered))
        return;
    gDlgSetDialogs(answered);
    const char* const problem = OpenFile(canvas, file.c_str());
    gDlgSetDialogs({});
    std::wstring& shown = Files[static_cast<std::size_t>(canvas)];
    Canvases[static_cast<std::size_t>(canvas)].Repaint();
    if (gCVSGetFileType(canvas) != FileTypeNone && !problem) {
        shown = file;
        Settings.AddRecentFile(file);
        Status.ShowHint(L"Control and the wheel zoom, Control and a drag move the image.");
    } else if (gCVSGetFileType(canvas) == FileTypeNone) {
        shown.clear();
    }
    if (problem) {
        Settings.RemoveRecentFile(file);
        ShowProblem(file + L"\n\n" + Wide(problem));
    }
    ShowRecentFiles(Bar, Settings.RecentFiles());
}

void MainWindow::AskForTextLines()
{
    TextLinesDialog dialog(LastLines);
    if (!dialog.Ask(Window))
        return;
    LastLines = dialog.Text;
    AddTextLines(Current, LastLines.c_str());
}

void MainWindow::AskForRoutine(const Routine& routine)
{
    std::vector<int> seconds;
    for (int canvas = 0; canvas < CanvasCount; ++canvas)
        if (canvas != Current && gCVSGetFileType(canvas) != FileTypeNone)
            seconds.push_back(canvas);
    if (routine.Input == RoutineInput::Two && seconds.empty()) {
        ShowProblem(L"Open the second image on another canvas first.");
        return;
    }
    std::vector<double> values =
        DefaultValues(routine, gCVSGetCanvasWidth(Current), gCVSGetCanvasHeight(Current));
    if (const auto last = LastValues.find(routine.Id); last != LastValues.end())
        values = last->second;
    int second = -1;
    if (!values.empty() || routine.Input == RoutineInput::Two) {
        RoutineDialog dialog(routine, values, seconds);
        if (!dialog.Ask(Window))
            return;
        values = LastValues[routine.Id] = dialog.Values;
        second = dialog.Second;
    }
    Status.ShowHint(Wide(routine.Title) + L" is under way. Esc stops it.");
    ShowRoutineProgress(Current, true);
    Job.Start(Window, routine, TakeInputs(routine, Current, second), values, Current);
}

void MainWindow::OnRoutineProgress(int done, int total)
{
    if (!Job.IsRunning())
        return;
    SetRoutineProgress(Job.Canvas(), done, total);
    Canvases[static_cast<std::size_t>(Job.Canvas())].Repaint();
}

void MainWindow::OnRoutineFinished()
{
    if (!Job.IsRunning())    // it was stopped meanwhile
        return;
    const RoutineResult result = Job.Take();
    const std::wstring  title = Wide(Job.What()->Title);
    ShowRoutineProgress(Job.Canvas(), false);
    if (result.Result) {
        ShowResult(Job.Canvas(), result.Result);
        Status.ShowHint(title + L" is done. Ctrl+Z brings the image before back.");
    } else {
        Status.ShowHint(title +
                        (result.Cancelled ? L" was stopped; the image stays as it is." : L" failed."));
    }
    Canvases[static_cast<std::size_t>(Job.Canvas())].Repaint();
    AfterChange();
    if (result.Problem)
        ShowProblem(title + L"\n\n" + Wide(result.Problem));
}

void MainWindow::ShowProblem(const std::wstring& sentence)
{
    MessageBoxW(Window, sentence.c_str(), L"Vostel viewer", MB_OK | MB_ICONWARNING);
}

void MainWindow::AfterChange()
{
    CurrentCanvas().Repaint();
    Status.ShowCanvas(Current, Files[static_cast<std::size_t>(Current)]);
    ShowTitle();
}

}
