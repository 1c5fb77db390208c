#pragma once

// The measures of all objects of a canvas as a list, to be copied and saved.

#include "commands/CanvasWork.h"
#include "commands/Texts.h"

#include <VostelObj.h>

#include <functional>
#include <string>

namespace vostel::viewer {

class MeasuresDialog {
public:
    // tabbed: the text that Copy puts on the clipboard.
    MeasuresDialog(const MeasureTable& table, Language language, const std::wstring& tabbed,
                   std::function<void()> save);
    MeasuresDialog(const MeasuresDialog&) = delete;
    MeasuresDialog& operator=(const MeasuresDialog&) = delete;

    void Show(HWND owner);    // until the person closes it

private:
    const MeasureTable&   Table;
    Language              Spoken;
    std::wstring          Tabbed;
    std::function<void()> Save;
    HWND                  Window = nullptr;
    HWND                  List = nullptr;
    HWND                  Buttons[3] = {};    // from the right

    void MakeControls();
    void FillList();
    void Layout();
    void Copy();

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR                 Handle(UINT message, WPARAM wParam, LPARAM lParam);
};

}
