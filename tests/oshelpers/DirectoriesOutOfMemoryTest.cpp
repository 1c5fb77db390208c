// Each allocation of a directory walk fails once: the allocator's exception comes out, and nothing leaks.

#include "support/FailingAllocator.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <new>

namespace {

// Two folders and two files, with names that no string holds without an allocation.
void Furnish(const TempFolder& folder)
{
    folder.MakeFolder("a folder to be copied");
    folder.MakeFolder("a folder to be copied/with another one inside");
    folder.MakeFolder("the folder of the copy");
    for (const char* name : {"a folder to be copied/the first of the files",
                             "a folder to be copied/with another one inside/the second of the files"})
        REQUIRE(WriteBytes(folder.Path(name), {1, 2, 3}));
}

template <typename Call>
void CheckEachFailure(Call call)
{
    int  thrown = 0;
    bool leaked = false, ended = false;
    for (long n = 1; n < 10000 && !ended; ++n) {
        const long live = LiveBlockCount();
        FailAt(n);
        try {
            call();
        } catch (const std::bad_alloc&) {
            ++thrown;
        }
        ended = !HasAllocationFailed();
        FailAt(0);
        leaked = leaked || LiveBlockCount() != live;
    }
    CHECK(ended);
    CHECK(thrown > 5);
    CHECK_FALSE(leaked);
}

}

TEST_CASE("a listing that finds no memory passes the exception on")
{
    TempFolder folder;
    Furnish(folder);
    std::wstring dir(folder.WidePath().GetString());
    wchar_t      pattern[] = L"*.*";
    std::size_t  found = 0;
    CheckEachFailure([&] {
        std::vector<CString> files;
        OSDIR().FindFile(dir.data(), files, true, pattern);
        found = files.size();
    });
    CHECK(found == 2);
    const std::string narrow = folder.Path("a folder to be copied/*");
    CheckEachFailure([&] {
        std::vector<std::string> names;
        OSGetFileListFromDir(narrow, names);
    });
}

TEST_CASE("a copy of a tree that finds no memory passes the exception on and can be done again")
{
    TempFolder folder;
    Furnish(folder);
    const CString from = folder.WidePath("a folder to be copied");
    const CString to = folder.WidePath("the folder of the copy");
    bool          copied = false;
    CheckEachFailure([&] { copied = OSDIR().DirectoryOperate(from, to, 0); });
    CHECK(copied);
    CHECK(ReadBytes(folder.Path("the folder of the copy/with another one inside/the second of the files")) ==
          std::vector<unsigned char>{1, 2, 3});
}
