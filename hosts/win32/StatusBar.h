#pragma once

// The bar at the foot of the main window: hint, position and value under the cursor, zoom, size of the image
// and file.

#include "commands/Texts.h"

#include <VostelObj.h>

#include <string>

namespace vostel::viewer {

class StatusBar {
public:
    void Create(HWND owner);
    void Layout();    // after the owner's size changed

    int Height() const;

    void SetLanguage(Language language);

    void ShowHint(const std::wstring& hint);
    void ShowCursor(int canvas, CPoint client);    // what is under the cursor
    void ShowCanvas(int canvas, const std::wstring& file);

private:
    enum Part { Hint, Position, Value, Zoom, Size, File, PartCount };

    HWND         Window = nullptr;
    Language     Spoken = Language::English;
    std::wstring Shown[PartCount];

    std::wstring ZoomOf(int canvas) const;
    void         SetPart(Part part, const std::wstring& text);
};

}
