#pragma once

/// @file
/// Scalar types, records and constants of the Windows desktop for platforms that have none of their own.
/// Widths are those of 64-bit Windows whatever the platform's own long is.

#include <cstdint>

using BOOL = int;                  ///< 0 false, else true
using BYTE = std::uint8_t;         ///< 8 bits, unsigned
using WORD = std::uint16_t;        ///< 16 bits, unsigned
using DWORD = std::uint32_t;       ///< 32 bits, unsigned
using LONG = std::int32_t;         ///< 32 bits, signed
using UINT = std::uint32_t;        ///< 32 bits, unsigned
using UINT_PTR = std::uint64_t;    ///< 64 bits, unsigned
using WPARAM = std::uint64_t;      ///< first argument of a message
using LPARAM = std::int64_t;       ///< second argument of a message
using LRESULT = std::int64_t;      ///< result of a message
using HRESULT = std::int32_t;      ///< 0 and above worked, below 0 failed
using COLORREF = std::uint32_t;    ///< color, 0x00BBGGRR
using WCHAR = wchar_t;             ///< wide character
using LPCWSTR = const wchar_t*;    ///< wide text to read
using LPWSTR = wchar_t*;           ///< wide text to write
using LPVOID = void*;              ///< any address
using HANDLE = void*;              ///< handle of the system
using HGDIOBJ = void*;             ///< handle of a pen, brush, font or bitmap

#if !defined(TRUE)
#    define TRUE 1     ///< true as BOOL
#    define FALSE 0    ///< false as BOOL
#endif

struct HDC__;
struct HBITMAP__;
struct HPEN__;
struct HBRUSH__;
struct HFONT__;
struct HWND__;
/// Handle of a device context. Handles are opaque and never dereferenced; each kind is a type of its own.
using HDC = HDC__*;
using HBITMAP = HBITMAP__*;    ///< handle of a bitmap
using HPEN = HPEN__*;          ///< handle of a pen
using HBRUSH = HBRUSH__*;      ///< handle of a brush
using HFONT = HFONT__*;        ///< handle of a font
using HWND = HWND__*;          ///< handle of a window; the library only passes it to the host's services

/// A point.
struct tagPOINT {
    LONG x;    ///< to the right
    LONG y;    ///< downwards
};
using POINT = tagPOINT;    ///< a point

/// A size.
struct tagSIZE {
    LONG cx;    ///< width
    LONG cy;    ///< height
};
using SIZE = tagSIZE;    ///< a size

/// A rectangle. Left and top count in, right and bottom out.
struct tagRECT {
    LONG left;      ///< first column
    LONG top;       ///< first row
    LONG right;     ///< column behind the last one
    LONG bottom;    ///< row below the last one
};
using RECT = tagRECT;    ///< a rectangle

/// A window message.
struct MSG {
    HWND   hwnd;       ///< the window that it is for
    UINT   message;    ///< WM_ value
    WPARAM wParam;     ///< first argument
    LPARAM lParam;     ///< second argument
    DWORD  time;       ///< when it was made, in milliseconds; not used here
    POINT  pt;         ///< where the cursor was, on the screen; not used here
};

inline constexpr HRESULT S_OK = 0;                                      ///< it worked
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);    ///< it failed

/// Returns a color by the low bytes of its channels.
inline constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFFu) | (green & 0xFFu) << 8 | (blue & 0xFFu) << 16;
}

/// Returns the red channel.
inline constexpr BYTE GetRValue(COLORREF color)
{
    return static_cast<BYTE>(color);
}

/// Returns the green channel.
inline constexpr BYTE GetGValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 8);
}

/// Returns the blue channel.
inline constexpr BYTE GetBValue(COLORREF color)
{
    return static_cast<BYTE>(color >> 16);
}

/// Returns the low half of a message's argument: flags, or the x of a position.
inline constexpr WORD LOWORD(std::uint64_t value)
{
    return static_cast<WORD>(value);
}

/// Returns the high half of a message's argument: the turn of a wheel, or the y of a position.
inline constexpr WORD HIWORD(std::uint64_t value)
{
    return static_cast<WORD>(value >> 16);
}

/// Returns the two low halves as one number.
inline constexpr LONG MAKELONG(std::int64_t low, std::int64_t high)
{
    return static_cast<LONG>((static_cast<DWORD>(high) & 0xFFFFu) << 16 |
                             (static_cast<DWORD>(low) & 0xFFFFu));
}

/// Returns the two low halves as a message's first argument.
inline constexpr WPARAM MAKEWPARAM(std::int64_t low, std::int64_t high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

/// Returns the two low halves as a message's second argument.
inline constexpr LPARAM MAKELPARAM(std::int64_t low, std::int64_t high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

/// Returns the turn of a wheel message, signed.
inline constexpr short GET_WHEEL_DELTA_WPARAM(WPARAM argument)
{
    return static_cast<short>(HIWORD(argument));
}

inline constexpr UINT WM_SIZE = 0x0005;             ///< the window has another size
inline constexpr UINT WM_PAINT = 0x000F;            ///< the window is to be painted
inline constexpr UINT WM_KEYDOWN = 0x0100;          ///< a key went down
inline constexpr UINT WM_KEYUP = 0x0101;            ///< a key went up
inline constexpr UINT WM_TIMER = 0x0113;            ///< a timer ran out
inline constexpr UINT WM_MOUSEMOVE = 0x0200;        ///< the mouse moved
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;      ///< the left button went down
inline constexpr UINT WM_LBUTTONUP = 0x0202;        ///< the left button went up
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;    ///< the left button went down for the second time
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;      ///< the right button went down
inline constexpr UINT WM_RBUTTONUP = 0x0205;        ///< the right button went up
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;      ///< the middle button went down
inline constexpr UINT WM_MBUTTONUP = 0x0208;        ///< the middle button went up
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;       ///< the wheel turned

inline constexpr int WHEEL_DELTA = 120;    ///< one notch of a wheel

inline constexpr UINT MK_LBUTTON = 0x0001;    ///< mouse flag: left button held
inline constexpr UINT MK_RBUTTON = 0x0002;    ///< mouse flag: right button held
inline constexpr UINT MK_SHIFT = 0x0004;      ///< mouse flag: Shift held
inline constexpr UINT MK_CONTROL = 0x0008;    ///< mouse flag: Control held
inline constexpr UINT MK_MBUTTON = 0x0010;    ///< mouse flag: middle button held

// Virtual keys beyond the letters and digits, which are their own capital character codes.
inline constexpr int VK_BACK = 0x08;       ///< virtual key: Backspace
inline constexpr int VK_TAB = 0x09;        ///< virtual key: Tab
inline constexpr int VK_RETURN = 0x0D;     ///< virtual key: Return
inline constexpr int VK_SHIFT = 0x10;      ///< virtual key: Shift
inline constexpr int VK_CONTROL = 0x11;    ///< virtual key: Control
inline constexpr int VK_MENU = 0x12;       ///< virtual key: Alt
inline constexpr int VK_ESCAPE = 0x1B;     ///< virtual key: Escape
inline constexpr int VK_SPACE = 0x20;      ///< virtual key: space
inline constexpr int VK_LEFT = 0x25;       ///< virtual key: arrow left
inline constexpr int VK_UP = 0x26;         ///< virtual key: arrow up
inline constexpr int VK_RIGHT = 0x27;      ///< virtual key: arrow right
inline constexpr int VK_DOWN = 0x28;       ///< virtual key: arrow down
inline constexpr int VK_DELETE = 0x2E;     ///< virtual key: Delete

inline constexpr UINT OFN_OVERWRITEPROMPT =
    0x00000002;    ///< file dialog: asks before an existing file is chosen
inline constexpr UINT OFN_HIDEREADONLY = 0x00000004;        ///< file dialog: without a choice of read-only
inline constexpr UINT OFN_NOCHANGEDIR = 0x00000008;         ///< file dialog: keeps the current folder
inline constexpr UINT OFN_ALLOWMULTISELECT = 0x00000200;    ///< file dialog: several files
