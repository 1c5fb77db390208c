#pragma once

// The window of one canvas. It forwards messages to the library, which draws into the window's own context.

#include <VostelObj.h>

#include <functional>

namespace vostel::viewer {

class CanvasWindow {
public:
    std::function<void(CanvasWindow&)>         OnActivate;    // pressed: it becomes the current one
    std::function<void(CanvasWindow&)>         OnArea;        // it has another size
    std::function<void(CanvasWindow&)>         OnDragged;     // the person zoomed or moved the view
    std::function<void(CanvasWindow&, CPoint)> OnCursor;      // client px, after the canvas took the event

    std::function<bool(UINT virtualKey)> TakesKey;    // empty: every key

    static bool RegisterWindowClass();

    void Create(HWND owner, int canvas);
    void Place(const RECT& rect, bool shown);

    int  Canvas() const { return Number; }
    HWND Handle() const { return Window; }

    void    Attach(HWND window);    // for the class's procedure, as is the next
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

    void Repaint() const { InvalidateRect(Window, nullptr, FALSE); }
    // The slider of the canvas is the one part that takes timer ticks.
    void RunTimer(bool on);

private:
    HWND Window = nullptr;
    int  Number = 0;
    HDC  Context = nullptr;    // the window's own, for as long as it lives

    void    OnSize(int width, int height);
    void    OnPaint();
    void    OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnWheel(WPARAM wParam, LPARAM lParam);
    void    Respond(UINT message, WPARAM wParam, LPARAM lParam);
};

}
