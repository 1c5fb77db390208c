#include <VostelObj.h>

#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <cstring>

namespace {

const unsigned long NoSize = 0xFFFFFFFFul;

CString Dir(const wchar_t* path)
{
    CString text(path);
    return OSCString().GetDir(text);
}
CString NextDir(const wchar_t* path)
{
    CString text(path);
    return OSCString().GetNextDir(text);
}
CString Name(CString path, bool full)
{
    return OSCString().GetName(path, full);
}
CString Ext(CString path)
{
    return OSCString().GetExt(path);
}
CString Changed(const wchar_t* name, const wchar_t* ext)
{
    return OSCString().ChangeExt(CString(name), CString(ext));
}

}

TEST_CASE("the narrow copy of a plain name is the name, and is freed by its deleter")
{
    CString     text(L"C:\\Data\\Image.BMP");
    char* const copy = gCStringToChar(&text);
    REQUIRE(copy != nullptr);
    CHECK(std::strcmp(copy, "C:\\Data\\Image.BMP") == 0);
    gDLLDelete(copy);
}

TEST_CASE("the narrow copy of an empty or absent text is an empty text")
{
    CString empty;
    for (CString* text : {&empty, static_cast<CString*>(nullptr)}) {
        char* const copy = gCStringToChar(text);
        REQUIRE(copy != nullptr);
        CHECK(copy[0] == 0);
        gDLLDelete(copy);
    }
}

TEST_CASE("deleting no text does nothing")
{
    gDLLDelete(nullptr);
}

TEST_CASE("a narrow copy of any text ends inside its buffer")
{
    // One, two and three bytes each in UTF-8; on Windows some of it is not in the code pages at all.
    CString     text(L"a\u00e9\u6587\u4ef6z");
    char* const copy = gCStringToChar(&text);
    REQUIRE(copy != nullptr);
    CHECK(copy[0] == 'a');
    CHECK(std::strlen(copy) >= 1);
    const bool narrowTextIsUtf8 = sizeof(wchar_t) == 4;    // off Windows
    if (narrowTextIsUtf8)
        CHECK(std::strcmp(copy, "a\xC3\xA9\xE6\x96\x87\xE4\xBB\xB6z") == 0);
    gDLLDelete(copy);
}

TEST_CASE("a text as a string goes up to its terminator")
{
    CString text(L"ab.c");
    CHECK(CStringToString(text) == "ab.c");
    CString empty;
    CHECK(CStringToString(empty).empty());
    CString broken(L"ab\0cd", 5);
    REQUIRE(broken.GetLength() == 5);
    CHECK(CStringToString(broken) == "ab");
}

TEST_CASE("an object takes its text, replaces it and starts without one")
{
    CHECK(OSCString().GetChar() == nullptr);
    CString   first(L"one"), second(L"two and more");
    OSCString object(first);
    CHECK(std::strcmp(object.GetChar(), "one") == 0);
    CHECK(object.GetChar() == object.Text);
    object.SetCString(second);
    CHECK(std::strcmp(object.GetChar(), "two and more") == 0);
    OSCString late;
    late.SetCString(first);
    CHECK(std::strcmp(late.GetChar(), "one") == 0);
}

TEST_CASE("assignment shares the text")
{
    CString   text(L"shared");
    OSCString owner(text), other;
    other = owner;
    CHECK(other.Text == owner.Text);
    other.Text = nullptr;    // only one of the two may free it
    CHECK(std::strcmp(owner.GetChar(), "shared") == 0);
}

TEST_CASE("the size of an open file is found and its position kept")
{
    const TempFolder  folder;
    const std::string path = folder.Path("five.bin");
    REQUIRE(WriteBytes(path, {1, 2, 3, 4, 5}));
    FILE* const file = std::fopen(path.c_str(), "rb");
    REQUIRE(file != nullptr);
    CHECK(std::fgetc(file) == 1);
    CHECK(std::fgetc(file) == 2);
    CHECK(cFileSize(file) == 5);
    CHECK(std::fgetc(file) == 3);
    std::fclose(file);
    CHECK(cFileSize(static_cast<FILE*>(nullptr)) == NoSize);
}

TEST_CASE("the size of an open file counts what was written and not yet stored")
{
    const TempFolder folder;
    FILE* const      file = std::fopen(folder.Path("new.bin").c_str(), "wb");
    REQUIRE(file != nullptr);
    std::fputs("abc", file);
    CHECK(cFileSize(file) == 3);
    std::fputs("de", file);
    CHECK(cFileSize(file) == 5);
    std::fclose(file);
}

TEST_CASE("the size of a file by name is 0xFFFFFFFF if it cannot be opened")
{
    const TempFolder  folder;
    const std::string path = folder.Path("three.bin");
    CHECK(cFileSize(path.c_str()) == NoSize);
    REQUIRE(WriteBytes(path, {1, 2, 3}));
    CHECK(cFileSize(path.c_str()) == 3);
    REQUIRE(WriteBytes(path, {}));
    CHECK(cFileSize(path.c_str()) == 0);
    CHECK(cFileSize(static_cast<const char*>(nullptr)) == NoSize);
    CHECK(cFileSize(folder.Path().c_str()) == NoSize);
}

TEST_CASE("the two tests for existence agree on files and directories")
{
    const TempFolder folder;
    folder.MakeFolder("inner");
    REQUIRE(WriteBytes(folder.Path("plain"), {1}));
    for (bool (*exists)(const char*) : {cFileExist, cDirExist}) {
        CHECK(exists(folder.Path("plain").c_str()));
        CHECK(exists(folder.Path("inner").c_str()));
        CHECK_FALSE(exists(folder.Path("absent").c_str()));
        CHECK_FALSE(exists(nullptr));
    }
}

TEST_CASE("the directory of a path ends with its last separator")
{
    CHECK(Dir(L"C:\\Data\\Image.BMP") == L"C:\\Data\\");
    CHECK(Dir(L"C:\\Data\\") == L"C:\\Data\\");
    CHECK(Dir(L"Image.BMP") == L"");
    CHECK(Dir(L"") == L"");
    CHECK(Dir(L"\\x") == L"\\");
}

TEST_CASE("the parent directory of a path ends with the last separator but one")
{
    CHECK(NextDir(L"C:\\Data\\In\\Image.BMP") == L"C:\\Data\\");
    CHECK(NextDir(L"C:\\Data\\In\\") == L"C:\\Data\\");
    CHECK(NextDir(L"C:\\a") == L"");
    CHECK(NextDir(L"a") == L"");
    CHECK(NextDir(L"") == L"");
}

TEST_CASE("the platform's own paths come apart at their separators")
{
    const TempFolder folder;
    folder.MakeFolder("inner");
    CString       path = folder.WidePath("inner/a.bmp");
    const CString root = folder.WidePath();
    OSCString     object;
    CHECK(object.GetDir(path).GetLength() == root.GetLength() + 7);
    CHECK(object.GetNextDir(path).GetLength() == root.GetLength() + 1);
    CHECK(object.GetDir(path).Left(root.GetLength()) == root);
    CHECK(object.GetName(path, false) == L"a");
}

TEST_CASE("a name is the path up to its last dot, with or without the directory")
{
    CHECK(Name(L"C:\\a.bmp", false) == L"a");
    CHECK(Name(L"C:\\a.bmp", true) == L"C:\\a");
    CHECK(Name(L"C:\\x\\a.b.c", false) == L"a.b");
    CHECK(Name(L"C:\\x.y\\a", true) == L"C:\\x");
    CHECK(Name(L"C:\\x.y\\a", false) == L"x");
}

TEST_CASE("a dot before the fourth character makes no name")
{
    CHECK(Name(L"a.bmp", false) == L"nul");
    CHECK(Name(L"a.bmp", true) == L"nul");
    CHECK(Name(L"ab.bmp", true) == L"nul");
    CHECK(Name(L"abc.bmp", true) == L"abc");
    CHECK(Name(L".", true) == L"notfile");
    CHECK(Name(L"", true) == L"nul");
}

TEST_CASE("an extension is what follows the last dot, in lower case")
{
    CHECK(Ext(L"C:\\Data\\Image.BMP") == L"bmp");
    CHECK(Ext(L"a.B.Cd") == L"cd");
    CHECK(Ext(L"a.") == L"");
    CHECK(Ext(L"C:\\x.Y\\a") == L"y\\a");
}

TEST_CASE("a path without a dot has the extension nul as a file and notfile as a directory")
{
    // The temporary folder itself may have a dot in its path, so that the working directory is the place.
    const std::filesystem::path before = std::filesystem::current_path();
    const TempFolder            folder;
    folder.MakeFolder("inner");
    REQUIRE(WriteBytes(folder.Path("plain"), {1}));
    std::filesystem::current_path(folder.Path());
    CHECK(Ext(L"inner") == L"notfile");
    CHECK(Ext(L"plain") == L"nul");
    CHECK(Ext(L"absent") == L"nul");
    CHECK(Name(L"inner", true) == L"notfile");
    CHECK(Name(L"inner", false) == L"notfile");
    CHECK(Name(L"plain", false) == L"nul");
    CHECK(Name(L"absent", false) == L"nul");
    // A directory counts as having an extension: what follows its first dot is replaced, and it has none.
    CHECK(Changed(L"inner", L"raw") == L".raw");
    CHECK(Changed(L"plain", L"raw") == L"plain.raw");
    std::filesystem::current_path(before);
}

TEST_CASE("changing an extension replaces all from the first dot on")
{
    CHECK(Changed(L"x.y.z", L"raw") == L"x.raw");
    CHECK(Changed(L"C:\\a.BMP", L"raw") == L"C:\\a.raw");
    CHECK(Changed(L"C:\\d.e\\a", L"raw") == L"C:\\d.raw");
    CHECK(Changed(L"x", L"raw") == L"x.raw");
    CHECK(Changed(L"x.", L"") == L"x.");
}

TEST_CASE("an extension that reads nul counts as none, so that the new one is added")
{
    CHECK(Changed(L"x.nul", L"raw") == L"x.nul.raw");
    CHECK(Changed(L"x.NUL", L"raw") == L"x.NUL.raw");
}
