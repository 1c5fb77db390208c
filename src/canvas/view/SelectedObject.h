#pragma once

#include "vostel/platform.h"

#include <atomic>

namespace vostel {

// Counts what was not drawn because there was no memory for a pen, a brush or a stretched picture.
inline std::atomic<unsigned int> MissedDrawings{0};

// A pen, brush or font that is selected for the length of a scope and deleted at its end.
class SelectedObject {
public:
    SelectedObject(HDC dc, HGDIOBJ owned) : Dc(dc), Owned(owned), Before(SelectObject(dc, owned))
    {
        MissedDrawings += owned == nullptr;
    }
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

}
