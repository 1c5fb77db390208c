#include "commands/Commands.h"
#include "commands/Utf8Text.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

using namespace vostel::viewer;

namespace {

bool IsChinese(wchar_t character)
{
    return character >= 0x4E00 && character <= 0x9FFF;
}

// The marks %1, %2, ... of a text and the letter after its &, in order of their kind.
std::multiset<std::wstring> MarksOf(const std::wstring& text)
{
    std::multiset<std::wstring> marks;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const bool isMark = text[i] == L'%' && text[i + 1] >= L'1' && text[i + 1] <= L'9';
        if (isMark || text[i] == L'&')
            marks.insert({text[i], static_cast<wchar_t>(std::toupper(static_cast<char>(text[i + 1])))});
    }
    return marks;
}

bool EndsWith(const std::wstring& text, const std::wstring& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}

TEST_CASE("the table has every English text once, and its Chinese has characters of Chinese")
{
    // Names that are written alike in both.
    const std::set<std::string> alike = {"Sobel x", "Sobel y", "En&glish"};
    std::set<std::string>       known;
    for (const ChineseText& text : ChineseTexts) {
        CAPTURE(std::string(text.English));
        CHECK(known.insert(text.English).second);
        const std::wstring chinese = text.Chinese;
        const bool         hasChinese = std::any_of(chinese.begin(), chinese.end(), IsChinese);
        const bool         isFrame = std::string(text.English) == "%1 ...";
        CHECK((hasChinese || isFrame) != (alike.count(text.English) == 1));
    }
    CHECK(known.size() > 250);
}

TEST_CASE("a Chinese text has the marks, the mnemonic, the tabs and the dots of the English one")
{
    for (const ChineseText& text : ChineseTexts) {
        const std::wstring english = WideOf(text.English), chinese = text.Chinese;
        CAPTURE(text.English);
        CHECK(MarksOf(english) == MarksOf(chinese));
        CHECK(std::count(english.begin(), english.end(), L'\t') ==
              std::count(chinese.begin(), chinese.end(), L'\t'));
        if (english != L"%1 ...")
            CHECK(EndsWith(english, L"...") == EndsWith(chinese, L"..."));
    }
}

TEST_CASE("a text is looked up for Chinese alone, and one that the table does not know stays")
{
    CHECK(TextIn(Language::English, "&Open...") == L"&Open...");
    CHECK(TextIn(Language::Chinese, "&Open...") == L"\u6253\u5f00(&O)...");
    CHECK(TextIn(Language::Chinese, "no text of the table") == L"no text of the table");
    CHECK(ChineseOf("no text of the table") == nullptr);
}

TEST_CASE("marks are replaced by their parts, and what a part contains stays")
{
    CHECK(Filled(L"%2 of %1", {L"a", L"b"}) == L"b of a");
    CHECK(Filled(L"%1 of %2", {L"%2", L"b"}) == L"%2 of b");
    CHECK(Filled(L"100 %", {L"a"}) == L"100 %");
}

TEST_CASE("texts go from wide to UTF-8 and back, one to four bytes a character")
{
    const std::wstring wide = L"a\u00e9\u9875\U0001F600";
    const std::string  utf8 = "a\xC3\xA9\xE9\xA1\xB5\xF0\x9F\x98\x80";
    CHECK(Utf8Of(wide) == utf8);
    CHECK(WideOf(utf8) == wide);
    CHECK(Utf8Of(L"") == "");
}

TEST_CASE("what is no UTF-8 becomes the character that says so, and what follows is read")
{
    CHECK(WideOf("\xFFz") == L"\uFFFDz");
    CHECK(WideOf("\xC3") == L"\uFFFD");
    CHECK(WideOf("\xE9\xA1z") == L"\uFFFDz");
    CHECK(WideOf("\xC0\xAF") == L"\uFFFD\uFFFD");      // longer than it needs to be
    CHECK(WideOf("\xED\xA0\x80") == L"\uFFFD");        // half of a pair
    CHECK(WideOf("\xF4\x90\x80\x80") == L"\uFFFD");    // beyond the last character
    CHECK(Utf8Of(std::wstring(1, static_cast<wchar_t>(0xD800))) == "\xEF\xBF\xBD");
}
