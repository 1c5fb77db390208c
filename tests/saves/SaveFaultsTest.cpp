// Every save over a good file, where it cannot be written: the good one stays, nothing is left beside it, and
// the call tells of it or is silent as its header says.

#include "saves/SaveCalls.h"
#include "saves/SmallDisk.h"
#include "support/FileLimit.h"
#include "support/Privileges.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace {

// Names of exports that may sound like saves.
const std::set<std::string> OtherNames = {
    "OSDIR::GetBmpFileNoOverWritePrompt()",    // asks for a name
    "OSDIR::GetRawFileNoOverWritePrompt()",
    "ZEKIODisk::CloseWrite()",    // a stream that hosts write line by line, in place
    "ZEKIODisk::OpenWrite(char*)",
    "ZEKIODisk::OpenWriteEmpty(char*)",
    "ZEKIODisk::WriteChar(char*)",
    "ZEKIODisk::WritePara(char*, void*, int)",
    "ZEKIODisk::WriteString(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >)",
    "vostel_image_copy"};    // into memory

}

TEST_CASE("the table has every exported call whose name says that it writes")
{
    std::ifstream         list(VOSTEL_EXPORTED_NAMES);
    const std::regex      writes("save|write|export|operate|copy|store", std::regex::icase);
    std::set<std::string> tested;
    for (const SaveCall& call : SaveCalls())
        tested.insert(call.Export);
    std::string name;
    std::size_t seen = 0;
    while (std::getline(list, name)) {
        CAPTURE(name);
        const bool expected = tested.count(name) + OtherNames.count(name) == 1;
        CHECK(expected == std::regex_search(name, writes));
        seen += expected;
    }
    CHECK(seen == tested.size() + OtherNames.size());
}

TEST_CASE("with room for it every save takes the place of the file before")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        for (const auto& file : folder.After)
            CHECK(file.second != folder.Before.at(file.first));
        CHECK(folder.Save());
        CHECK(folder.Found() == folder.After);
        CHECK(folder.Folder.EntryCount() == folder.After.size());
    }
}

TEST_CASE("a limit on the length of files costs no save the file before")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        std::size_t longest = 0;
        for (const auto& file : folder.After)
            longest = std::max(longest, file.second.size());
        for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, longest / 2, longest - 1}) {
            CAPTURE(bytes);
            bool good = true;
            {
                const FileLimit limit(bytes);
                good = folder.Save();
            }
            CHECK(good == (call.Telling != Tells::Always));
            CHECK(folder.IsWhole());    // of several files the first may have had room
            CHECK((folder.Before.size() > 1 || folder.Found() == folder.Before));
            CHECK(folder.Folder.EntryCount() == folder.Before.size());
        }
    }
}

TEST_CASE("a disk without room for a second file costs no save the first one")
{
    SaveScene scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        const std::string fault = FaultOnSmallDisk([&](const std::string& disk) -> std::string {
            const std::string path = disk + "/" + call.File;
            scene.Take(1);
            if (!scene.Save(call, path))
                return "nothing is saved on an empty disk";
            const Files before = FilesBelow(disk);
            scene.Take(2);
            FillDisk(disk + "/~filler");
            const bool good = scene.Save(call, path);
            if (FilesBelow(disk) != before)
                return "a full disk has other files";
            if (good != (call.Telling != Tells::Always))
                return good ? "a full disk is not reported" : "a full disk is reported";
            if (std::distance(std::filesystem::directory_iterator(disk), {}) !=
                std::ptrdiff_t(before.size() + 1))
                return "there is something left over";
            std::filesystem::remove(disk + "/~filler");
            return scene.Save(call, path) && FilesBelow(disk) != before ? ""
                                                                        : "nothing is saved with room again";
        });
        if (fault == CannotMount) {
            MESSAGE(CannotMount);
            return;
        }
        CHECK(fault == "");
    }
}

TEST_CASE("a folder that may only be read keeps its files")
{
    const WithoutPrivileges plain;
    SaveScene               scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        REQUIRE(chmod(folder.Folder.Path().c_str(), 0555) == 0);
        CHECK(folder.Save() == (call.Telling == Tells::Never));
        CHECK(folder.Found() == folder.Before);
        REQUIRE(chmod(folder.Folder.Path().c_str(), 0755) == 0);
        CHECK(folder.Folder.EntryCount() == folder.Before.size());
    }
}

TEST_CASE("a file that may only be read is not replaced")
{
    const WithoutPrivileges plain;
    SaveScene               scene;
    for (const SaveCall& call : SaveCalls()) {
        CAPTURE(call.File);
        SavedFolder folder(scene, call);
        for (const auto& file : folder.Before)
            REQUIRE(chmod(folder.Folder.Path(file.first).c_str(), 0444) == 0);
        CHECK(folder.Save() == (call.Telling == Tells::Never));
        CHECK(folder.Found() == folder.Before);
        CHECK(folder.Folder.EntryCount() == folder.Before.size());
    }
}
