#pragma once

#include <VostelObj.h>

namespace vostel::viewer {

// The procedure of a window class whose windows are objects: their last creation argument is the object. It
// takes the handle by Attach and all messages by Handle.
template <typename Object>
LRESULT CALLBACK MessageHandler(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        auto* const made =
            static_cast<Object*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->Attach(window);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const object = reinterpret_cast<Object*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return object ? object->Handle(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

}
