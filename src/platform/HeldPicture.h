#pragma once

#include "platform/PictureBuffer.h"

// What a CImage holds: a picture, and a context while GetDC is out.
struct ATL::CImage::Picture : vostel::PictureBuffer {
    HDC     Context = nullptr;
    HGDIOBJ Before = nullptr;    // what the context held before the picture

    ~Picture() { CloseContext(); }
    void CloseContext()
    {
        if (!Context)
            return;
        SelectObject(Context, Before);
        DeleteDC(Context);
        Context = nullptr;
    }
};
