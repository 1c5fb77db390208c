#include "CanvasWindow.h"

#include "MessageHandler.h"

#include <windowsx.h>

#include <algorithm>

namespace vostel::viewer {

namespace {

const wchar_t* const ClassName = L"VostelCanvas";
constexpr UINT_PTR   Timer = 1;
constexpr UINT       TimerPeriod = 100;    // ms

}

bool CanvasWindow::RegisterWindowClass()
{
    WNDCLASSEXW kind = {};
    kind.cbSize = sizeof kind;
    // The canvas keeps the context that it was given, so that the window needs one of its own.
    kind.style = CS_OWNDC;
    kind.lpfnWndProc = MessageHandler<CanvasWindow>;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_CROSS));
    kind.lpszClassName = ClassName;
    return RegisterClassExW(&kind) != 0;
}

void CanvasWindow::Create(HWND owner, int canvas)
{
    Number = canvas;
    CreateWindowExW(0, ClassName, nullptr, WS_CHILD, 0, 0, 0, 0, owner, nullptr, GetModuleHandleW(nullptr),
                    this);
}

void CanvasWindow::Place(const RECT& rect, bool shown)
{
    const UINT flags =
        static_cast<UINT>(SWP_NOZORDER | SWP_NOACTIVATE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    SetWindowPos(Window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags);
}

void CanvasWindow::RunTimer(bool on)
{
    if (on)
        SetTimer(Window, Timer, TimerPeriod, nullptr);
    else
        KillTimer(Window, Timer);
}

void CanvasWindow::Attach(HWND window)
{
    Window = window;
    Context = GetDC(window);
}

LRESULT CanvasWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        OnSize(LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_PAINT:
        OnPaint();
        return 0;
    case WM_ERASEBKGND:    // a frame covers the whole window
        return 1;
    case WM_LBUTTONDOWN:
        SetFocus(Window);
        SetCapture(Window);
        if (OnActivate)
            OnActivate(*this);
        OnMouse(message, wParam, lParam);
        return 0;
    case WM_LBUTTONUP:
        OnMouse(message, wParam, lParam);
        ReleaseCapture();
        return 0;
    case WM_MOUSEMOVE:
        OnMouse(message, wParam, lParam);
        return 0;
    case WM_MOUSEWHEEL:
        return OnWheel(wParam, lParam);
    case WM_KEYDOWN:
        // Keys with Control are commands; the canvas would take them for its plain letters.
        if (GetKeyState(VK_CONTROL) >= 0 && (!TakesKey || TakesKey(static_cast<UINT>(wParam)))) {
            Respond(message, wParam, lParam);
            Repaint();
        }
        return 0;
    case WM_TIMER:
        gCVSOnTimer(Number, wParam);
        return 0;
    case WM_DESTROY: {
        CRect client(0, 0, gCVSGetClientWidth(Number), gCVSGetClientHeight(Number));
        gCVSSetClient(Number, client, nullptr);    // the context ends with the window
        return 0;
    }
    default:
        return DefWindowProcW(Window, message, wParam, lParam);
    }
}

void CanvasWindow::OnSize(int width, int height)
{
    if (width == 0 || height == 0)
        return;
    CRect client(0, 0, width, height);
    gCVSSetClient(Number, client, Context);
    Repaint();
    if (OnArea)
        OnArea(*this);
}

void CanvasWindow::OnPaint()
{
    PAINTSTRUCT paint = {};
    BeginPaint(Window, &paint);
    gCVSOnDraw(Number, paint.hdc);
    EndPaint(Window, &paint);
}

void CanvasWindow::OnMouse(UINT message, WPARAM wParam, LPARAM lParam)
{
    // The canvas reads coordinates without a sign: a captured mouse stays at the edge that it left by.
    RECT client = {};
    GetClientRect(Window, &client);
    const int x = std::clamp(GET_X_LPARAM(lParam), 0, std::max(static_cast<int>(client.right) - 1, 0));
    const int y = std::clamp(GET_Y_LPARAM(lParam), 0, std::max(static_cast<int>(client.bottom) - 1, 0));
    Respond(message, wParam, MAKELPARAM(x, y));
    if (message == WM_MOUSEMOVE && (wParam & MK_CONTROL) && (wParam & MK_LBUTTON) && OnDragged)
        OnDragged(*this);
    if (OnCursor)
        OnCursor(*this, CPoint(x, y));
}

LRESULT CanvasWindow::OnWheel(WPARAM wParam, LPARAM lParam)
{
    // The wheel comes to the window with the focus; it means the one under the cursor.
    const POINT screen = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const HWND  under = WindowFromPoint(screen);
    wchar_t     name[32] = L"";
    if (under != Window && under && GetClassNameW(under, name, 32) > 0 && lstrcmpW(name, ClassName) == 0 &&
        GetParent(under) == GetParent(Window))
        return SendMessageW(under, WM_MOUSEWHEEL, wParam, lParam);
    Respond(WM_MOUSEWHEEL, wParam, lParam);
    if ((wParam & MK_CONTROL) && OnDragged)
        OnDragged(*this);
    POINT client = screen;
    ScreenToClient(Window, &client);
    if (OnCursor)
        OnCursor(*this, CPoint(client.x, client.y));
    return 0;
}

void CanvasWindow::Respond(UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG event = {};
    event.hwnd = Window;
    event.message = message;
    event.wParam = wParam;
    event.lParam = lParam;
    gCVSRespondToMessage(&event, Number);
}

}
