#pragma once

#include <VostelObj.h>

// A pen, brush or font that is selected for the length of a scope and deleted at its end.
class SelectedObject {
public:
    SelectedObject(HDC dc, HGDIOBJ owned) : Dc(dc), Owned(owned), Before(SelectObject(dc, owned)) {}
    ~SelectedObject()
    {
        SelectObject(Dc, Before);
        DeleteObject(Owned);
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

private:
    HDC     Dc;
    HGDIOBJ Owned;
    HGDIOBJ Before;
};
