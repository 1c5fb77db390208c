#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr bool Windows = std::filesystem::path::preferred_separator == '\\';

const std::string Separator(1, static_cast<char>(std::filesystem::path::preferred_separator));

void Put(const TempFolder& folder, const std::string& name, const std::string& text = "x")
{
    REQUIRE(WriteBytes(folder.Path(name), std::vector<unsigned char>(text.begin(), text.end())));
}

std::string TextOf(const TempFolder& folder, const std::string& name)
{
    const std::vector<unsigned char> bytes = ReadBytes(folder.Path(name));
    return std::string(bytes.begin(), bytes.end());
}

bool Exists(const TempFolder& folder, const std::string& name)
{
    return std::filesystem::exists(folder.Path(name));
}

// What FindFile lists below the folder, without the folder's own part.
std::vector<std::string> Listed(const TempFolder& folder, const std::string& below, bool recursive,
                                const wchar_t* pattern)
{
    CString              dir = folder.WidePath(below);
    std::wstring         dirText(dir.GetString());
    std::wstring         patternText(pattern);
    std::vector<CString> found;
    OSDIR().FindFile(dirText.data(), found, recursive, patternText.data());
    std::vector<std::string> names;
    const std::wstring       prefix = std::wstring(folder.WidePath().GetString()) + L'/';
    for (const CString& path : found) {
        const std::wstring text(path.GetString());
        REQUIRE(text.size() > prefix.size());
        std::string name;
        for (const wchar_t letter : text.substr(prefix.size()))
            name += letter == L'\\' ? '/' : static_cast<char>(letter);
        names.push_back(name);
    }
    return names;
}

bool Copy(const TempFolder& folder, const std::string& from, const std::string& to, unsigned op = 0)
{
    const CString pattern = CString(std::filesystem::path(Separator + "*.*").wstring().c_str());
    return OSDIR().DirectoryOperate(folder.WidePath(from) + pattern, folder.WidePath(to) + pattern, op);
}

std::vector<CString> ReadLines(const std::string& path, bool& failed)
{
    std::vector<CString> lines;
    std::string          name = path;
    failed = OSDIR().Read(name.data(), lines);
    return lines;
}

}

TEST_CASE("a folder is a directory and exists as a folder, a plain file neither")
{
    TempFolder folder;
    folder.MakeFolder("sub");
    Put(folder, "file.txt");
    CString sub = folder.WidePath("sub");
    CString file = folder.WidePath("file.txt");
    CString missing = folder.WidePath("missing");
    OSDIR   dir;
    CHECK(dir.IsDir(sub));
    CHECK(dir.CheckFolderExist(sub));
    CHECK_FALSE(dir.IsDir(file));
    CHECK_FALSE(dir.CheckFolderExist(file));
    CHECK_FALSE(dir.IsDir(missing));
    CHECK_FALSE(dir.CheckFolderExist(missing));
    CHECK_FALSE(dir.CheckFolderExist(L""));
    CString empty;
    CHECK_FALSE(dir.IsDir(empty));
}

TEST_CASE("a folder with a separator behind it is a directory, but no search finds it")
{
    TempFolder folder;
    CString    path = folder.WidePath() + CString(std::filesystem::path(Separator).wstring().c_str());
    CHECK(OSDIR().IsDir(path));
    CHECK_FALSE(OSDIR().CheckFolderExist(path));
}

TEST_CASE("dot names are folders, and a pattern takes what the search comes upon first")
{
    TempFolder    folder;
    const CString separator(std::filesystem::path(Separator).wstring().c_str());
    folder.MakeFolder("sub");
    Put(folder, "file.txt");
    OSDIR dir;
    CHECK(dir.CheckFolderExist(L"."));
    CHECK(dir.CheckFolderExist(folder.WidePath("sub") + separator + L"."));
    CHECK(dir.CheckFolderExist(folder.WidePath("sub") + separator + L"*"));    // the folder's own dot
    CHECK(dir.CheckFolderExist(folder.WidePath() + separator + L"su?"));
    CHECK_FALSE(dir.CheckFolderExist(folder.WidePath() + separator + L"fi*"));
    CHECK_FALSE(dir.CheckFolderExist(folder.WidePath() + separator + L"no*"));
}

TEST_CASE("a listing without recursion leaves the files of subfolders out")
{
    TempFolder folder;
    folder.MakeFolder("sub");
    folder.MakeFolder("sub/deep");
    for (const char* name : {"b.bmp", "a.bmp", "c.txt", "plain", "sub/d.bmp", "sub/deep/e.bmp"})
        Put(folder, name);
    using Names = std::vector<std::string>;
    CHECK(Listed(folder, "", false, L"*.bmp") == Names{"a.bmp", "b.bmp"});
    CHECK(Listed(folder, "", true, L"*.bmp") == Names{"a.bmp", "b.bmp", "sub/d.bmp", "sub/deep/e.bmp"});
    CHECK(Listed(folder, "sub", true, L"*.bmp") == Names{"sub/d.bmp", "sub/deep/e.bmp"});
    CHECK(Listed(folder, "", false, L"*.*") == Names{"a.bmp", "b.bmp", "c.txt", "plain"});
    CHECK(Listed(folder, "", false, L"nothing*") == Names{});
    CHECK(Listed(folder, "missing", true, L"*.*") == Names{});
}

TEST_CASE("the files of a folder come before those of its subfolders, though their names come later")
{
    TempFolder folder;
    folder.MakeFolder("a");
    Put(folder, "a/inner.txt");
    Put(folder, "z.txt");
    CHECK(Listed(folder, "", true, L"*.txt") == std::vector<std::string>{"z.txt", "a/inner.txt"});
}

TEST_CASE("a folder whose name fits the pattern is not a file, and is entered all the same")
{
    TempFolder folder;
    folder.MakeFolder("looks.bmp");
    Put(folder, "looks.bmp/is.bmp");
    CHECK(Listed(folder, "", false, L"*.bmp").empty());
    CHECK(Listed(folder, "", true, L"*.bmp") == std::vector<std::string>{"looks.bmp/is.bmp"});
}

TEST_CASE("a listing is appended and written with the separator of the platform")
{
    TempFolder folder;
    Put(folder, "a.txt");
    std::vector<CString> found = {L"before"};
    std::wstring         dir(folder.WidePath().GetString());
    wchar_t              pattern[] = L"*.txt";
    OSDIR().FindFile(dir.data(), found, true, pattern);
    REQUIRE(found.size() == 2);
    CHECK(found[0] == L"before");
    CHECK(found[1] == folder.WidePath("a.txt"));
    OSDIR().FindFile(nullptr, found, true, pattern);
    OSDIR().FindFile(dir.data(), found, true, nullptr);
    CHECK(found.size() == 2);
}

TEST_CASE("wildcards take any run and any one letter, in either case")
{
    TempFolder folder;
    for (const char* name : {"foo", "foo.txt", "foo.tar.gz", "BAR.BMP", "boo"})
        Put(folder, name);
    using Names = std::vector<std::string>;
    CHECK(Listed(folder, "", false, L"*.*") == Names{"BAR.BMP", "boo", "foo", "foo.tar.gz", "foo.txt"});
    CHECK(Listed(folder, "", false, L"*") == Names{"BAR.BMP", "boo", "foo", "foo.tar.gz", "foo.txt"});
    CHECK(Listed(folder, "", false, L"foo.*") == Names{"foo", "foo.tar.gz", "foo.txt"});
    CHECK(Listed(folder, "", false, L"*.bmp") == Names{"BAR.BMP"});
    CHECK(Listed(folder, "", false, L"?oo") == Names{"boo", "foo"});
    CHECK(Listed(folder, "", false, L"foo.t?t") == Names{"foo.txt"});
    CHECK(Listed(folder, "", false, L"f*o") == Names{"foo"});
    CHECK(Listed(folder, "", false, L"*.t*") == Names{"foo.tar.gz", "foo.txt"});
    CHECK(Listed(folder, "", false, L"*a*r*") == Names{"BAR.BMP", "foo.tar.gz"});
    CHECK(Listed(folder, "", false, L"foo.txt") == Names{"foo.txt"});
}

TEST_CASE("listings go deeper than 256 letters of a path")
{
    TempFolder  folder;
    std::string deep;
    const int   levels = Windows ? 3 : 40;    // longer paths need a prefix there
    for (int i = 0; i < levels; ++i) {
        deep += (i > 0 ? "/" : "") + std::string(20, static_cast<char>('a' + i % 26));
        folder.MakeFolder(deep);
    }
    Put(folder, deep + "/end.txt");
    CHECK(Listed(folder, "", true, L"*.txt") == std::vector<std::string>{deep + "/end.txt"});
}

TEST_CASE("a tree is copied with its subfolders, and files that exist are overwritten")
{
    TempFolder folder;
    for (const char* name : {"from", "from/sub", "from/sub/deep", "to", "to/sub"})
        folder.MakeFolder(name);
    Put(folder, "from/a.txt", "new a");
    Put(folder, "from/sub/b.txt", "new b");
    Put(folder, "from/sub/deep/c", "new c");
    Put(folder, "to/a.txt", "an old and longer text");
    Put(folder, "to/kept.txt", "kept");
    for (const unsigned op : {0u, 1u, 0xFFFFFFFFu}) {
        CHECK(Copy(folder, "from", "to", op));
        CHECK(TextOf(folder, "to/a.txt") == "new a");
        CHECK(TextOf(folder, "to/sub/b.txt") == "new b");
        CHECK(TextOf(folder, "to/sub/deep/c") == "new c");
        CHECK(TextOf(folder, "to/kept.txt") == "kept");
    }
    CHECK(TextOf(folder, "from/a.txt") == "new a");
}

TEST_CASE("names that hold a backslash are copied and listed where a file system has them")
{
    if (Windows)
        return;
    TempFolder folder;
    for (const char* name : {"from", "from/c\\d", "from/c\\d/e\\f", "to"})
        folder.MakeFolder(name);
    for (const char* name : {"from/a\\b.txt", "from/c\\d/e\\f/g.txt", "from/z.txt"})
        Put(folder, name, name);
    REQUIRE(Copy(folder, "from", "to"));
    CHECK(TextOf(folder, "to/a\\b.txt") == "from/a\\b.txt");
    CHECK(TextOf(folder, "to/c\\d/e\\f/g.txt") == "from/c\\d/e\\f/g.txt");
    CHECK(TextOf(folder, "to/z.txt") == "from/z.txt");
    CHECK_FALSE(Exists(folder, "to/a"));
    CHECK_FALSE(Exists(folder, "to/c"));
    CHECK(Listed(folder, "from", true, L"*.txt").size() == 3);
    // A host may write both separators.
    const CString both = folder.WidePath() + L"\\from\\*.*";
    CHECK(OSDIR().DirectoryOperate(both, folder.WidePath() + L"\\to\\*.*", 0));
}

TEST_CASE("an empty subfolder is made and ends the copy, which then is false")
{
    TempFolder folder;
    for (const char* name : {"from", "from/m-empty", "to"})
        folder.MakeFolder(name);
    Put(folder, "from/a.txt");
    Put(folder, "from/z.txt");
    CHECK_FALSE(Copy(folder, "from", "to"));
    CHECK(Exists(folder, "to/a.txt"));
    CHECK(Exists(folder, "to/m-empty"));
    CHECK_FALSE(Exists(folder, "to/z.txt"));
}

TEST_CASE("an empty subfolder deep down ends the copies of all folders above it")
{
    TempFolder folder;
    for (const char* name : {"from", "from/sub", "from/sub/empty", "to"})
        folder.MakeFolder(name);
    Put(folder, "from/sub/z.txt");
    Put(folder, "from/z.txt");
    CHECK_FALSE(Copy(folder, "from", "to"));
    CHECK(Exists(folder, "to/sub/empty"));
    CHECK_FALSE(Exists(folder, "to/sub/z.txt"));
    CHECK_FALSE(Exists(folder, "to/z.txt"));
}

TEST_CASE("copying an empty or a missing folder, or to a missing one, is false")
{
    TempFolder folder;
    folder.MakeFolder("empty");
    folder.MakeFolder("full");
    folder.MakeFolder("to");
    Put(folder, "full/a.txt");
    CHECK_FALSE(Copy(folder, "empty", "to"));
    CHECK_FALSE(Copy(folder, "missing", "to"));
    CHECK_FALSE(Copy(folder, "full", "missing"));    // the goal itself is not made
    CHECK_FALSE(Exists(folder, "missing"));
    CHECK(Copy(folder, "full", "to"));
}

TEST_CASE("a file that cannot be written ends the copy")
{
    TempFolder folder;
    for (const char* name : {"from", "to", "to/b.txt"})    // a folder stands where the file would go
        folder.MakeFolder(name);
    for (const char* name : {"from/a.txt", "from/b.txt", "from/c.txt"})
        Put(folder, name);
    CHECK_FALSE(Copy(folder, "from", "to"));
    CHECK(Exists(folder, "to/a.txt"));
    CHECK_FALSE(Exists(folder, "to/c.txt"));
}

TEST_CASE("a copy into a folder inside the copied one ends and does not copy that folder into itself")
{
    TempFolder folder;
    for (const char* name : {"from", "from/inside", "from/other"})
        folder.MakeFolder(name);
    Put(folder, "from/a.txt");
    Put(folder, "from/other/b.txt");
    for (const char* goal : {"from/inside", "from/./inside", "from/other/../inside"}) {
        CHECK(Copy(folder, "from", goal));
        CHECK(Exists(folder, "from/inside/a.txt"));
        CHECK(Exists(folder, "from/inside/other/b.txt"));
        CHECK_FALSE(Exists(folder, "from/inside/inside"));
    }
}

TEST_CASE("a copy of a folder onto itself ends without harm")
{
    TempFolder folder;
    folder.MakeFolder("from");
    folder.MakeFolder("from/sub");
    Put(folder, "from/sub/a.txt", "kept");
    Copy(folder, "from", "from");
    CHECK(TextOf(folder, "from/sub/a.txt") == "kept");
    CHECK_FALSE(Exists(folder, "from/sub/sub"));
}

TEST_CASE("links that lead back up end neither a copy nor a listing in a circle")
{
    TempFolder folder;
    for (const char* name : {"from", "from/sub", "to"})
        folder.MakeFolder(name);
    Put(folder, "from/sub/a.txt");
    std::error_code failure;
    for (const char* link : {"from/sub/up", "from/sub/up2", "from/sub/up3"})
        std::filesystem::create_directory_symlink(folder.Path("from"), folder.Path(link), failure);
    if (failure)
        return;    // a system without links has no circles
    CHECK(Copy(folder, "from", "to"));
    CHECK(Exists(folder, "to/sub/a.txt"));
    CHECK_FALSE(Exists(folder, "to/sub/up"));
    CHECK(Listed(folder, "from", true, L"*.txt") == std::vector<std::string>{"from/sub/a.txt"});
}

TEST_CASE("folders that all link to each other are copied once behind their links")
{
    TempFolder      folder;
    std::error_code failure;
    constexpr int   Count = 8;    // 109,601 ways lead through them
    folder.MakeFolder("from");
    folder.MakeFolder("to");
    const auto name = [](int i) { return "folder" + std::to_string(i); };
    for (int i = 0; i < Count; ++i) {
        folder.MakeFolder("from/" + name(i));
        Put(folder, "from/" + name(i) + "/a.txt", name(i));
    }
    for (int i = 0; i < Count; ++i)
        for (int k = 0; k < Count; ++k) {
            const std::string link = folder.Path("from/" + name(i) + "/to" + name(k));
            std::filesystem::create_directory_symlink(folder.Path("from/" + name(k)), link, failure);
        }
    if (failure)
        return;
    CHECK(Copy(folder, "from", "to"));
    std::size_t entries = 0, links = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path("to"))) {
        ++entries;
        links += entry.is_symlink();
    }
    CHECK(links == 0);
    // Each folder and its file in its place, and once more behind a link.
    CHECK(entries >= 2 * Count);
    CHECK(entries <= 4 * Count);
    for (int i = 0; i < Count; ++i)
        CHECK(TextOf(folder, "to/" + name(i) + "/a.txt") == name(i));
}

TEST_CASE("a link to a folder elsewhere is followed, by the first link there, and one to a file by each")
{
    TempFolder folder;
    for (const char* name : {"elsewhere", "from", "to"})
        folder.MakeFolder(name);
    Put(folder, "elsewhere/a.txt", "text");
    std::error_code failure;
    for (const char* link : {"from/first", "from/second"})
        std::filesystem::create_directory_symlink(folder.Path("elsewhere"), folder.Path(link), failure);
    for (const char* link : {"from/x.txt", "from/y.txt"})
        std::filesystem::create_symlink(folder.Path("elsewhere/a.txt"), folder.Path(link), failure);
    if (failure)
        return;
    CHECK(Copy(folder, "from", "to"));
    CHECK(TextOf(folder, "to/first/a.txt") == "text");
    CHECK_FALSE(Exists(folder, "to/second"));
    CHECK(TextOf(folder, "to/x.txt") == "text");
    CHECK(TextOf(folder, "to/y.txt") == "text");
    CHECK_FALSE(std::filesystem::is_symlink(folder.Path("to/x.txt")));
}

TEST_CASE("nothing is written through links that stand in the target")
{
    TempFolder folder;
    for (const char* name : {"from", "from/sub", "to", "outside"})
        folder.MakeFolder(name);
    Put(folder, "from/a.txt", "new");
    Put(folder, "from/sub/b.txt", "new");
    Put(folder, "outside/kept.txt", "kept");
    std::error_code failure;
    std::filesystem::create_symlink(folder.Path("outside/kept.txt"), folder.Path("to/a.txt"), failure);
    std::filesystem::create_directory_symlink(folder.Path("outside"), folder.Path("to/sub"), failure);
    if (failure)
        return;
    CHECK_FALSE(Copy(folder, "from", "to"));
    CHECK(TextOf(folder, "outside/kept.txt") == "kept");
    CHECK_FALSE(Exists(folder, "outside/b.txt"));
    CHECK(TextOf(folder, "to/a.txt") == "new");
    CHECK_FALSE(std::filesystem::is_symlink(folder.Path("to/a.txt")));
    // A folder in its place is written to, and the target itself may be reached by a link.
    std::filesystem::remove(folder.Path("to/sub"));
    std::filesystem::create_directory_symlink(folder.Path("to"), folder.Path("way"), failure);
    CHECK(Copy(folder, "from", "way"));
    CHECK(TextOf(folder, "to/sub/b.txt") == "new");
    CHECK_FALSE(Exists(folder, "outside/b.txt"));
}

TEST_CASE("patterns without their tail mean the folders themselves")
{
    TempFolder folder;
    folder.MakeFolder("from");
    folder.MakeFolder("to");
    Put(folder, "from/a.txt");
    CHECK(OSDIR().DirectoryOperate(folder.WidePath("from"), folder.WidePath("to"), 0));
    CHECK(Exists(folder, "to/a.txt"));
}

TEST_CASE("a written list reads back with its last line twice, and success reads as false")
{
    TempFolder  folder;
    std::string path = folder.Path("list.txt");
    OSDIR().Write(path.data(), {L"a", L"b"});
    CHECK(TextOf(folder, "list.txt") == (Windows ? "a\r\nb\r\n" : "a\nb\n"));
    bool failed = true;
    CHECK(ReadLines(path, failed) == std::vector<CString>{L"a", L"b", L"b"});
    CHECK_FALSE(failed);
}

TEST_CASE("a file whose last line has no break reads back once")
{
    TempFolder folder;
    Put(folder, "list.txt", "a\nb");
    bool failed = true;
    CHECK(ReadLines(folder.Path("list.txt"), failed) == std::vector<CString>{L"a", L"b"});
    CHECK_FALSE(failed);
}

TEST_CASE("a missing file and a folder read as true and leave the list alone")
{
    TempFolder folder;
    bool       failed = false;
    CHECK(ReadLines(folder.Path("missing.txt"), failed).empty());
    CHECK(failed);
    failed = false;
    CHECK(ReadLines(folder.Path(), failed).empty());
    CHECK(failed);
    std::vector<CString> list;
    CHECK(OSDIR().Read(nullptr, list));
}

TEST_CASE("an empty file reads as one empty line")
{
    TempFolder folder;
    Put(folder, "empty.txt", "");
    bool failed = true;
    CHECK(ReadLines(folder.Path("empty.txt"), failed) == std::vector<CString>{L""});
    CHECK_FALSE(failed);
}

TEST_CASE("lines are trimmed at both ends, appended to the list and kept empty where they are")
{
    TempFolder folder;
    Put(folder, "list.txt", " \t a b \t\r\n\n  c");
    std::vector<CString> list = {L"before"};
    std::string          path = folder.Path("list.txt");
    CHECK_FALSE(OSDIR().Read(path.data(), list));
    CHECK(list == std::vector<CString>{L"before", L"a b", L"", L"c"});
}

TEST_CASE("lines longer than 1023 bytes come in pieces")
{
    TempFolder folder;
    Put(folder, "long.txt", std::string(1023, 'a') + std::string(1023, 'b') + "c\nd");
    bool                       failed = true;
    const std::vector<CString> lines = ReadLines(folder.Path("long.txt"), failed);
    REQUIRE(lines.size() == 4);
    CHECK(lines[0] == CString(L'a', 1023));
    CHECK(lines[1] == CString(L'b', 1023));
    CHECK(lines[2] == L"c");
    CHECK(lines[3] == L"d");
}

TEST_CASE("a file of 2^20 lines is read, and one of more leaves the list as it was")
{
    constexpr std::size_t MostLines = std::size_t{1} << 20;
    TempFolder            folder;
    bool                  failed = true;
    // The last line break gives one line more.
    Put(folder, "most.txt", std::string(MostLines - 1, '\n'));
    CHECK(ReadLines(folder.Path("most.txt"), failed).size() == MostLines);
    CHECK_FALSE(failed);
    Put(folder, "more.txt", std::string(MostLines, '\n'));
    std::vector<CString> list = {L"before"};
    std::string          path = folder.Path("more.txt");
    CHECK(OSDIR().Read(path.data(), list));
    CHECK(list == std::vector<CString>{L"before"});
}

TEST_CASE("ten megabytes of empty lines take no memory")
{
    TempFolder folder;
    bool       failed = false;
    Put(folder, "empty-lines.txt", std::string(10'000'000, '\n'));
    const std::vector<CString> lines = ReadLines(folder.Path("empty-lines.txt"), failed);
    CHECK(failed);
    CHECK(lines.capacity() == 0);
}

TEST_CASE("a device without an end is not read")
{
    if (Windows)
        return;
    bool failed = false;
    CHECK(ReadLines("/dev/zero", failed).empty());
    CHECK(failed);
}

TEST_CASE("text of the system's code page survives writing and reading")
{
    TempFolder  folder;
    std::string path = folder.Path("list.txt");
    // On Windows é is in the western code pages, and off Windows every letter is in UTF-8.
    const std::vector<CString> lines = {Windows ? L"caf\u00e9" : L"微软雅黑 caf\u00e9", L"", L"plain"};
    OSDIR().Write(path.data(), lines);
    bool                 failed = true;
    std::vector<CString> expected = lines;
    expected.push_back(L"plain");
    CHECK(ReadLines(path, failed) == expected);
}

TEST_CASE("writing replaces the file, and an empty list leaves it empty")
{
    TempFolder  folder;
    std::string path = folder.Path("list.txt");
    Put(folder, "list.txt", "what was there");
    OSDIR().Write(path.data(), {});
    CHECK(Exists(folder, "list.txt"));
    CHECK(TextOf(folder, "list.txt") == "");
    std::string nowhere = folder.Path("missing/list.txt");
    OSDIR().Write(nowhere.data(), {L"a"});
    OSDIR().Write(nullptr, {L"a"});
    CHECK_FALSE(Exists(folder, "missing"));
}

TEST_CASE("the narrow listing gives bare names of files, and clears the list first")
{
    TempFolder folder;
    folder.MakeFolder("sub");
    folder.MakeFolder("looks.txt");
    for (const char* name : {"b.txt", "a.txt", "plain", "sub/c.txt"})
        Put(folder, name);
    std::vector<std::string> names = {"before"};
    CHECK(OSGetFileListFromDir(folder.Path("*.txt"), names));
    CHECK(names == std::vector<std::string>{"a.txt", "b.txt"});
    CHECK(OSGetFileListFromDir(folder.Path("*.*"), names));
    CHECK(names == std::vector<std::string>{"a.txt", "b.txt", "plain"});
    CHECK(OSGetFileListFromDir(folder.Path("plain"), names));
    CHECK(names == std::vector<std::string>{"plain"});
}

TEST_CASE("a narrow pattern that matches nothing is false with an empty list")
{
    TempFolder folder;
    Put(folder, "a.txt");
    std::vector<std::string> names = {"before"};
    CHECK_FALSE(OSGetFileListFromDir(folder.Path("*.bmp"), names));
    CHECK(names.empty());
    names = {"before"};
    CHECK_FALSE(OSGetFileListFromDir(folder.Path("missing") + Separator + "*.*", names));
    CHECK(names.empty());
    CHECK_FALSE(OSGetFileListFromDir("", names));
}

TEST_CASE("a narrow pattern that matches folders only is true with an empty list")
{
    TempFolder folder;
    folder.MakeFolder("sub");
    std::vector<std::string> names;
    CHECK(OSGetFileListFromDir(folder.Path("sub"), names));
    CHECK(names.empty());
    CHECK(OSGetFileListFromDir(folder.Path("sub") + Separator + "*.*", names));    // its dot entries
    CHECK(names.empty());
}
