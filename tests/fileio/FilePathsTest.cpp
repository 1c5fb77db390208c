// Paths as text: nothing of them needs to be there.

#include "fileio/FilePaths.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <string>

using namespace vostel;

namespace {

// The root of the drive that the test runs on.
const std::string& Root()
{
    static const std::string root = AbsolutePath("/");
    return root;
}

}

TEST_CASE("an absolute path has its root, forward slashes and no detours")
{
    REQUIRE(Root().ends_with('/'));
    CHECK(AbsolutePath(Root() + "a/./b//../c.json") == Root() + "a/c.json");
    CHECK(AbsolutePath(Root() + "../../a") == Root() + "a");
    CHECK(AbsolutePath(Root()) == Root());
    CHECK(AbsolutePath("\xe6\x96\x87/x").ends_with("/\xe6\x96\x87/x"));
    const std::u8string here = std::filesystem::current_path().generic_u8string();
    CHECK(AbsolutePath("x") == std::string(here.begin(), here.end()) + "/x");
    CHECK(AbsolutePath("") == "");
}

TEST_CASE("a path in a file is relative to its folder")
{
    const std::string file = Root() + "a/b/s.json";
    CHECK(PathInFile(Root() + "a/b/x.tif", file) == "x.tif");
    CHECK(PathInFile(Root() + "a/b/c/x.tif", file) == "c/x.tif");
    CHECK(PathInFile(Root() + "a/bc/x.tif", file) == "../bc/x.tif");
    CHECK(PathInFile(Root() + "x.tif", file) == "../../x.tif");
    CHECK(PathInFile(Root() + "x.tif", Root() + "s.json") == "x.tif");
}

TEST_CASE("what a path in a file means is the path again")
{
    for (const char* const path : {"x.tif", "a/x.tif", "a/b/x.tif", "a/b/c/d/x.tif", "e/f/g/x.tif"}) {
        for (const char* const name : {"s.json", "a/s.json", "a/b/s.json", "c/s.json"}) {
            const std::string file = Root() + name;
            CHECK(PathFromFile(PathInFile(Root() + path, file), file) == Root() + path);
        }
    }
}

TEST_CASE("a path in a file may have detours, lead too far up, or begin at the root")
{
    const std::string file = Root() + "a/b/s.json";
    CHECK(PathFromFile("./c/../x.tif", file) == Root() + "a/b/x.tif");
    CHECK(PathFromFile("../../../../x.tif", file) == Root() + "x.tif");
    CHECK(PathFromFile("/c/x.tif", file) == Root() + "c/x.tif");
    CHECK(PathFromFile(Root() + "c/x.tif", file) == Root() + "c/x.tif");
}

#if defined(_WIN32)
TEST_CASE("drives and shares are roots of their own")
{
    CHECK(AbsolutePath("d:\\a\\.\\x") == "d:/a/x");
    CHECK(AbsolutePath("\\\\server\\share\\a\\..\\x") == "//server/share/x");
    CHECK(PathInFile("D:/a/x.tif", "C:/a/s.json") == "D:/a/x.tif");
    CHECK(PathInFile("//server/share/x.tif", "//server/share/a/s.json") == "../x.tif");
    CHECK(PathInFile("//server/share/x.tif", "//server/other/s.json") == "//server/share/x.tif");
    CHECK(PathFromFile("..\\x.tif", "C:/a/s.json") == "C:/x.tif");
    CHECK(PathFromFile("\\x.tif", "//server/share/a/s.json") == "//server/share/x.tif");
    CHECK(PathFromFile("D:\\x.tif", "C:/a/s.json") == "D:/x.tif");
}
#endif
