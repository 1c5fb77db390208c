#pragma once

#include "hosts/screen/Picture.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct _XDisplay;

// A screen of its own, made by Xvfb, with a mouse and a keyboard that a test moves: what it does reaches
// programs through the window system. There is no window manager; the topmost window gets the keys.
class XScreen {
public:
    static constexpr int Width = 1400, Height = 900;    // px

    XScreen();
    ~XScreen();
    XScreen(const XScreen&) = delete;
    XScreen& operator=(const XScreen&) = delete;

    bool        IsUp() const { return Server != nullptr; }
    std::string Name() const;    // for DISPLAY

    // Top windows that are on the screen, menus and tips left out.
    int         WindowCount() const;
    std::string TopTitle() const;

    Picture Grab() const;
    Picture Grab(int x, int y, int width, int height) const;
    // What the screen shows once nothing changes any more and the watched program waits for events.
    Picture Settled() const;
    void    Watch(int process) { Watched = process; }

    void Move(Place to);
    // Buttons: 1 left, 2 middle, 3 right.
    void Click(Place at, unsigned button = 1);
    void Drag(Place from, Place to);
    void DragAlong(const std::vector<Place>& path, unsigned button = 1);    // in steps from place to place
    void Press(Place at);    // the left button, held until it is lifted
    void Lift();
    void Wheel(int steps);    // up is positive
    void Hold(const char* key);
    void Release(const char* key);
    void Key(std::string_view chord);    // "Return", "ctrl+shift+s", "alt+f"
    void Type(std::string_view text);    // ASCII
    void FocusTop();                     // gives the topmost window the keys, as Key and Type do before

    // Drags a file from another program over the topmost window and drops it; false when it is not taken.
    bool Drop(const std::string& path, Place at);

    // Waits until it is so; false when it takes too long.
    static bool Wait(const std::function<bool()>& condition, int milliseconds = 20000);

private:
    unsigned long TopWindow() const;    // 0 when there is none

    bool WatchedSleeps() const;

    void Send();

    _XDisplay* Server = nullptr;
    int        Process = -1;
    int        Watched = -1;
    int        Number = -1;
};

// The screen of this test program.
XScreen& Desk();
