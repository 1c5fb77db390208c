#pragma once

#include "hosts/screen/XScreen.h"
#include "support/TempFolder.h"

#include <map>
#include <string>
#include <vector>

// A vostel-viewer on the test's screen, with a home folder and settings of its own.
class ViewerProcess {
public:
    using Environment = std::map<std::string, std::string>;

    // home: shared by runs that are to remember each other. Waits for the window.
    ViewerProcess(const TempFolder& home, const std::vector<std::string>& arguments,
                  const Environment& environment = {});
    ~ViewerProcess();    // ends it the hard way if it still runs
    ViewerProcess(const ViewerProcess&) = delete;
    ViewerProcess& operator=(const ViewerProcess&) = delete;

    bool IsUp() const { return Up; }

    // By its shortcut. The exit code; -1 when it does not end, -2 when a signal ended it.
    int Quit();
    int WaitForEnd();

    // What it wrote to standard error beyond the toolkit's chatter.
    std::string Complaints() const;

    // Presses a menu entry: the keys of the menu and of the entry ("alt+f", "8"). Waits until a dialog is up.
    bool OpenDialog(const char* menu, const char* entry);
    bool OpenDialog(const char* shortcut);
    // Types into the dialog that is up, confirms it and waits until it is gone.
    bool AnswerDialog(const std::string& text);

private:
    bool WaitForWindows(int count);

    int         Process = -1;
    bool        Up = false;
    std::string Log;
};

inline constexpr unsigned Red = 0xFF0000, Blue = 0x0000FF;
