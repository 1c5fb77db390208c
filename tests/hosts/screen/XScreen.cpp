#include "hosts/screen/XScreen.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>
#include <vector>

namespace {

void Pause(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// Windows come and go between a look at the list and a look at one of them.
int IgnoreError(Display*, XErrorEvent*)
{
    return 0;
}

KeySym SymOf(std::string_view name)
{
    if (name == "ctrl")
        return XK_Control_L;
    if (name == "shift")
        return XK_Shift_L;
    if (name == "alt")
        return XK_Alt_L;
    return XStringToKeysym(std::string(name).c_str());
}

std::vector<Window> Tops(Display* server)
{
    Window              root = 0, parent = 0;
    Window*             children = nullptr;
    unsigned            count = 0;
    std::vector<Window> tops;
    if (!XQueryTree(server, DefaultRootWindow(server), &root, &parent, &children, &count))
        return tops;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(server, children[i], &attributes) && attributes.map_state == IsViewable &&
            !attributes.override_redirect && attributes.c_class == InputOutput && attributes.width > 1)
            tops.push_back(children[i]);
    }
    if (children)
        XFree(children);
    return tops;
}

}

XScreen::XScreen()
{
    int channel[2];
    if (pipe(channel) != 0)
        return;
    Process = fork();
    if (Process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(channel[0]);
        const std::string descriptor = std::to_string(channel[1]);
        const std::string size = std::to_string(Width) + "x" + std::to_string(Height) + "x24";
        freopen("/dev/null", "w", stderr);
        execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", size.c_str(), "-nolisten",
               "tcp", "-noreset", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(channel[1]);
    std::string number;
    char        character = 0;
    while (read(channel[0], &character, 1) == 1 && character != '\n')
        number += character;
    close(channel[0]);
    if (number.empty())
        return;
    Number = std::atoi(number.c_str());
    XSetErrorHandler(IgnoreError);
    Server = XOpenDisplay(Name().c_str());
}

XScreen::~XScreen()
{
    if (Server)
        XCloseDisplay(Server);
    if (Process > 0) {
        kill(Process, SIGTERM);
        waitpid(Process, nullptr, 0);
    }
}

std::string XScreen::Name() const
{
    std::string name(1, ':');
    name.append(std::to_string(Number));
    return name;
}

bool XScreen::Wait(const std::function<bool()>& condition, int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        Pause(10);
    }
    return true;
}

int XScreen::WindowCount() const
{
    return static_cast<int>(Tops(Server).size());
}

unsigned long XScreen::TopWindow() const
{
    const std::vector<Window> tops = Tops(Server);
    return tops.empty() ? 0 : tops.back();
}

std::string XScreen::TopTitle() const
{
    const Window top = TopWindow();
    if (top == 0)
        return {};
    XTextProperty property = {};
    std::string   title;
    if (XGetTextProperty(Server, top, &property, XInternAtom(Server, "_NET_WM_NAME", False)) &&
        property.value)
        title.assign(reinterpret_cast<const char*>(property.value), property.nitems);
    if (property.value)
        XFree(property.value);
    return title;
}

Picture XScreen::Grab() const
{
    return Grab(0, 0, Width, Height);
}

Picture XScreen::Grab(int x, int y, int width, int height) const
{
    Picture       picture(width, height);
    XImage* const image = XGetImage(Server, DefaultRootWindow(Server), x, y, static_cast<unsigned>(width),
                                    static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image)
        return {};
    for (int row = 0; row < height; ++row) {
        const auto* source = reinterpret_cast<const unsigned*>(image->data + row * image->bytes_per_line);
        for (int column = 0; column < width; ++column)
            picture.At(column, row) = source[column] & 0xFFFFFF;
    }
    XDestroyImage(image);
    return picture;
}

Picture XScreen::Settled() const
{
    constexpr int Calm = 90, Patience = 60;    // ms, tries
    Picture       before = Grab();
    for (int i = 0; i < Patience; ++i) {
        Pause(Calm);
        Picture now = Grab();
        if (now == before && WatchedSleeps())
            break;
        before = std::move(now);
    }
    return before;
}

// On a busy machine a program that has not had its turn yet is ready to run, and not asleep.
bool XScreen::WatchedSleeps() const
{
    std::ifstream stat("/proc/" + std::to_string(Watched) + "/stat");
    std::string   line;
    if (Watched < 0 || !std::getline(stat, line))
        return true;
    const std::size_t state = line.rfind(')') + 2;
    return state < line.size() && line[state] != 'R' && line[state] != 'D';
}

void XScreen::Send()
{
    XSync(Server, False);
    Pause(12);    // the program sees the steps one by one, as it would a person's
}

void XScreen::FocusTop()
{
    const Window top = TopWindow();
    Window       focus = 0;
    int          revert = 0;
    XGetInputFocus(Server, &focus, &revert);
    if (top == 0 || focus == top)
        return;
    XSetInputFocus(Server, top, RevertToPointerRoot, CurrentTime);
    XSync(Server, False);
    Pause(60);
}

void XScreen::Move(Place to)
{
    XTestFakeMotionEvent(Server, -1, to.X, to.Y, CurrentTime);
    Send();
}

void XScreen::Click(Place at, unsigned button)
{
    Move(at);
    XTestFakeButtonEvent(Server, button, True, CurrentTime);
    Send();
    XTestFakeButtonEvent(Server, button, False, CurrentTime);
    Send();
}

void XScreen::Drag(Place from, Place to)
{
    DragAlong({from, to});
}

void XScreen::DragAlong(const std::vector<Place>& path, unsigned button)
{
    constexpr int Steps = 6;
    Move(path.front());
    XTestFakeButtonEvent(Server, button, True, CurrentTime);
    Send();
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Place from = path[i - 1], to = path[i];
        for (int step = 1; step <= Steps; ++step)
            Move({from.X + (to.X - from.X) * step / Steps, from.Y + (to.Y - from.Y) * step / Steps});
    }
    XTestFakeButtonEvent(Server, button, False, CurrentTime);
    Send();
}

void XScreen::Press(Place at)
{
    Move(at);
    XTestFakeButtonEvent(Server, 1, True, CurrentTime);
    Send();
}

void XScreen::Lift()
{
    XTestFakeButtonEvent(Server, 1, False, CurrentTime);
    Send();
}

void XScreen::Wheel(int steps)
{
    const unsigned button = steps > 0 ? 4 : 5;
    for (int step = 0; step < std::abs(steps); ++step) {
        XTestFakeButtonEvent(Server, button, True, CurrentTime);
        XTestFakeButtonEvent(Server, button, False, CurrentTime);
        Send();
    }
}

void XScreen::Hold(const char* key)
{
    FocusTop();
    XTestFakeKeyEvent(Server, XKeysymToKeycode(Server, SymOf(key)), True, CurrentTime);
    Send();
}

void XScreen::Release(const char* key)
{
    XTestFakeKeyEvent(Server, XKeysymToKeycode(Server, SymOf(key)), False, CurrentTime);
    Send();
}

void XScreen::Key(std::string_view chord)
{
    FocusTop();
    std::vector<KeyCode> codes;
    while (!chord.empty()) {
        const std::size_t plus = chord.find('+');
        codes.push_back(XKeysymToKeycode(Server, SymOf(chord.substr(0, plus))));
        chord = plus == std::string_view::npos ? std::string_view() : chord.substr(plus + 1);
    }
    for (const KeyCode code : codes)
        XTestFakeKeyEvent(Server, code, True, CurrentTime);
    for (std::size_t i = codes.size(); i-- > 0;)
        XTestFakeKeyEvent(Server, codes[i], False, CurrentTime);
    Send();
}

void XScreen::Type(std::string_view text)
{
    FocusTop();
    const KeyCode shift = XKeysymToKeycode(Server, XK_Shift_L);
    for (const char character : text) {
        const KeySym  sym = static_cast<unsigned char>(character);    // Latin-1 is its own keysym
        const KeyCode code = XKeysymToKeycode(Server, sym);
        const bool    shifted = XkbKeycodeToKeysym(Server, code, 0, 0) != sym;
        if (shifted)
            XTestFakeKeyEvent(Server, shift, True, CurrentTime);
        XTestFakeKeyEvent(Server, code, True, CurrentTime);
        XTestFakeKeyEvent(Server, code, False, CurrentTime);
        if (shifted)
            XTestFakeKeyEvent(Server, shift, False, CurrentTime);
    }
    Send();
}

XScreen& Desk()
{
    static XScreen screen;
    return screen;
}
