#include "dialogs/win32/NumberText.h"

#include <doctest/doctest.h>

using namespace vostel;

TEST_CASE("a whole number parses with a sign and blanks around it, and nothing else")
{
    std::int32_t number = 0;
    CHECK(ParseNumber(L" 12\t", number));
    CHECK(number == 12);
    CHECK(ParseNumber(L"-2147483648", number));
    CHECK(number == INT32_MIN);
    CHECK(ParseNumber(L"+7", number));
    CHECK(number == 7);
    for (const wchar_t* wrong :
         {L"", L"  ", L"1 2", L"12x", L"1.5", L"+-1", L"++1", L"+", L"2147483648", L"１２"})
        CHECK_FALSE(ParseNumber(wrong, number));
    CHECK(number == 7);
}

TEST_CASE("an unsigned number takes the upper half of its range and no minus")
{
    std::uint32_t number = 0;
    CHECK(ParseNumber(L"4294967295", number));
    CHECK(number == 4294967295u);
    CHECK_FALSE(ParseNumber(L"-1", number));
    CHECK_FALSE(ParseNumber(L"4294967296", number));
}

TEST_CASE("a fraction parses with a dot and must be finite")
{
    float number = 0.0f;
    CHECK(ParseNumber(L"-2.5", number));
    CHECK(number == -2.5f);
    CHECK(ParseNumber(L"1e3", number));
    CHECK(number == 1000.0f);
    for (const wchar_t* wrong : {L"2,5", L"nan", L"inf", L"1e99", L"x"})
        CHECK_FALSE(ParseNumber(wrong, number));
    CHECK(number == 1000.0f);
}

TEST_CASE("a number's text parses to the same number")
{
    for (const float number : {0.1f, -65535.5f, 3.4028235e38f, 1e-45f, 0.0f}) {
        float parsed = 1.0f;
        CHECK(ParseNumber(NumberText(number), parsed));
        CHECK(parsed == number);
    }
    CHECK(NumberText(INT32_MIN) == L"-2147483648");
    CHECK(NumberText(std::uint32_t(4294967295u)) == L"4294967295");
}
