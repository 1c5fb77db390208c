#pragma once

// CString, the wide string of the interface, with the application framework's meaning, for compilers
// that do not bring it. Positions count wchar_t units; "not found" is -1.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <string>
#include <type_traits>

class CString {
public:
    CString() = default;
    CString(const wchar_t* text) : Text(text ? text : L"") {}
    CString(const wchar_t* text, int length) : Text(text, text + (length > 0 ? length : 0)) {}
    CString(wchar_t character, int count = 1)
        : Text(static_cast<std::size_t>(count > 0 ? count : 0), character)
    {
    }
    // A narrow text in the system code page; UTF-8 off Windows. A template, so that a null pointer constant
    // keeps meaning the wide one.
    template <typename Char, typename = std::enable_if_t<std::is_same_v<Char, char>>>
    CString(const Char* text) : Text(Widened(text))
    {
    }

    int            GetLength() const { return static_cast<int>(Text.size()); }
    bool           IsEmpty() const { return Text.empty(); }
    void           Empty() { Text.clear(); }
    wchar_t        GetAt(int index) const { return Text[static_cast<std::size_t>(index)]; }
    void           SetAt(int index, wchar_t character) { Text[static_cast<std::size_t>(index)] = character; }
    wchar_t        operator[](int index) const { return GetAt(index); }
    const wchar_t* GetString() const { return Text.c_str(); }
                   operator const wchar_t*() const { return Text.c_str(); }

    CString Left(int count) const { return Mid(0, count); }
    CString Right(int count) const
    {
        const int kept = count < 0 ? 0 : count > GetLength() ? GetLength() : count;
        return Mid(GetLength() - kept, kept);
    }
    CString Mid(int first) const { return Mid(first, GetLength()); }
    CString Mid(int first, int count) const
    {
        const int start = first < 0 ? 0 : first;
        if (start >= GetLength() || count <= 0)
            return CString();
        CString part;
        part.Text = Text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
        return part;
    }

    int Find(wchar_t character, int from = 0) const { return Position(Text.find(character, Start(from))); }
    int Find(const wchar_t* part, int from = 0) const { return Position(Text.find(part, Start(from))); }
    int ReverseFind(wchar_t character) const { return Position(Text.rfind(character)); }

    // Replaces every occurrence from the left and answers their number.
    int Replace(const wchar_t* from, const wchar_t* to)
    {
        const std::wstring oldPart(from), newPart(to);
        int                count = 0;
        if (oldPart.empty())
            return 0;
        for (std::size_t at = Text.find(oldPart); at != std::wstring::npos;
             at = Text.find(oldPart, at + newPart.size())) {
            Text.replace(at, oldPart.size(), newPart);
            ++count;
        }
        return count;
    }
    CString& MakeLower()
    {
        for (wchar_t& character : Text)
            character = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
        return *this;
    }
    CString& MakeUpper()
    {
        for (wchar_t& character : Text)
            character = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
        return *this;
    }
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& TrimLeft()
    {
        Text.erase(0, (std::min)(Text.find_first_not_of(Blanks), Text.size()));
        return *this;
    }
    CString& TrimRight()
    {
        Text.erase(Text.find_last_not_of(Blanks) + 1);
        return *this;
    }
    int Compare(const wchar_t* other) const { return Text.compare(other); }
    int CompareNoCase(const wchar_t* other) const
    {
        return CString(*this).MakeLower().Compare(CString(other).MakeLower());
    }

    // Answer the new length. A place outside the text is moved to its nearer end.
    int Insert(int index, const wchar_t* part)
    {
        Text.insert(Start(index), part ? part : L"");
        return GetLength();
    }
    int Delete(int index, int count = 1)
    {
        Text.erase(Start(index), static_cast<std::size_t>(count > 0 ? count : 0));
        return GetLength();
    }

    void Append(const wchar_t* more) { Text += more ? more : L""; }
    void AppendChar(wchar_t character) { Text += character; }

    // A text by a printf format, in which %s and %c take wide arguments and %S and %C narrow ones, as
    // Windows has it. Becomes empty for a format that cannot be carried out.
    VOSTEL_API void Format(const wchar_t* format, ...);
    VOSTEL_API void AppendFormat(const wchar_t* format, ...);

    // Room for at least so many characters to write into; ends with ReleaseBuffer, which takes the new
    // length, or finds the terminator if it is -1.
    wchar_t* GetBuffer(int room = 0)
    {
        if (room > GetLength())
            Text.resize(static_cast<std::size_t>(room));
        return Text.data();
    }
    void ReleaseBuffer(int length = -1)
    {
        Text.resize(length < 0 ? std::wcslen(Text.c_str())
                               : (std::min)(static_cast<std::size_t>(length), Text.size()));
    }

    CString& operator+=(const CString& more)
    {
        Text += more.Text;
        return *this;
    }
    CString& operator+=(wchar_t character)
    {
        Text += character;
        return *this;
    }

    friend CString operator+(CString a, const CString& b) { return a += b; }
    friend CString operator+(CString a, const wchar_t* b) { return a += CString(b); }
    friend CString operator+(const wchar_t* a, const CString& b) { return CString(a) += b; }
    friend bool    operator==(const CString& a, const CString& b) { return a.Text == b.Text; }
    friend bool    operator==(const CString& a, const wchar_t* b) { return a.Text == b; }
    friend bool    operator==(const wchar_t* a, const CString& b) { return b.Text == a; }
    friend bool    operator!=(const CString& a, const CString& b) { return a.Text != b.Text; }
    friend bool    operator!=(const CString& a, const wchar_t* b) { return a.Text != b; }
    friend bool    operator!=(const wchar_t* a, const CString& b) { return b.Text != a; }
    friend bool    operator<(const CString& a, const CString& b) { return a.Text < b.Text; }

private:
    std::wstring Text;

    static constexpr const wchar_t* Blanks = L" \t\r\n\v\f";

    VOSTEL_API static std::wstring Widened(const char* text);

    std::size_t Start(int from) const
    {
        return from < 0 ? 0 : from > GetLength() ? Text.size() : static_cast<std::size_t>(from);
    }
    static int Position(std::size_t at) { return at == std::wstring::npos ? -1 : static_cast<int>(at); }
};
