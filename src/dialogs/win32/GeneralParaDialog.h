#pragma once

// One text value.

#include "dialogs/win32/ParameterDialog.h"

namespace vostel {

class GeneralParaDialog : public ParameterDialog {
public:
    GeneralParaDialog(const std::wstring& section, const std::wstring& start);

    std::wstring Value;    // what the field starts with, and the result after a confirmed Ask

protected:
    void Fill() override;
    bool Read() override;
};

}
