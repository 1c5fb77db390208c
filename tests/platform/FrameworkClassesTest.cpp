// CString, CPoint, CSize and CRect as a host uses them.

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <cstring>
#include <string>

namespace {

std::string Narrow(const CString& text)
{
    std::string narrow;
    for (int i = 0; i < text.GetLength(); ++i)
        narrow += static_cast<char>(text[i]);
    return narrow;
}

CString Formatted(const wchar_t* format, const wchar_t* wide, const char* narrow)
{
    CString text;
    text.Format(format, wide, narrow);
    return text;
}

}

TEST_CASE("a format takes numbers of every size")
{
    CString text(L"before");
    text.Format(L"%d %5d|%-5d|%05d %u %x %%", -7, 42, 42, 42, 7u, 255u);
    CHECK(Narrow(text) == "-7    42|42   |00042 7 ff %");
    text.Format(L"%.3f %8.2f %g", 1.0 / 3.0, 2.5, 1e20);
    CHECK(Narrow(text) == "0.333     2.50 1e+20");
    text.Format(L"%lld %I64d %I64x %hd", 1LL << 40, -(1LL << 40), 1LL << 36, 70000);
    CHECK(Narrow(text) == "1099511627776 -1099511627776 1000000000 4464");
    text.Format(L"%*d|%-*d|%.*f", 4, 1, 4, 2, 1, 3.25);
    CHECK(Narrow(text) == "   1|2   |3.2");
}

TEST_CASE("a format's texts are wide, with S or h they are narrow")
{
    CHECK(Narrow(Formatted(L"[%s] [%S]", L"wide", "narrow")) == "[wide] [narrow]");
    CHECK(Narrow(Formatted(L"[%ls] [%hs]", L"wide", "narrow")) == "[wide] [narrow]");
    CHECK(Narrow(Formatted(L"[%6s] [%-8S]", L"wide", "narrow")) == "[  wide] [narrow  ]");
    CHECK(Narrow(Formatted(L"[%.2s] [%.3S]", L"wide", "narrow")) == "[wi] [nar]");
    CString text;
    text.Format(L"%c%C%lc", L'a', 'b', L'c');
    CHECK(Narrow(text) == "abc");
    text.Format(L"%s", L"长度 = 4.290");
    CHECK(text == L"长度 = 4.290");
}

TEST_CASE("a format may name the text that it replaces, and may be longer than any first guess")
{
    CString text(L"x");
    for (int i = 0; i < 12; ++i)
        text.Format(L"%s%s", text.GetString(), text.GetString());
    CHECK(text.GetLength() == 4096);
    text.AppendFormat(L"%d", 12);
    CHECK(text.GetLength() == 4098);
    CHECK(text.Right(3) == L"x12");
    text.Format(nullptr);
    CHECK(text.IsEmpty());
    text.Format(L"100%");
    CHECK(text == L"100");
}

TEST_CASE("a narrow text widens")
{
    const char* const none = nullptr;
    CHECK(CString("plain") == L"plain");
    CHECK(CString(none).IsEmpty());
    CHECK(CString(nullptr).IsEmpty());
    char buffer[] = "buffer";
    CHECK(CString(buffer) == L"buffer");
}

TEST_CASE("texts are put together, cut and searched")
{
    CString text(L"  \tAbc\r\n");
    CHECK(CString(text).TrimLeft() == L"Abc\r\n");
    CHECK(CString(text).TrimRight() == L"  \tAbc");
    CHECK(text.Trim() == L"Abc");
    CHECK(CString(L" \t").TrimLeft().IsEmpty());
    CHECK(CString(L" \t").TrimRight().IsEmpty());
    CHECK(text.CompareNoCase(L"aBC") == 0);
    CHECK(text.CompareNoCase(L"abd") < 0);
    CHECK(text.CompareNoCase(L"abb") > 0);
    CHECK(text.Compare(L"abc") != 0);
    text.MakeUpper();
    CHECK(text == L"ABC");
    text.Append(L"de");
    text.AppendChar(L'f');
    CHECK(text == L"ABCdef");
    CHECK(text.Insert(3, L"--") == 8);
    CHECK(text == L"ABC--def");
    CHECK(text.Insert(99, L"!") == 9);
    CHECK(text.Insert(-1, L"!") == 10);
    CHECK(text == L"!ABC--def!");
    CHECK(text.Delete(4, 2) == 8);
    CHECK(text.Delete(0) == 7);
    CHECK(text == L"ABCdef!");
    CHECK(text.Delete(6, 100) == 6);
    CHECK(text.Delete(6) == 6);
    CHECK(text.Delete(2, 0) == 6);
    CHECK(text == L"ABCdef");
}

TEST_CASE("a buffer is written and released")
{
    CString  text(L"ab");
    wchar_t* buffer = text.GetBuffer(10);
    CHECK(buffer[0] == L'a');
    CHECK(buffer[1] == L'b');
    buffer[2] = L'c';
    buffer[3] = 0;
    text.ReleaseBuffer();
    CHECK(text == L"abc");
    text.GetBuffer()[0] = L'A';
    text.ReleaseBuffer(2);
    CHECK(text == L"Ab");
}

TEST_CASE("points and sizes add up")
{
    CPoint point(3, 4);
    point += CPoint(10, 20);
    CHECK(point == CPoint(13, 24));
    point -= CPoint(1, 2);
    CHECK(point == CPoint(12, 22));
    point.Offset(CPoint(-12, 0));
    CHECK(point == CPoint(0, 22));
    CHECK(-point == CPoint(0, -22));
    CHECK(CSize(CPoint(5, 6)) == CSize(5, 6));
    CHECK(CSize(5, 6) != CSize(5, 7));
    CHECK(CSize(5, 6) != CSize(4, 6));
}

TEST_CASE("rectangles meet and join")
{
    const CRect a(0, 0, 10, 10), b(5, -5, 20, 5), beside(10, 0, 20, 10), none(4, 4, 4, 9);
    CHECK((a & b) == CRect(5, 0, 10, 5));
    CHECK((a & beside) == CRect(0, 0, 0, 0));
    CHECK((a & none) == CRect(0, 0, 0, 0));
    CHECK((a | b) == CRect(0, -5, 20, 10));
    CHECK((a | none) == a);
    CHECK((none | b) == b);
    CHECK((none | none) == CRect(0, 0, 0, 0));
    CRect rect;
    CHECK(rect.IntersectRect(a, b));
    CHECK_FALSE(rect.IntersectRect(a, beside));
    CHECK(rect.IsRectNull());
    CHECK(rect.UnionRect(a, beside));
    CHECK(rect.EqualRect(CRect(0, 0, 20, 10)));
    CHECK_FALSE(rect.EqualRect(a));
    CHECK_FALSE(rect.UnionRect(none, none));
}

TEST_CASE("rectangles move and turn the right way round")
{
    CRect rect(1, 2, 11, 22);
    rect += CPoint(4, 3);
    CHECK(rect == CRect(5, 5, 15, 25));
    rect -= CPoint(5, 5);
    CHECK(rect == CRect(0, 0, 10, 20));
    CHECK(rect + CPoint(1, 2) == CRect(1, 2, 11, 22));
    CHECK(rect - CPoint(1, 2) == CRect(-1, -2, 9, 18));
    rect.MoveToXY(100, 50);
    CHECK(rect == CRect(100, 50, 110, 70));
    rect = CRect(9, 8, 3, 2);
    rect.NormalizeRect();
    CHECK(rect == CRect(3, 2, 9, 8));
}
