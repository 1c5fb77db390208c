#pragma once

// A viewer without a toolkit: five canvases in memory, a window that records what it is asked to do, and a
// thread of the window that runs when a test says so.

#include "commands/ViewerSession.h"

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <chrono>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

class PostedCalls {
public:
    void Add(std::function<void()> call)
    {
        const std::lock_guard lock(Mutex);
        Calls.push_back(std::move(call));
    }
    // Makes the calls that are there.
    void Run()
    {
        for (;;) {
            std::function<void()> call;
            {
                const std::lock_guard lock(Mutex);
                if (Calls.empty())
                    return;
                call = std::move(Calls.front());
                Calls.pop_front();
            }
            call();
        }
    }
    // Makes calls until it is so; false when that takes too long.
    template <typename Condition>
    bool RunUntil(const Condition& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        for (Run(); !condition(); Run()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

private:
    std::mutex                        Mutex;
    std::deque<std::function<void()>> Calls;
};

struct TestViewer {
    static constexpr int Width = 120, Height = 90;    // client px of each canvas

    HostCanvas Canvases[5] = {
        {0, Width, Height}, {1, Width, Height}, {2, Width, Height}, {3, Width, Height}, {4, Width, Height}};
    TempFolder Folder;

    // What the window was asked to do.
    PostedCalls               Posted;
    std::vector<std::wstring> Reports;
    std::vector<std::wstring> Statuses;
    std::vector<int>          Repainted;
    int                       Arranged = 0;
    int                       Closed = 0;
    int                       TextsShown = 0;

    // What is kept, and what the person does.
    std::vector<std::wstring>                                   RecentFiles;
    std::vector<vostel::viewer::Language>                       Languages;    // that were saved
    std::map<std::pair<std::string, std::string>, double>       Values;
    std::vector<std::wstring>                                   Chosen;
    std::function<bool(vostel::viewer::RoutineQuestion&)>       Answer;
    std::function<bool(int, const std::function<void()>& read)> Read;

    vostel::viewer::ViewerSession Session{Window(), Settings()};

    // A picture of one gray.
    std::wstring MakePicture(const std::string& name, int width = 60, int height = 40, int gray = 100)
    {
        ClassData2DIO<unsigned char> plane;
        FillPlane(plane, width, height, [gray](int, int) { return gray; });
        std::string path = Folder.Path(name);
        REQUIRE(ZEKSaveGrayBmp(path.data(), plane));
        return Folder.WidePath(name).GetString();
    }
    std::wstring NameIn(const std::string& name) const { return Folder.WidePath(name).GetString(); }
    bool         Finish()
    {
        return Posted.RunUntil([this] { return !Session.RoutineRuns(); });
    }

    vostel::viewer::ViewerWindow Window()
    {
        vostel::viewer::ViewerWindow window;
        window.Post = [this](std::function<void()> call) { Posted.Add(std::move(call)); };
        window.Arrange = [this] { ++Arranged; };
        window.Repaint = [this](int canvas) { Repainted.push_back(canvas); };
        window.ShowStatus = [this](const std::wstring& text) { Statuses.push_back(text); };
        window.Report = [this](const std::wstring& sentences) { Reports.push_back(sentences); };
        window.ShowTexts = [this] { ++TextsShown; };
        window.Close = [this] { ++Closed; };
        window.AskFiles = [this] { return Chosen; };
        window.AskRoutine = [this](vostel::viewer::RoutineQuestion& question) {
            return Answer && Answer(question);
        };
        window.ReadFile = [this](int canvas, const std::wstring&, const std::function<void()>& read) {
            if (Read)
                return Read(canvas, read);
            read();
            return true;
        };
        return window;
    }
    vostel::viewer::ViewerSettings Settings()
    {
        using namespace vostel::viewer;
        ViewerSettings settings;
        settings.LoadRecentFiles = [this] { return RecentFiles; };
        settings.SaveRecentFiles = [this](const std::vector<std::wstring>& files) { RecentFiles = files; };
        settings.SaveLanguage = [this](Language language) { Languages.push_back(language); };
        settings.LoadValue = [this](const Routine& routine, const RoutineParameter& parameter) {
            const auto found = Values.find({routine.Title, parameter.Name});
            return found == Values.end() ? std::nullopt : std::optional(found->second);
        };
        settings.SaveValue = [this](const Routine& routine, const RoutineParameter& parameter, double value) {
            Values[{routine.Title, parameter.Name}] = value;
        };
        return settings;
    }
};
