#pragma once

// Scalar types, records and constants of the Windows desktop for platforms that have none of their own.
// Widths are those of 64-bit Windows whatever the platform's own long is.

#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using UINT_PTR = std::uint64_t;
using WPARAM = std::uint64_t;
using LPARAM = std::int64_t;
using LRESULT = std::int64_t;
using HRESULT = std::int32_t;      // 0 and above worked, below 0 failed
using COLORREF = std::uint32_t;    // 0x00BBGGRR
using WCHAR = wchar_t;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using LPVOID = void*;
using HANDLE = void*;
using HGDIOBJ = void*;

#if !defined(TRUE)
#    define TRUE 1
#    define FALSE 0
#endif

// Handles are opaque and never dereferenced; each kind is a type of its own.
struct HDC__;
struct HBITMAP__;
struct HPEN__;
struct HBRUSH__;
struct HFONT__;
struct HWND__;
using HDC = HDC__*;
using HBITMAP = HBITMAP__*;
using HPEN = HPEN__*;
using HBRUSH = HBRUSH__*;
using HFONT = HFONT__*;
using HWND = HWND__*;

struct tagPOINT {
    LONG x, y;
};
using POINT = tagPOINT;

struct tagSIZE {
    LONG cx, cy;
};
using SIZE = tagSIZE;

struct tagRECT {
    LONG left, top, right, bottom;    // left and top count in, right and bottom out
};
using RECT = tagRECT;

struct MSG {
    HWND   hwnd;
    UINT   message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD  time;
    POINT  pt;
};

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);

inline constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFFu) | (green & 0xFFu) << 8 | (blue & 0xFFu) << 16;
}

inline constexpr BYTE GetRValue(COLORREF colour)
{
    return static_cast<BYTE>(colour);
}

inline constexpr BYTE GetGValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 8);
}

inline constexpr BYTE GetBValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 16);
}

// The two halves of a message's argument: positions, wheel turns, flags.
inline constexpr WORD LOWORD(std::uint64_t value)
{
    return static_cast<WORD>(value);
}

inline constexpr WORD HIWORD(std::uint64_t value)
{
    return static_cast<WORD>(value >> 16);
}

inline constexpr LONG MAKELONG(std::int64_t low, std::int64_t high)
{
    return static_cast<LONG>((static_cast<DWORD>(high) & 0xFFFFu) << 16 |
                             (static_cast<DWORD>(low) & 0xFFFFu));
}

inline constexpr WPARAM MAKEWPARAM(std::int64_t low, std::int64_t high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

inline constexpr LPARAM MAKELPARAM(std::int64_t low, std::int64_t high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

inline constexpr short GET_WHEEL_DELTA_WPARAM(WPARAM argument)
{
    return static_cast<short>(HIWORD(argument));
}

// Window messages.
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;

// One notch of a wheel.
inline constexpr int WHEEL_DELTA = 120;

// Mouse flags.
inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;
inline constexpr UINT MK_MBUTTON = 0x0010;

// Virtual keys beyond the letters and digits, which are their own capital character codes.
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_DELETE = 0x2E;

// File dialog flags.
inline constexpr UINT OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr UINT OFN_HIDEREADONLY = 0x00000004;
inline constexpr UINT OFN_NOCHANGEDIR = 0x00000008;
inline constexpr UINT OFN_ALLOWMULTISELECT = 0x00000200;
