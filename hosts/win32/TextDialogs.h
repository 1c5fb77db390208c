#pragma once

// The dialogs that are about text: a line or several to put on a canvas, and the help.

#include "FormDialog.h"

namespace vostel::viewer {

class TextLineDialog : public FormDialog {
public:
    TextLineDialog(const std::wstring& start, Language language);

    std::wstring Entered;    // as that of TextLinesDialog

protected:
    bool Read() override;
};

class TextLinesDialog : public FormDialog {
public:
    TextLinesDialog(const std::wstring& start, Language language);

    std::wstring Entered;    // what the field starts with; after a confirmed Ask, what was entered

protected:
    bool Read() override;
};

class GesturesDialog : public FormDialog {
public:
    explicit GesturesDialog(Language language);
};

}
