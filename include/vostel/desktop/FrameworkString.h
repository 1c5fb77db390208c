#pragma once

// CString, the wide string of the interface, with the application framework's meaning, for compilers
// that do not bring it. Positions count wchar_t units; "not found" is -1.

#include "vostel/platform.h"

#include <cwchar>
#include <cwctype>
#include <string>

class CString {
public:
    CString() = default;
    CString(const wchar_t* text) : Text(text ? text : L"") {}
    CString(const wchar_t* text, int length) : Text(text, text + (length > 0 ? length : 0)) {}
    CString(wchar_t character, int count = 1)
        : Text(static_cast<std::size_t>(count > 0 ? count : 0), character)
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
    CString& Trim()
    {
        const wchar_t*    blanks = L" \t\r\n\v\f";
        const std::size_t first = Text.find_first_not_of(blanks);
        if (first == std::wstring::npos)
            Text.clear();
        else
            Text = Text.substr(first, Text.find_last_not_of(blanks) - first + 1);
        return *this;
    }
    int Compare(const wchar_t* other) const { return Text.compare(other); }

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

    std::size_t Start(int from) const
    {
        return from < 0 ? 0 : from > GetLength() ? Text.size() : static_cast<std::size_t>(from);
    }
    static int Position(std::size_t at) { return at == std::wstring::npos ? -1 : static_cast<int>(at); }
};
