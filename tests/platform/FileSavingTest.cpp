// Files that are written beside others and take their place.

#include "platform/FileSaving.h"
#include "platform/Files.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace vostel;

namespace {

const std::vector<unsigned char> Old = {'o', 'l', 'd'};
const std::vector<unsigned char> New = {'n', 'e', 'w', '!'};

bool SaveNew(const std::string& path)
{
    FileReplacement file{CString(path.c_str())};
    if (!file.Stream())
        return false;
    std::fwrite(New.data(), 1, New.size(), file.Stream());
    return file.Keep();
}

}

TEST_CASE("until it is kept a file stands beside the old one, and what is not kept is gone")
{
    const TempFolder  folder;
    const std::string path = folder.Path("a.bin");
    REQUIRE(WriteBytes(path, Old));
    {
        FileReplacement file{folder.WidePath("a.bin")};
        REQUIRE(file.Stream());
        std::fwrite(New.data(), 1, New.size(), file.Stream());
        CHECK(ReadBytes(path) == Old);
        CHECK(folder.EntryCount() == 2);
    }
    CHECK(ReadBytes(path) == Old);
    CHECK(folder.EntryCount() == 1);
    CHECK(SaveNew(path));
    CHECK(ReadBytes(path) == New);
    CHECK(folder.EntryCount() == 1);
}

TEST_CASE("who writes by name gets one with the same ending")
{
    const TempFolder folder;
    FileReplacement  file{folder.WidePath("a.png")};
    const CString    name = file.CloseToName();
    CHECK(name.Right(4) == L".png");
    CHECK_FALSE(file.Stream());
    REQUIRE(WriteBytes(NarrowAnsi(name, name.GetLength()), New));
    CHECK(file.Keep());
    CHECK(ReadBytes(folder.Path("a.png")) == New);
    CHECK_FALSE(file.Keep());
}

TEST_CASE("folders with a dot and names as long as they can be leave room for the file beside")
{
    const TempFolder folder;
    folder.MakeFolder("v1.2");
    CHECK(SaveNew(folder.Path("v1.2/plain")));
    const std::string longest = std::string(251, 'n') + ".bin";
    CHECK(SaveNew(folder.Path(longest)));
    CHECK(ReadBytes(folder.Path(longest)) == New);
    CHECK(SaveNew(folder.Path("a." + std::string(200, 'e'))));
    CHECK(folder.EntryCount() == 3);
}

TEST_CASE("a link leads to the file that is replaced, and stays")
{
    const TempFolder folder;
    folder.MakeFolder("kept");
    folder.MakeFolder("links");
    REQUIRE(WriteBytes(folder.Path("kept/a.bin"), Old));
    std::filesystem::create_symlink("../kept/a.bin", folder.Path("links/relative"));
    std::filesystem::create_symlink(folder.Path("links/relative"), folder.Path("links/twice"));
    std::filesystem::create_symlink("../kept/b.bin", folder.Path("links/dangling"));
    std::filesystem::create_symlink("circle", folder.Path("links/circle"));
    CHECK(SaveNew(folder.Path("links/twice")));
    CHECK(ReadBytes(folder.Path("kept/a.bin")) == New);
    CHECK(SaveNew(folder.Path("links/dangling")));
    CHECK(ReadBytes(folder.Path("kept/b.bin")) == New);
    CHECK_FALSE(SaveNew(folder.Path("links/circle")));
    for (const char* link : {"links/relative", "links/twice", "links/dangling", "links/circle"})
        CHECK(std::filesystem::is_symlink(folder.Path(link)));
}

TEST_CASE("the mode of a file stays, a new one has that of any new file")
{
    const TempFolder  folder;
    const std::string path = folder.Path("a.bin");
    REQUIRE(WriteBytes(path, Old));
    REQUIRE(chmod(path.c_str(), 0640) == 0);
    CHECK(SaveNew(path));
    struct stat replaced, fresh, plain;
    REQUIRE(stat(path.c_str(), &replaced) == 0);
    CHECK((replaced.st_mode & 0777) == 0640);
    CHECK(SaveNew(folder.Path("b.bin")));
    REQUIRE(WriteBytes(folder.Path("c.bin"), Old));
    REQUIRE(stat(folder.Path("b.bin").c_str(), &fresh) == 0);
    REQUIRE(stat(folder.Path("c.bin").c_str(), &plain) == 0);
    CHECK(fresh.st_mode == plain.st_mode);
}

TEST_CASE("a device is written to and stays, folders, pipes and files for reading alone are not saved over")
{
    const TempFolder folder;
    CHECK(SaveNew("/dev/null"));
    struct stat facts;
    REQUIRE(stat("/dev/null", &facts) == 0);
    CHECK(S_ISCHR(facts.st_mode));
    CHECK_FALSE(SaveNew("/dev/full"));
    REQUIRE(mkfifo(folder.Path("pipe").c_str(), 0600) == 0);
    CHECK_FALSE(SaveNew(folder.Path("pipe")));
    CHECK_FALSE(SaveNew(folder.Path()));
    CHECK_FALSE(SaveNew(folder.Path("missing/a.bin")));
    CHECK_FALSE(SaveNew(""));
    CHECK(folder.EntryCount() == 1);
    if (geteuid() == 0)
        return;    // who may write everything
    REQUIRE(WriteBytes(folder.Path("a.bin"), Old));
    REQUIRE(chmod(folder.Path("a.bin").c_str(), 0444) == 0);
    CHECK_FALSE(SaveNew(folder.Path("a.bin")));
    CHECK(ReadBytes(folder.Path("a.bin")) == Old);
}

TEST_CASE("who holds the old file open goes on reading it")
{
    const TempFolder  folder;
    const std::string path = folder.Path("a.bin");
    REQUIRE(WriteBytes(path, Old));
    std::FILE* const held = std::fopen(path.c_str(), "rb");
    REQUIRE(held);
    CHECK(SaveNew(path));
    CHECK(std::fgetc(held) == 'o');
    std::fclose(held);
    CHECK(ReadBytes(path) == New);
}
