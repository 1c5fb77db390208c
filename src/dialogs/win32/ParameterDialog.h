#pragma once

// A modal dialog that asks for the fields of one record, a row each: caption, field, and below them the
// buttons. A derived dialog lists its rows in its constructor and moves values between record and fields.

#include "dialogs/win32/DialogTemplate.h"

#include <initializer_list>
#include <string>

namespace vostel {

class ParameterDialog {
public:
    explicit ParameterDialog(const wchar_t* caption);
    virtual ~ParameterDialog() = default;
    ParameterDialog(const ParameterDialog&) = delete;
    ParameterDialog& operator=(const ParameterDialog&) = delete;

    bool Ask();    // true if the user confirmed; the owner is the calling thread's active window

protected:
    virtual void Fill() = 0;    // record to fields
    virtual bool Read() = 0;    // fields to record; false, with the field focused, if one does not parse

    void AddEditRow(const wchar_t* caption, WORD id);
    void AddComboRow(const wchar_t* caption, WORD id);
    void AddCheckRow(const wchar_t* caption, WORD id);

    void         SetText(WORD id, const std::wstring& text);
    std::wstring GetText(WORD id) const;
    void         SetChoices(WORD id, std::initializer_list<const wchar_t*> texts, int chosen);
    int          GetChoice(WORD id) const;
    void         SetCheck(WORD id, bool checked);
    bool         GetCheck(WORD id) const;

    // Reads a number; one that does not parse leaves the target, focuses and marks the field.
    template <typename Number>
    bool GetNumber(WORD id, Number& number) const;

private:
    DialogTemplate Template;
    short          NextY = 8;           // dialog units; top of the next row
    HWND           Window = nullptr;    // while the dialog is up
    HFONT          Font = nullptr;      // of the controls, likewise

    void                    AddRowCaption(const wchar_t* caption);
    void                    FocusField(WORD id) const;
    void                    SetChineseFont();
    void                    CentreOverOwner() const;
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

}
