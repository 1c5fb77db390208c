#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

// A desktop of Wine in one window that covers the screen.
std::vector<std::string> OnDesktop(std::vector<std::string> words)
{
    const std::string size = std::to_string(XScreen::Width) + "x" + std::to_string(XScreen::Height);
    words.insert(words.begin(), {"explorer", "/desktop=vostel," + size});
    return words;
}

// Starts Wine with these words; its standard output goes to a descriptor.
int StartWine(const std::vector<std::string>& words, int output)
{
    std::vector<std::string> all = {Environment("WINE")};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    for (std::string& word : all)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const std::string display = Desk().Name();
    const int         process = fork();
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        setenv("DISPLAY", display.c_str(), 1);
        dup2(output, STDOUT_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    return process;
}

// The viewer on the test's screen, which is not the process that was started; -1 if there is none.
int FindViewer()
{
    const std::string display = "DISPLAY=" + Desk().Name();
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream name(entry.path() / "comm");
        std::string   text;
        if (!std::getline(name, text) || text.compare(0, 13, "vostel-viewer") != 0)
            continue;
        std::ifstream variables(entry.path() / "environ");
        while (std::getline(variables, text, '\0'))
            if (text == display)
                return std::atoi(entry.path().filename().c_str());
    }
    return -1;
}

std::filesystem::path SettingsFolder()
{
    const std::filesystem::path users = Environment("WINEPREFIX") + "/drive_c/users";
    for (const auto& entry : std::filesystem::directory_iterator(users))
        if (entry.path().filename() != "Public")
            return entry.path() / "AppData" / "Roaming" / "VostelObj";
    return {};
}

}

WineViewer::WineViewer(const std::vector<std::string>& files, const Picture& shown,
                       const std::vector<std::string>& options)
{
    std::filesystem::remove_all(SettingsFolder());
    std::vector<std::string> words = {Environment("VOSTEL_WIN32_VIEWER")};
    words.insert(words.end(), options.begin(), options.end());
    for (const std::string& file : files)
        words.push_back(WindowsPath(file));
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    Starter = StartWine(OnDesktop(words), nowhere);
    close(nowhere);
    Up = XScreen::Wait([&] { return Find(shown, Desk().Grab()).Found(); }, 120000);
    Desk().Watch(FindViewer());
    Desk().Settled();
}

WineViewer::~WineViewer()
{
    if (Starter < 0)
        return;
    if (const int viewer = FindViewer(); viewer > 0)
        kill(viewer, SIGKILL);
    kill(Starter, SIGKILL);
    waitpid(Starter, nullptr, 0);
    Desk().Watch(-1);
}

bool WineViewer::Quit()
{
    const auto hasEnded = [this] { return waitpid(Starter, nullptr, WNOHANG) == Starter; };
    Desk().Key("ctrl+q");
    bool ended = XScreen::Wait(hasEnded, 3000);
    if (!ended) {
        Desk().Key("n");    // objects are not saved
        ended = XScreen::Wait(hasEnded, 60000);
    }
    if (ended)
        Starter = -1;
    Desk().Watch(-1);
    return ended;
}

bool WineViewer::QuitsUnasked()
{
    Desk().Key("ctrl+q");
    const bool ended = XScreen::Wait([this] { return waitpid(Starter, nullptr, WNOHANG) == Starter; });
    if (ended)
        Starter = -1;
    Desk().Watch(-1);
    return ended;
}

void WineViewer::Act(const std::function<void()>& events)
{
    const Picture before = Desk().Grab();
    events();
    XScreen::Wait([&] { return Desk().Grab() != before; }, 8000);
    Desk().Settled();
}

void WineViewer::Keys(std::initializer_list<const char*> chords)
{
    for (const char* const chord : chords)
        Act([chord] { Desk().Key(chord); });
}

void WineViewer::FileCommand(const char* mnemonic)
{
    Keys({"alt+f", mnemonic});
}

void WineViewer::Fill(std::initializer_list<std::string> fields)
{
    for (const std::string& field : fields)
        Act([&field] {
            Desk().Key("ctrl+a");
            Desk().Type(field);
            Desk().Key("Tab");
        });
}

void WineViewer::TypePath(const std::string& path)
{
    Act([&path] {
        Desk().Key("ctrl+a");
        Desk().Type(WindowsPath(path));
    });
    Keys({"Return"});
}

std::vector<std::string> WineViewer::Texts()
{
    const TempFolder  folder;
    const std::string path = folder.Path("texts.txt");
    RunUnderWine({"explorer", "/desktop=vostel", Environment("VOSTEL_WINDOW_TEXTS"), "VostelViewer",
                  WindowsPath(path)});
    REQUIRE(XScreen::Wait([&] { return std::filesystem::exists(path); }));
    std::vector<std::string> lines;
    std::ifstream            stream(path);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

bool WineViewer::Says(const std::string& kind, const std::string& words)
{
    std::vector<std::string> lines;
    const bool               said = XScreen::Wait([&] {
        lines = Texts();
        return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
            return line.compare(0, kind.size() + 1, kind + ' ') == 0 &&
                   line.find(words, kind.size() + 1) != std::string::npos;
        });
    });
    if (!said)
        for (const std::string& line : lines)
            MESSAGE(line);
    return said;
}

std::string WineViewer::Settings(const char* file)
{
    std::ifstream     stream(SettingsFolder() / file, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    std::string       text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)    // UTF-16; what is looked for is ASCII
        text += bytes[i + 1] == 0 ? bytes[i] : '?';
    return text;
}

int RunUnderWine(const std::vector<std::string>& words, std::string* output)
{
    // A file, since a pipe would stay open in the servers that Wine starts.
    const TempFolder  folder;
    const std::string path = folder.Path("output.txt");
    const int         file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    REQUIRE(file >= 0);
    const int process = StartWine(words, file);
    close(file);
    int status = 0;
    waitpid(process, &status, 0);
    if (output) {
        const std::vector<unsigned char> bytes = ReadBytes(path);
        output->assign(bytes.begin(), bytes.end());
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string WindowsPath(const std::string& path)
{
    std::string name = "Z:" + path;
    for (char& character : name)
        if (character == '/')
            character = '\\';
    return name;
}

Picture Page(int width, int height)
{
    Picture page(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool frame = x < 2 || y < 2 || x >= width - 2 || y >= height - 2;
            page.At(x, y) = frame ? Magenta : (0x30u + static_cast<unsigned>(y * 0xA0 / height)) * 0x010101u;
        }
    return page;
}

bool WaitForFile(const std::string& path)
{
    std::error_code missing;
    std::uintmax_t  size = 0;
    return XScreen::Wait([&] {
        const std::uintmax_t before = size;
        usleep(100000);
        size = std::filesystem::file_size(path, missing);
        return !missing && size > 0 && size == before;
    });
}

PageOnScreen::PageOnScreen(const std::vector<std::string>& options) : Viewer({PagePath}, Shown, options)
{
    REQUIRE(Written);
    REQUIRE(Viewer.IsUp());
    Origin = Find(Shown, Desk().Settled());
    REQUIRE(Origin.Found());
}

void PageOnScreen::Drag(Place from, Place to)
{
    Viewer.Act([=] { Desk().Drag(from, to); });
}

void PageOnScreen::ShiftDrag(Place from, Place to)
{
    Desk().Hold("shift");
    Drag(from, to);
    Desk().Release("shift");
}

void PageOnScreen::ShiftClicks(std::initializer_list<Place> places)
{
    Desk().Hold("shift");
    for (const Place& place : places)
        Viewer.Act([place] { Desk().Click(place); });
    Desk().Release("shift");
}

std::vector<int> PageOnScreen::SavedLabels(const char* name)
{
    Viewer.FileCommand("l");
    Viewer.TypePath(Path(name));
    REQUIRE(WaitForFile(Path(name)));
    const std::vector<unsigned char> bytes = ReadBytes(Path(name));
    REQUIRE(bytes.size() == Width * Height * sizeof(int));
    std::vector<int> labels(Width * Height);
    std::memcpy(labels.data(), bytes.data(), bytes.size());
    return labels;
}

int PageOnScreen::LabelAt(const std::vector<int>& labels, int x, int y)
{
    return labels[static_cast<std::size_t>((Height - 1 - y) * Width + x)];
}
