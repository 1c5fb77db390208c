#include "MainWindow.h"

#include "CommandMenu.h"
#include "FileDialogs.h"
#include "MessageHandler.h"
#include "ParameterDialogs.h"

#include <commctrl.h>
#include <shellapi.h>

namespace vostel::viewer {

namespace {

const wchar_t* const ClassName = L"VostelViewer";

constexpr int FrameWidth = 3;    // px round a canvas when several show

Language LanguageOfSystem()
{
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_CHINESE ? Language::Chinese : Language::English;
}

bool RegisterWindowClass(WNDPROC procedure)
{
    WNDCLASSEXW kind = {};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = procedure;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hIcon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    kind.lpszClassName = ClassName;
    return RegisterClassExW(&kind) != 0;
}

}

bool MainWindow::Create(int show)
{
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    if (!RegisterWindowClass(MessageHandler<MainWindow>) || !CanvasWindow::RegisterWindowClass())
        return false;
    Accelerators = MakeAccelerators();
    if (!CreateWindowExW(WS_EX_ACCEPTFILES, ClassName, Session.Text(ViewerName).c_str(),
                         WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 1100, 800,
                         nullptr, nullptr, GetModuleHandleW(nullptr), this))
        return false;
    WINDOWPLACEMENT placement = {};
    if (show == SW_SHOWDEFAULT && Settings.LoadPlacement(placement))
        SetWindowPlacement(Window, &placement);
    else
        ShowWindow(Window, show);
    return true;
}

int MainWindow::Run()
{
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(Window, Accelerators, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

LRESULT MainWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        CreateParts();
        return 0;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            Layout();
        return 0;
    case WM_PAINT:
        PaintFrames();
        return 0;
    case WM_SETFOCUS:
        SetFocus(CurrentCanvas().Handle());
        return 0;
    case WM_INITMENUPOPUP:
        RefreshMenu(
            reinterpret_cast<HMENU>(wParam), [this](Command id) { return Session.IsEnabled(id); },
            [this](Command id) { return Session.IsChecked(id); },
            [this](Command id) { return Session.TextOf(id); });
        return 0;
    case WM_MENUSELECT:
        OnMenuSelect(wParam);
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case WM_DROPFILES:
        OnDropFiles(reinterpret_cast<HDROP>(wParam));
        return 0;
    case CallQueue::Message:
        Posted.Run();
        return 0;
    case WM_QUERYENDSESSION:
        return Session.MayClose() ? TRUE : FALSE;
    case WM_CLOSE:
        if (!Session.MayClose())
            return 0;
        Session.CancelRoutine();    // its end is waited for when the window is gone from the screen
        Settings.SavePlacement(Window);
        DestroyWindow(Window);
        return 0;
    case WM_DESTROY:
        gSetHostServices({});
        gDlgSetDialogs({});
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(Window, message, wParam, lParam);
    }
}

void MainWindow::CreateParts()
{
    VostelHostServices services;
    services.ChooseFiles = [this](const VostelFileRequest& request, std::vector<CString>& paths) {
        if (!AskForFileNames(Window, request, paths))
            return false;
        if (request.Save)
            paths.front() = Session.NameToSave(paths.front().GetString()).c_str();
        return true;
    };
    services.ShowMessage = [this](const CString& text) { Session.ShowMessage(CString(text).GetString()); };
    gSetHostServices(services);
    Dialogs = ParameterDialogs(
        Window, Settings, [this] { return Session.Speaks(); },
        [this](double length) { Session.TakePixelLength(length); });
    gDlgSetDialogs(Dialogs);

    Status.Create(Window);
    for (int canvas = 0; canvas < CanvasCount; ++canvas) {
        ConnectCanvas(CanvasAt(canvas));
        CanvasAt(canvas).Create(Window, canvas);
    }
    const std::optional<Language> kept = Wanted ? Wanted : Settings.LoadLanguage();
    Session.Speak(kept.value_or(LanguageOfSystem()));
    Status.ShowHint(
        Session.Text(Words("Open a picture with Ctrl+O, or drop one here. F1 shows how the mouse works.")));
}

void MainWindow::ConnectCanvas(CanvasWindow& window)
{
    window.OnActivate = [this](CanvasWindow& pressed) { Session.SelectCanvas(pressed.Canvas()); };
    window.OnCursor = [this](CanvasWindow& under, CPoint client) {
        Status.ShowCursor(under.Canvas(), client);
    };
    window.OnArea = [this](CanvasWindow& sized) { Session.OnAreaChanged(sized.Canvas()); };
    window.TakesKey = [this](UINT virtualKey) { return Session.ForwardsKey(virtualKey); };
    window.OnDragged = [this](CanvasWindow& dragged) { Session.OnViewDragged(dragged.Canvas()); };
}

RECT MainWindow::CellOf(int canvas) const
{
    RECT client = {};
    GetClientRect(Window, &client);
    const int width = static_cast<int>(client.right),
              height = static_cast<int>(client.bottom) - Status.Height();
    if (!Session.IsTiled())
        return {0, 0, width, height};
    // Two above, three below.
    const int columns = canvas < 2 ? 2 : 3, column = canvas < 2 ? canvas : canvas - 2;
    const int top = canvas < 2 ? 0 : height / 2, bottom = canvas < 2 ? height / 2 : height;
    return {width * column / columns, top, width * (column + 1) / columns, bottom};
}

void MainWindow::Layout()
{
    Status.Layout();
    for (int canvas = 0; canvas < CanvasCount; ++canvas) {
        RECT cell = CellOf(canvas);
        if (Session.IsTiled())
            InflateRect(&cell, -FrameWidth, -FrameWidth);
        CanvasAt(canvas).Place(cell, Session.IsTiled() || canvas == Session.Current());
    }
    InvalidateRect(Window, nullptr, TRUE);
}

void MainWindow::PaintFrames()
{
    PAINTSTRUCT paint = {};
    const HDC   dc = BeginPaint(Window, &paint);
    if (Session.IsTiled()) {
        const RECT cell = CellOf(Session.Current());
        FillRect(dc, &cell, GetSysColorBrush(COLOR_HIGHLIGHT));    // the canvas window covers its middle
    }
    EndPaint(Window, &paint);
}

void MainWindow::OnCommand(UINT number)
{
    if (number >= FirstRecentFile) {
        const std::vector<std::wstring> files = Session.RecentFiles();
        if (number - FirstRecentFile < files.size())
            Session.OpenFiles({files[number - FirstRecentFile]});
        return;
    }
    const Command id = static_cast<Command>(number);
    Session.Carry(id);
    if (id == Command::ContrastSlider)
        CurrentCanvas().RunTimer(Session.IsChecked(id));
}

void MainWindow::OnDropFiles(HDROP drop)
{
    std::vector<std::wstring> paths;
    const UINT                count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        paths.push_back(path);
    }
    POINT point = {};
    DragQueryPoint(drop, &point);
    DragFinish(drop);
    int target = Session.Current();
    for (int canvas = 0; Session.IsTiled() && canvas < CanvasCount; ++canvas) {
        const RECT cell = CellOf(canvas);
        if (PtInRect(&cell, point))
            target = canvas;
    }
    SetForegroundWindow(Window);
    Session.SelectCanvas(target);
    Session.OpenFiles(paths);
}

void MainWindow::OnMenuSelect(WPARAM wParam)
{
    const CommandEntry* const entry = FindCommand(static_cast<Command>(LOWORD(wParam)));
    const bool                isCommand = entry && !(HIWORD(wParam) & (MF_POPUP | MF_SEPARATOR));
    Status.ShowHint(isCommand ? Session.Text(entry->Hint) : std::wstring());
}

}
