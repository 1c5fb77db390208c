#include "commands/FileSave.h"

#include "commands/FilePaths.h"
#include "commands/Utf8Text.h"
#include "hosts/commands/TestViewer.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace vostel::viewer;

namespace {

void Write(const std::wstring& path, const std::string& text)
{
    std::ofstream(PathOf(path.c_str()), std::ios::binary) << text;
}

std::string Read(const std::wstring& path)
{
    std::ifstream stream(PathOf(path.c_str()), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::ptrdiff_t FileCount(const TempFolder& folder)
{
    const std::filesystem::path path = std::filesystem::path(folder.Path("x")).parent_path();
    return std::distance(std::filesystem::directory_iterator(path), std::filesystem::directory_iterator());
}

}

TEST_CASE("what the library has written takes the wanted name, and nothing is left beside it")
{
    const TempFolder   folder;
    const std::wstring wanted = folder.WidePath("a.b.bmp").GetString();
    Write(wanted, "old");
    FileSave save;
    CHECK_FALSE(save.HasBegun());
    const std::wstring given = save.Begin(wanted);
    CHECK(save.HasBegun());
    CHECK(save.Wanted() == wanted);
    CHECK(given != wanted);
    CHECK(given.substr(given.size() - 4) == L".bmp");    // the format follows the ending
    Write(given, "new");
    CHECK(save.End() == nullptr);
    CHECK(Read(wanted) == "new");
    CHECK(FileCount(folder) == 1);
}

TEST_CASE("a save that wrote nothing is a problem, and the file that was there stays")
{
    const TempFolder   folder;
    const std::wstring wanted = folder.WidePath("kept.raw").GetString();
    Write(wanted, "old");
    FileSave save;
    save.Begin(wanted);
    const char* const problem = save.End();
    REQUIRE(problem);
    CHECK(std::string(problem).find("write-protected") != std::string::npos);
    CHECK(Read(wanted) == "old");
}

TEST_CASE("a folder that is not there is named as the reason")
{
    const TempFolder folder;
    FileSave         save;
    save.Begin(folder.WidePath("none/a.bmp").GetString());
    const char* const problem = save.End();
    REQUIRE(problem);
    CHECK(std::string(problem).find("no such folder") != std::string::npos);
}

TEST_CASE("a folder of the wanted name stays, and what was written for it goes")
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path("pictures.bmp"));
    FileSave           save;
    const std::wstring given = save.Begin(folder.WidePath("pictures.bmp").GetString());
    Write(given, "new");
    const char* const problem = save.End();
    REQUIRE(problem);
    CHECK(std::string(problem) == "This is a folder, not a file.");
    CHECK(std::filesystem::is_directory(folder.Path("pictures.bmp")));
    CHECK(FileCount(folder) == 1);
}

TEST_CASE("a file of another name beside the wanted one is never overwritten, with or without an ending")
{
    const TempFolder folder;
    for (const char* const name : {"a.bmp", "plain"}) {
        CAPTURE(name);
        const std::wstring wanted = folder.WidePath(name).GetString();
        FileSave           first, second;
        const std::wstring taken = first.Begin(wanted);
        Write(taken, "of someone");
        const std::wstring given = second.Begin(wanted);
        CHECK(given != taken);
        Write(given, "new");
        CHECK(second.End() == nullptr);
        CHECK(Read(taken) == "of someone");
        CHECK(Read(wanted) == "new");
    }
}

namespace {

// A viewer whose person chooses this name in the library's dialogs, as a window forwards it.
struct SavingViewer : TestViewer {
    std::wstring Name;    // empty: cancelled

    SavingViewer()
    {
        Canvases[4].Desktop.ChooseFiles = [this](const VostelFileRequest& request,
                                                 std::vector<CString>&    paths) {
            CHECK(request.Save);
            if (Name.empty())
                return false;
            paths = {Session.NameToSave(Name).c_str()};
            return true;
        };
        Canvases[0].ShowFloat(60, 40, [](int x, int y) { return x + y; });
        Canvases[0].Paint();
    }
};

constexpr Command Saves[] = {Command::SaveClient,       Command::SaveImageWithOverlays,
                             Command::SaveImageAsShown, Command::Save8Bit,
                             Command::SaveFloat,        Command::SaveLabels};

}

TEST_CASE("each save of the library ends with the name of the file that it has written, in both languages")
{
    SavingViewer viewer;
    for (const Language language : {Language::English, Language::Chinese})
        for (const Command id : Saves) {
            CAPTURE(static_cast<int>(id));
            viewer.Session.Speak(language);
            const std::string name = std::to_string(static_cast<int>(id)) + ".bmp";
            viewer.Name = viewer.NameIn(name);
            viewer.Session.Carry(id);
            CHECK(viewer.Statuses.back() ==
                  (language == Language::English ? L"Saved " : L"\u5df2\u4fdd\u5b58 ") + WideOf(name));
            CHECK(Read(viewer.Name).size() > 100);
        }
    CHECK(viewer.Reports.empty());
    CHECK(FileCount(viewer.Folder) == 6);    // the second round wrote over the first, and left nothing beside
}

TEST_CASE("a save that fails is one report with path and reason, and no word of success")
{
    SavingViewer viewer;
    for (const Command id : Saves) {
        CAPTURE(static_cast<int>(id));
        viewer.Reports.clear();
        viewer.Name = viewer.NameIn("none/a.bmp");
        viewer.Session.Carry(id);
        REQUIRE(viewer.Reports.size() == 1);
        CHECK(viewer.Reports[0] == viewer.Name + L"\nThe file cannot be written: there is no such folder.");
        CHECK(viewer.Statuses.back().empty());
    }
}

TEST_CASE("a save that is cancelled says nothing, and what is said of the next one is its own")
{
    SavingViewer viewer;
    viewer.Session.Carry(Command::SaveLabels);
    CHECK(viewer.Statuses.back().empty());
    CHECK(viewer.Reports.empty());
    CHECK(FileCount(viewer.Folder) == 0);
    viewer.Name = viewer.NameIn("labels.raw");
    viewer.Session.Carry(Command::SaveLabels);
    viewer.Name.clear();
    viewer.Session.Carry(Command::SaveLabels);
    CHECK(viewer.Statuses.back().empty());
    CHECK(FileCount(viewer.Folder) == 1);
}

TEST_CASE("a message of the library is reported, but not in place of what became of a save")
{
    SavingViewer viewer;
    viewer.Session.ShowMessage(L"a message");
    CHECK(viewer.Reports == std::vector<std::wstring>{L"a message"});
    viewer.Session.NameToSave(viewer.NameIn("a.bmp"));
    viewer.Session.ShowMessage(L"another one");
    CHECK(viewer.Reports.size() == 1);
}
