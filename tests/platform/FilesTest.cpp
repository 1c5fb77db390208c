#include "platform/Files.h"

#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <cwchar>

using namespace vostel;

namespace {

OwnedFile Open(const std::string& path, const char* mode)
{
    return OpenFile(path.c_str(), mode);
}

}

TEST_CASE("files and folders exist, and nothing else does")
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.txt"), {1, 2, 3}));
    CHECK(PathExists(folder.Path("a.txt").c_str()));
    CHECK(PathExists(folder.Path().c_str()));
    CHECK_FALSE(PathExists(folder.Path("b.txt").c_str()));
    CHECK_FALSE(PathExists(""));
    CHECK_FALSE(PathExists(nullptr));
}

TEST_CASE("a folder is a directory, a file and a missing path are none")
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.txt"), {1}));
    CHECK(IsDirectory(folder.WidePath()));
    CHECK_FALSE(IsDirectory(folder.WidePath("a.txt")));
    CHECK_FALSE(IsDirectory(folder.WidePath("b")));
    CHECK_FALSE(IsDirectory(CString()));
}

TEST_CASE("files open for reading and writing, folders and missing files do not")
{
    const TempFolder folder;
    CHECK(Open(folder.Path("a.bin"), "rb") == nullptr);
    CHECK(Open(folder.Path("missing/a.bin"), "wb") == nullptr);
    CHECK(Open(folder.Path(), "rb") == nullptr);
    CHECK(OpenFile(nullptr, "rb") == nullptr);
    CHECK(OpenFile(folder.Path("a.bin").c_str(), nullptr) == nullptr);
    {
        const OwnedFile file = Open(folder.Path("a.bin"), "wb");
        REQUIRE(file != nullptr);
        CHECK(std::fwrite("abc", 1, 3, file.get()) == 3);
    }
    CHECK(Open(folder.Path("a.bin"), "rb") != nullptr);
    CHECK(ReadBytes(folder.Path("a.bin")).size() == 3);
}

TEST_CASE("the length of a file is found without moving its position")
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.bin"), std::vector<unsigned char>(1234, 7)));
    const OwnedFile file = Open(folder.Path("a.bin"), "rb");
    REQUIRE(file != nullptr);
    std::fseek(file.get(), 100, SEEK_SET);
    CHECK(FileLength(file.get()) == 1234);
    CHECK(std::ftell(file.get()) == 100);
    CHECK(FileLength(nullptr) == -1);
}

TEST_CASE("plain text is narrowed and widened letter by letter")
{
    CHECK(NarrowAnsi(L"abc", 3) == "abc");
    CHECK(NarrowAnsi(L"abc", 2) == "ab");
    CHECK(NarrowAnsi(L"abc", -1) == "abc");
    CHECK(NarrowAnsi(L"abc", 0).empty());
    CHECK(NarrowAnsi(nullptr, 3).empty());
    CHECK(NarrowOem(L"abc", 3) == "abc");
    CHECK(NarrowOem(nullptr, -1).empty());
    CHECK(WidenAnsi("abc") == L"abc");
    CHECK(WidenAnsi("").empty());
    CHECK(WidenAnsi(nullptr).empty());
}

TEST_CASE("a backslash separates the parts of a path, a letter does not")
{
    CHECK(IsPathSeparator(L'\\'));
    CHECK_FALSE(IsPathSeparator(L'a'));
}

#if !defined(_WIN32)
TEST_CASE("a slash separates the parts of a path too")
{
    CHECK(IsPathSeparator(L'/'));
}

TEST_CASE("narrow text is UTF-8")
{
    const wchar_t* text = L"é文\U0001F600";
    CHECK(NarrowAnsi(text, 3) == "\xC3\xA9\xE6\x96\x87\xF0\x9F\x98\x80");
    CHECK(NarrowOem(text, 3) == NarrowAnsi(text, 3));
    CHECK(WidenAnsi("\xC3\xA9\xE6\x96\x87\xF0\x9F\x98\x80") == text);
    // What is not a character becomes the replacement character.
    const wchar_t wrong[] = {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000),
                             static_cast<wchar_t>(-1)};
    CHECK(NarrowAnsi(wrong, 3) == "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_CASE("bytes that are not UTF-8 survive the way to wide text and back")
{
    // A stray tail, an overlong slash, a surrogate, a sequence beyond the last plane, one cut short.
    for (const char* bytes : {"a\x80z", "\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xF4\x90\x80\x80",
                              "a\xE6\x96", "\xFF\xFE", "\xC3"}) {
        const std::wstring wide = WidenAnsi(bytes);
        CHECK(NarrowAnsi(wide.c_str(), static_cast<int>(wide.size())) == bytes);
    }
    CHECK(WidenAnsi("\xC0\xAF").size() == 2);
}

TEST_CASE("a device has no length")
{
    const OwnedFile file = Open("/dev/null", "rb");
    REQUIRE(file != nullptr);
    CHECK(FileLength(file.get()) == -1);
}
#endif
