#pragma once

// A modal dialog of rows, a caption and a field each, that measures its texts and is as large as they need.
// A derived dialog adds its rows before Ask and reads the fields in Read.

#include "commands/Texts.h"

#include <VostelObj.h>

#include <string>
#include <vector>

namespace vostel::viewer {

class FormDialog {
public:
    FormDialog(const char* title, Language language) : Spoken(language), Title(Text(title)) {}
    virtual ~FormDialog() = default;
    FormDialog(const FormDialog&) = delete;
    FormDialog& operator=(const FormDialog&) = delete;

    bool Ask(HWND owner);    // true if the person confirmed and Read accepted the fields

protected:
    // Rows from top to bottom; the number of a row counts from 0.
    int AddText(const std::wstring& caption, const std::wstring& value);
    int AddLines(const std::wstring& caption, const std::wstring& value);
    int AddChoice(const std::wstring& caption, const std::vector<std::wstring>& choices, int chosen);
    int AddPair(const std::wstring& left, const std::wstring& right);    // texts only
    int AddHeading(const std::wstring& text);

    virtual bool Read() { return true; }    // false, with a problem shown, keeps the dialog up

    std::wstring TextOf(int row) const;
    int          ChoiceOf(int row) const;
    // Shows what is wrong below the rows and puts the focus on the row.
    void ShowProblem(int row, const std::wstring& sentence);

    std::wstring Text(const char* english) const { return TextIn(Spoken, english); }

    bool JustToRead = false;    // one button instead of two

private:
    enum class RowKind { Text, Lines, Choice, Pair, Heading };
    struct Row {
        RowKind                   Kind;
        std::wstring              Caption;
        std::wstring              Value;
        std::vector<std::wstring> Choices;
        int                       Chosen = 0;
        HWND                      Field = nullptr;
    };

    Language         Spoken;
    std::wstring     Title;
    std::vector<Row> Rows;
    HWND             Window = nullptr;
    HWND             Problem = nullptr;
    HFONT            Font = nullptr;
    HFONT            BoldFont = nullptr;
    int              LineHeight = 0;    // px, of the font
    int              CharWidth = 0;     // px, mean

    int  AddRow(RowKind kind, const std::wstring& caption, const std::wstring& value);
    void MakeFonts();
    void MakeControls();
    void MakeButtons(int width, int y);
    HWND MakeField(Row& row, int x, int y, int width, int height);
    HWND MakeControl(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place, int id = 0);
    void MakeRow(Row& row, int captionX, int captionWidth, int fieldWidth, int y);
    SIZE Measure(const std::wstring& text, HFONT font) const;
    int  WidthOfField(const Row& row) const;
    int  HeightOfRow(const Row& row) const;
    void FitAndCentre(int width, int height);

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR                 Handle(UINT message, WPARAM wParam, LPARAM lParam);
};

}
