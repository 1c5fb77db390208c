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

// Window messages.
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;

// Mouse flags.
inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;

// Virtual keys beyond the letters and digits, which are their own capital character codes.
inline constexpr int VK_TAB = 0x09;

// File dialog flags.
inline constexpr UINT OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr UINT OFN_HIDEREADONLY = 0x00000004;
inline constexpr UINT OFN_NOCHANGEDIR = 0x00000008;
inline constexpr UINT OFN_ALLOWMULTISELECT = 0x00000200;
