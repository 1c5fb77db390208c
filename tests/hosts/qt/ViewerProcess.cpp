#include "ViewerProcess.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

ViewerProcess::ViewerProcess(const TempFolder& home, const std::vector<std::string>& arguments,
                             const Environment& environment)
    : Log(home.Path("stderr.txt"))
{
    std::vector<std::string> words = {VOSTEL_VIEWER};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    Environment settings = {{"DISPLAY", Desk().Name()},
                            {"HOME", home.Path()},
                            {"XDG_CONFIG_HOME", home.Path("config")},
                            {"XDG_RUNTIME_DIR", home.Path()},
                            {"QT_QPA_PLATFORM", "xcb"},
                            {"QT_STYLE_OVERRIDE", "Fusion"},
                            {"LC_ALL", "C.UTF-8"},
                            {"LANGUAGE", "en"},
                            {"LSAN_OPTIONS", VOSTEL_QT_LSAN_OPTIONS}};
    for (const auto& [name, value] : environment)
        settings[name] = value;
    Process = fork();
    if (Process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (const auto& [name, value] : settings)
            setenv(name.c_str(), value.c_str(), 1);
        const int log = open(Log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(log, STDERR_FILENO);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    Desk().Watch(Process);
    Up = WaitForWindows(1);
    if (Up)
        Desk().Settled();
}

ViewerProcess::~ViewerProcess()
{
    if (Process <= 0)
        return;
    Desk().Watch(-1);
    kill(Process, SIGKILL);
    waitpid(Process, nullptr, 0);
}

bool ViewerProcess::WaitForWindows(int count)
{
    return XScreen::Wait([count] { return Desk().WindowCount() == count; });
}

int ViewerProcess::Quit()
{
    Desk().Key("ctrl+q");
    return WaitForEnd();
}

int ViewerProcess::WaitForEnd()
{
    int        status = 0;
    const bool ended = XScreen::Wait([&] { return waitpid(Process, &status, WNOHANG) == Process; }, 60000);
    if (!ended)
        return -1;
    Process = -1;
    Desk().Watch(-1);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -2;
}

std::string ViewerProcess::Complaints() const
{
    std::ifstream log(Log);
    std::string   line, text;
    while (std::getline(log, line))
        if (line.find("QStandardPaths") == std::string::npos &&
            line.find("propagateSizeHints") == std::string::npos)
            text += line + '\n';
    return text;
}

bool ViewerProcess::OpenDialog(const char* menu, const char* entry)
{
    const int before = Desk().WindowCount();
    Desk().Key(menu);
    Desk().Settled();    // the menu has taken the keyboard
    Desk().Key(entry);
    const bool up = WaitForWindows(before + 1);
    Desk().Settled();
    return up;
}

bool ViewerProcess::OpenDialog(const char* shortcut)
{
    const int before = Desk().WindowCount();
    Desk().Key(shortcut);
    const bool up = WaitForWindows(before + 1);
    Desk().Settled();
    return up;
}

bool ViewerProcess::AnswerDialog(const std::string& text)
{
    const int before = Desk().WindowCount();
    if (!text.empty())
        Desk().Type(text);
    Desk().Key("Return");
    const bool gone = WaitForWindows(before - 1);
    Desk().Settled();
    return gone;
}
