#pragma once

/// @file
/// CString, the wide string of the interface, with the application framework's meaning, for compilers that do
/// not bring it.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <string>
#include <type_traits>

/// A wide text. Positions count wchar_t units from 0; "not found" is -1.
class CString {
public:
    /// The empty text.
    CString() = default;
    /// Copies a text up to its terminator; null counts as empty.
    CString(const wchar_t* text) : Text(text ? text : L"") {}
    /// Copies so many characters.
    CString(const wchar_t* text, int length) : Text(text, text + (length > 0 ? length : 0)) {}
    /// Repeats a character.
    CString(wchar_t character, int count = 1)
        : Text(static_cast<std::size_t>(count > 0 ? count : 0), character)
    {
    }
    // A template, so that a null pointer constant keeps meaning the wide one.
    /// Converts a narrow text in the system's code page, UTF-8 off Windows.
    template <typename Char, typename = std::enable_if_t<std::is_same_v<Char, char>>>
    CString(const Char* text) : Text(Widened(text))
    {
    }

    /// Returns the number of characters.
    int GetLength() const { return static_cast<int>(Text.size()); }
    /// Returns whether there is no character.
    bool IsEmpty() const { return Text.empty(); }
    /// Removes all characters.
    void Empty() { Text.clear(); }
    /// Returns a character by its position, which is not checked.
    wchar_t GetAt(int index) const { return Text[static_cast<std::size_t>(index)]; }
    /// Replaces a character by its position, which is not checked.
    void SetAt(int index, wchar_t character) { Text[static_cast<std::size_t>(index)] = character; }
    /// Returns a character by its position, which is not checked.
    wchar_t operator[](int index) const { return GetAt(index); }
    /// Returns the text with a terminator; valid until the next change.
    const wchar_t* GetString() const { return Text.c_str(); }
    /// The text with a terminator; valid until the next change.
    operator const wchar_t*() const { return Text.c_str(); }

    /// Returns the first characters, all if there are no more.
    CString Left(int count) const { return Mid(0, count); }
    /// Returns the last characters, all if there are no more.
    CString Right(int count) const
    {
        const int kept = count < 0 ? 0 : count > GetLength() ? GetLength() : count;
        return Mid(GetLength() - kept, kept);
    }
    /// Returns the characters from a position on.
    CString Mid(int first) const { return Mid(first, GetLength()); }
    /// Returns so many characters from a position on, as far as there are any.
    CString Mid(int first, int count) const
    {
        const int start = first < 0 ? 0 : first;
        if (start >= GetLength() || count <= 0)
            return CString();
        CString part;
        part.Text = Text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
        return part;
    }

    /// Returns the first position of a character.
    int Find(wchar_t character, int from = 0) const { return Position(Text.find(character, Start(from))); }
    /// Returns the first position of a text.
    int Find(const wchar_t* part, int from = 0) const { return Position(Text.find(part, Start(from))); }
    /// Returns the last position of a character.
    int ReverseFind(wchar_t character) const { return Position(Text.rfind(character)); }

    /// Replaces every occurrence from the left and returns their number.
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
    /// Turns all letters into small ones.
    CString& MakeLower()
    {
        for (wchar_t& character : Text)
            character = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
        return *this;
    }
    /// Turns all letters into capitals.
    CString& MakeUpper()
    {
        for (wchar_t& character : Text)
            character = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
        return *this;
    }
    /// Removes white space at both ends.
    CString& Trim() { return TrimRight().TrimLeft(); }
    /// Removes white space at the start.
    CString& TrimLeft()
    {
        Text.erase(0, (std::min)(Text.find_first_not_of(Blanks), Text.size()));
        return *this;
    }
    /// Removes white space at the end.
    CString& TrimRight()
    {
        Text.erase(Text.find_last_not_of(Blanks) + 1);
        return *this;
    }
    /// Returns 0 for an equal text, below 0 if this one comes first, above 0 otherwise, by character codes.
    int Compare(const wchar_t* other) const { return Text.compare(other); }
    /// Returns as Compare, capitals counted as small letters.
    int CompareNoCase(const wchar_t* other) const
    {
        return CString(*this).MakeLower().Compare(CString(other).MakeLower());
    }

    /// Inserts a text before a position and returns the new length. A position outside the text is moved to
    /// its nearer end.
    int Insert(int index, const wchar_t* part)
    {
        Text.insert(Start(index), part ? part : L"");
        return GetLength();
    }
    /// Removes so many characters from a position on and returns the new length.
    int Delete(int index, int count = 1)
    {
        Text.erase(Start(index), static_cast<std::size_t>(count > 0 ? count : 0));
        return GetLength();
    }

    /// Adds a text at the end; null counts as empty.
    void Append(const wchar_t* more) { Text += more ? more : L""; }
    /// Adds a character at the end.
    void AppendChar(wchar_t character) { Text += character; }

    /// Becomes a text by a printf format, in which %s and %c take wide arguments and %S and %C narrow ones,
    /// as Windows has it; empty for a format that cannot be carried out.
    VOSTEL_API void Format(const wchar_t* format, ...);
    /// Adds a text by a printf format, as Format.
    VOSTEL_API void AppendFormat(const wchar_t* format, ...);

    /// Returns room for at least so many characters to write into, to be ended with ReleaseBuffer.
    wchar_t* GetBuffer(int room = 0)
    {
        if (room > GetLength())
            Text.resize(static_cast<std::size_t>(room));
        return Text.data();
    }
    /// Ends GetBuffer with the new length; -1 finds the terminator.
    void ReleaseBuffer(int length = -1)
    {
        Text.resize(length < 0 ? std::wcslen(Text.c_str())
                               : (std::min)(static_cast<std::size_t>(length), Text.size()));
    }

    /// Adds a text at the end.
    CString& operator+=(const CString& more)
    {
        Text += more.Text;
        return *this;
    }
    /// Adds a character at the end.
    CString& operator+=(wchar_t character)
    {
        Text += character;
        return *this;
    }

    /// Returns both texts joined.
    friend CString operator+(CString a, const CString& b) { return a += b; }
    /// Returns both texts joined.
    friend CString operator+(CString a, const wchar_t* b) { return a += CString(b); }
    /// Returns both texts joined.
    friend CString operator+(const wchar_t* a, const CString& b) { return CString(a) += b; }
    /// Returns whether the texts are equal.
    friend bool operator==(const CString& a, const CString& b) { return a.Text == b.Text; }
    /// Returns whether the texts are equal.
    friend bool operator==(const CString& a, const wchar_t* b) { return a.Text == b; }
    /// Returns whether the texts are equal.
    friend bool operator==(const wchar_t* a, const CString& b) { return b.Text == a; }
    /// Returns whether the texts differ.
    friend bool operator!=(const CString& a, const CString& b) { return a.Text != b.Text; }
    /// Returns whether the texts differ.
    friend bool operator!=(const CString& a, const wchar_t* b) { return a.Text != b; }
    /// Returns whether the texts differ.
    friend bool operator!=(const wchar_t* a, const CString& b) { return b.Text != a; }
    /// Returns whether a comes before b, by character codes.
    friend bool operator<(const CString& a, const CString& b) { return a.Text < b.Text; }

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
