#include "hosts/win32/WineViewer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

TEST_CASE("each save says in the status bar where it went, and leaves one file")
{
    PageOnScreen at({"--language", "en"});
    const auto   saves = [&at](const char* mnemonic, const char* name) {
        at.Viewer.FileCommand(mnemonic);
        at.Viewer.TypePath(at.Path(name));
        CHECK(WaitForFile(at.Path(name)));
        CHECK(at.Viewer.Says("status", std::string("Saved ") + name));
    };
    saves("w", "objects.png");
    saves("a", "shown.bmp");
    saves("c", "canvas.bmp");
    saves("8", "gray.bmp");
    saves("l", "labels.raw");
    const std::filesystem::directory_iterator files(at.Path());
    CHECK(std::count_if(begin(files), end(files), [](const auto& entry) {
              return entry.is_regular_file();
          }) == 6);    // the page is one of them
    CHECK(at.Viewer.Quit());
}

TEST_CASE("a save into a folder that has gone is a message with path and reason, and none of success")
{
    PageOnScreen at({"--language", "en"});
    std::filesystem::create_directory(at.Path("gone"));
    const std::string path = at.Path("gone/kept.bmp");
    std::ofstream(path) << "kept";
    at.Viewer.FileCommand("8");
    at.Viewer.TypePath(path);    // the system asks whether to replace the file
    std::filesystem::remove_all(at.Path("gone"));
    at.Viewer.Keys({"alt+y"});
    CHECK(at.Viewer.Says("text", WindowsPath(path)));
    const std::vector<std::string> texts = at.Viewer.Texts();
    const auto                     says = [&texts](const char* words) {
        return std::any_of(texts.begin(), texts.end(), [words](const std::string& line) {
            return line.find(words) != std::string::npos;
        });
    };
    CHECK(says("The file cannot be written: there is no such folder."));
    CHECK_FALSE(says("Saved"));
    at.Viewer.Keys({"Return"});
    CHECK(Find(at.Shown, Desk().Settled()) == at.Origin);
    CHECK(at.Viewer.Quit());
}
