#pragma once

// A dialog template built in memory. Positions and sizes are in dialog units.

#include "vostel/platform.h"

#include <vector>

namespace vostel {

class DialogTemplate {
public:
    DialogTemplate(const wchar_t* caption, short width);

    void AddStatic(const wchar_t* text, short x, short y, short width);
    void AddEdit(WORD id, short x, short y, short width);
    void AddCombo(WORD id, short x, short y, short width);
    void AddCheckBox(const wchar_t* text, WORD id, short x, short y, short width);
    void AddButton(const wchar_t* text, WORD id, bool isDefault, short x, short y, short width);

    void SetHeight(short height);

    // Valid until the next Add.
    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(Words.data()); }

private:
    std::vector<WORD> Words;    // the header, then one entry per control

    void AddControl(DWORD style, WORD classAtom, const wchar_t* text, WORD id, short x, short y, short width,
                    short height);
    void Append(const void* bytes, std::size_t count);
    void AppendText(const wchar_t* text);
    DLGTEMPLATE& Header() { return *reinterpret_cast<DLGTEMPLATE*>(Words.data()); }
};

}
