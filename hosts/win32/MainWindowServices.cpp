// What the session asks of the main window: dialogs, messages and settings.

#include "MainWindow.h"

#include "CommandMenu.h"
#include "FileDialogs.h"
#include "MeasuresDialog.h"
#include "RoutineDialog.h"
#include "TextDialogs.h"
#include "commands/Utf8Text.h"
#include "common/CanvasFacts.h"

#include <utility>

namespace vostel::viewer {

using namespace hosts;

namespace {

// While it lives the library gets this layout when it asks how a raw file lies.
class GivenLayout {
public:
    GivenLayout(const tagZEKImaLoadPara& layout, const TessikDialogs& before) : Before(before)
    {
        TessikDialogs dialogs = before;
        dialogs.ImaLoadPara = [layout](tagZEKImaLoadPara& para) {
            para = layout;
            return true;
        };
        gDlgSetDialogs(dialogs);
    }
    ~GivenLayout() { gDlgSetDialogs(Before); }
    GivenLayout(const GivenLayout&) = delete;
    GivenLayout& operator=(const GivenLayout&) = delete;

private:
    const TessikDialogs& Before;
};

bool ReadWithLayout(const std::wstring& path, const TessikDialogs& dialogs, const std::function<void()>& read)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool  isFile = attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    if (!isFile || !IsRawFile(path.c_str())) {
        read();
        return true;
    }
    tagZEKImaLoadPara layout;
    if (!gDlgGetImaLoadPara(layout))
        return false;
    const GivenLayout given(layout, dialogs);
    read();
    return true;
}

}

ViewerWindow MainWindow::Services()
{
    ViewerWindow window;
    window.Post = [this](std::function<void()> call) { Posted.Post(Window, std::move(call)); };
    window.Arrange = [this] {
        Layout();
        SetFocus(CurrentCanvas().Handle());
    };
    window.Repaint = [this](int canvas) { Repaint(canvas); };
    window.ShowState = [this] { ShowState(); };
    window.ShowTexts = [this] { ShowTexts(); };
    window.ShowStatus = [this](const std::wstring& text) { Status.ShowHint(text); };
    window.Report = [this](const std::wstring& sentences) { Report(sentences); };
    window.ShowHelp = [this] { GesturesDialog(Session.Speaks()).Ask(Window); };
    window.ShowAbout = [this] { ShowAbout(); };
    window.Close = [this] { PostMessageW(Window, WM_CLOSE, 0, 0); };
    window.AskFiles = [this] { return AskFiles(); };
    window.AskTextLines = [this](std::wstring& lines) { return AskTextLines(lines); };
    window.AskRoutine = [this](RoutineQuestion& question) { return AskRoutine(question); };
    window.AskSavePath = [this](const SaveQuestion& question) { return AskSavePath(question); };
    window.AskToKeep = [this](const std::wstring& sentence) { return AskToKeep(sentence); };
    window.ShowMeasures = [this](int canvas, const MeasureTable& measures) {
        MeasuresDialog(measures, Session.Speaks(), WideOf(MeasuresAs(canvas, "tsv")), [this, canvas] {
            Session.SaveMeasureTable(canvas);
        }).Show(Window);
    };
    window.ReadFile = [this](int, const std::wstring& path, const std::function<void()>& read) {
        return ReadWithLayout(path, Dialogs, read);
    };
    return window;
}

ViewerSettings MainWindow::Kept()
{
    ViewerSettings settings;
    settings.LoadRecentFiles = [this] { return Settings.LoadRecentFiles(); };
    settings.SaveRecentFiles = [this](const std::vector<std::wstring>& newest) {
        Settings.SaveRecentFiles(newest);
        ShowRecentFiles(Bar, newest, Session.Speaks());
    };
    settings.SaveLanguage = [this](Language language) { Settings.SaveLanguage(language); };
    settings.LoadValue = [this](const Routine& routine, const RoutineParameter& parameter) {
        return Settings.LoadValue(routine, parameter);
    };
    settings.SaveValue = [this](const Routine& routine, const RoutineParameter& parameter, double value) {
        Settings.SaveValue(routine, parameter, value);
    };
    return settings;
}

void MainWindow::Repaint(int canvas)
{
    CanvasAt(canvas).Repaint();
    if (canvas == Session.Current())
        Status.ShowCanvas(canvas, Session.FileNameOf(canvas));
}

void MainWindow::ShowState()
{
    const int          canvas = Session.Current();
    const std::wstring file = Session.FileNameOf(canvas);
    Status.ShowCanvas(canvas, file);
    std::wstring title = Filled(Session.Text(Words("Canvas %1")), {std::to_wstring(canvas + 1)}) + L" - " +
                         Session.Text(ViewerName);
    if (!file.empty())
        title = file + L" - " + title;
    SetWindowTextW(Window, title.c_str());
}

void MainWindow::ShowTexts()
{
    const HMENU before = std::exchange(Bar, MakeMenuBar(Session.Speaks()));
    ShowRecentFiles(Bar, Session.RecentFiles(), Session.Speaks());
    SetMenu(Window, Bar);
    if (before)
        DestroyMenu(before);
    Status.SetLanguage(Session.Speaks());
    for (const CanvasWindow& canvas : Canvases)
        canvas.Repaint();    // captions
}

void MainWindow::Report(const std::wstring& sentences)
{
    MessageBoxW(Front(), sentences.c_str(), Session.Text(ViewerName).c_str(), MB_OK | MB_ICONWARNING);
}

void MainWindow::ShowAbout()
{
    const std::wstring text = Session.Text(ViewerName) + L" " + VIEWER_VERSION + L"\n\n" +
                              Session.Text(Words("Shows, marks and measures images."));
    MessageBoxW(Window, text.c_str(), Session.Text(Words("About")).c_str(), MB_OK | MB_ICONINFORMATION);
}

std::vector<std::wstring> MainWindow::AskFiles()
{
    VostelFileRequest request;
    request.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_ALLOWMULTISELECT;
    request.Filter = OpenFilter(Session.Speaks()).c_str();
    std::vector<CString> chosen;
    if (!AskForFileNames(Window, request, chosen))
        return {};
    return std::vector<std::wstring>(chosen.begin(), chosen.end());
}

std::wstring MainWindow::AskSavePath(const SaveQuestion& question)
{
    VostelFileRequest request;
    request.Save = true;
    request.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;
    request.DefaultName = question.Name.c_str();
    request.DefaultExtension = question.Ending.c_str();
    request.Filter = question.Filter.c_str();
    std::vector<CString> chosen;
    return AskForFileNames(Front(), request, chosen) ? chosen.front().GetString() : std::wstring();
}

Keeping MainWindow::AskToKeep(const std::wstring& sentence)
{
    switch (MessageBoxW(Window, sentence.c_str(), Session.Text(ViewerName).c_str(),
                        MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return Keeping::Save;
    case IDNO:
        return Keeping::Discard;
    default:
        return Keeping::Stay;
    }
}

bool MainWindow::AskTextLines(std::wstring& lines)
{
    TextLinesDialog dialog(LastLines, Session.Speaks());
    if (!dialog.Ask(Window))
        return false;
    lines = LastLines = dialog.Entered;
    return true;
}

bool MainWindow::AskRoutine(RoutineQuestion& question)
{
    RoutineDialog dialog(question, Session.Speaks());
    if (!dialog.Ask(Window))
        return false;
    question.Values = dialog.Values;
    question.Second = dialog.Second;
    return true;
}

}
