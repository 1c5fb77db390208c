#include "commands/RecentFileList.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <type_traits>

using namespace vostel::viewer;

namespace {

using Names = std::vector<std::wstring>;

}

TEST_CASE("the file added last is the first, and stands once")
{
    Names          saved;
    RecentFileList list({L"/b", L"/a"}, [&](const Names& files) { saved = files; });
    CHECK(list.Paths() == Names{L"/b", L"/a"});
    list.Add(L"/c");
    CHECK(saved == Names{L"/c", L"/b", L"/a"});
    list.Add(L"/a");
    CHECK(saved == Names{L"/a", L"/c", L"/b"});
    CHECK(list.Paths() == saved);
}

TEST_CASE("no more than nine files are kept, of earlier runs too")
{
    Names many;
    for (wchar_t name = L'a'; name < L'a' + 12; ++name)
        many.push_back(std::wstring(1, name));
    RecentFileList list(many, {});
    CHECK(list.Paths().size() == 9);
    CHECK(list.Paths().back() == L"i");
    list.Add(L"new");
    CHECK(list.Paths().size() == 9);
    CHECK(list.Paths().back() == L"h");
}

TEST_CASE("a file is taken out, and all are cleared, in what is saved as well")
{
    Names          saved = {L"untouched"};
    RecentFileList list({L"/b", L"/a"}, [&](const Names& files) { saved = files; });
    list.Remove(L"/b");
    CHECK(saved == Names{L"/a"});
    list.Remove(L"/none");
    CHECK(saved == Names{L"/a"});
    list.Clear();
    CHECK(saved.empty());
}

TEST_CASE("names that differ by case are one file only where the file system says so")
{
    constexpr bool EitherCase = std::is_same_v<std::filesystem::path::value_type, wchar_t>;
    RecentFileList list({L"/Picture.png"}, {});
    list.Add(L"/picture.PNG");
    CHECK(list.Paths().size() == (EitherCase ? 1u : 2u));
}
