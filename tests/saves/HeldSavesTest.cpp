// Saves over files that someone holds open, as on Windows a program does by opening them: the old file stays,
// and the next save takes its place.

#include "saves/SaveCalls.h"

#include <memory>

namespace {

struct Closer {
    void operator()(void* file) const { CloseHandle(file); }
};

// Held for reading; others may read it too.
std::unique_ptr<void, Closer> Hold(const std::string& path)
{
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    REQUIRE(file != INVALID_HANDLE_VALUE);
    return std::unique_ptr<void, Closer>(file);
}

}

TEST_CASE("no save replaces a file that is held open, and each does afterwards")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        {
            std::vector<std::unique_ptr<void, Closer>> held;
            for (const auto& file : folder.Before)
                held.push_back(Hold(folder.Folder.Path(file.first)));
            CHECK(folder.Save() == (call.Telling != Tells::Always));
        }
        CHECK(folder.Found() == folder.Before);
        CHECK(folder.Folder.EntryCount() == folder.Before.size());
        CHECK(folder.Save());
        CHECK(folder.Found() == folder.After);
    }
}
