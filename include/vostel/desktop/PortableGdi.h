#pragma once

// GDI's names on platforms that have no GDI of their own: the calls that the engine makes, and those that a
// host needs to look at a frame, with GDI's pixel rules. LineTo leaves out its end point, Rectangle and
// Ellipse leave out their right and bottom edge. Drawing is clipped to the selected bitmap. A call with a bad
// handle fails and does nothing. Contexts and objects are to be used on one thread at a time.

#include "vostel/desktop/WindowsTypes.h"
#include "vostel/export.h"

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG  biWidth;
    LONG  biHeight;    // positive: rows run bottom-up; negative: top-down
    WORD  biPlanes;
    WORD  biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG  biXPelsPerMeter;
    LONG  biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct RGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD          bmiColors[1];
};

struct BITMAP {
    LONG  bmType;
    LONG  bmWidth;
    LONG  bmHeight;
    LONG  bmWidthBytes;
    WORD  bmPlanes;
    WORD  bmBitsPixel;
    void* bmBits;    // lowest address of the bits of a section bitmap, null for others
};

inline constexpr UINT  DIB_RGB_COLORS = 0;
inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD SRCCOPY = 0x00CC0020;

// GetStockObject
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;

// GetCurrentObject
inline constexpr UINT OBJ_PEN = 1;
inline constexpr UINT OBJ_BRUSH = 2;
inline constexpr UINT OBJ_FONT = 6;
inline constexpr UINT OBJ_BITMAP = 7;

// CreatePen
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;

// CreateHatchBrush
inline constexpr int HS_HORIZONTAL = 0;
inline constexpr int HS_VERTICAL = 1;
inline constexpr int HS_FDIAGONAL = 2;
inline constexpr int HS_BDIAGONAL = 3;
inline constexpr int HS_CROSS = 4;
inline constexpr int HS_DIAGCROSS = 5;

// SetBkMode
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// SetStretchBltMode
inline constexpr int BLACKONWHITE = 1;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;

// DrawTextW
inline constexpr UINT DT_TOP = 0x0000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_NOCLIP = 0x0100;
inline constexpr UINT DT_EXTERNALLEADING = 0x0200;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_EDITCONTROL = 0x2000;

// CreateFontW
inline constexpr int   FW_NORMAL = 400;
inline constexpr DWORD DEFAULT_CHARSET = 1;
inline constexpr DWORD GB2312_CHARSET = 134;

// GetGuiResources
inline constexpr DWORD GR_GDIOBJECTS = 0;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

extern "C" {

// Contexts. A new memory context holds a 1 x 1 monochrome bitmap, the white brush, the black pen and the
// system font; text is black on opaque white. DeleteDC leaves the objects selected in it alive.
VOSTEL_API HDC  CreateCompatibleDC(HDC like);
VOSTEL_API BOOL DeleteDC(HDC dc);

// Objects. SelectObject answers what was selected before, null on failure. A bitmap can be selected into
// one context at a time. DeleteObject fails for an object that is selected in a context, but succeeds
// without effect for stock objects.
VOSTEL_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
VOSTEL_API BOOL    DeleteObject(HGDIOBJ object);
VOSTEL_API HGDIOBJ GetStockObject(int index);
VOSTEL_API HGDIOBJ GetCurrentObject(HDC dc, UINT kind);
VOSTEL_API int     GetObjectW(HGDIOBJ object, int bytes, void* record);    // bitmaps: a BITMAP

// A bitmap of 24 or 32 bits a pixel with its bits in memory, zeroed. Rows are padded to four bytes.
// Sections handed in from outside are not supported: section is null and offset 0.
VOSTEL_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                    DWORD offset);
// With bits null: fills the header with the bitmap's own layout. Answers its height for a header that came
// with biBitCount 0, else 1, as GDI does.
VOSTEL_API int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstRow, UINT rows, void* bits, BITMAPINFO* info,
                         UINT usage);

VOSTEL_API HPEN   CreatePen(int style, int width, COLORREF colour);
VOSTEL_API HBRUSH CreateSolidBrush(COLORREF colour);
VOSTEL_API HBRUSH CreateHatchBrush(int style, COLORREF colour);
VOSTEL_API HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                             DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                             DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCWSTR face);

// State. Setters answer the value before.
VOSTEL_API int      SetBkMode(HDC dc, int mode);
VOSTEL_API COLORREF SetBkColor(HDC dc, COLORREF colour);
VOSTEL_API COLORREF SetTextColor(HDC dc, COLORREF colour);
VOSTEL_API int      SetStretchBltMode(HDC dc, int mode);
VOSTEL_API BOOL     SetViewportOrgEx(HDC dc, int x, int y, POINT* before);

// Lines and shapes, with the selected pen and brush.
VOSTEL_API BOOL MoveToEx(HDC dc, int x, int y, POINT* before);
VOSTEL_API BOOL LineTo(HDC dc, int x, int y);
VOSTEL_API BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
VOSTEL_API BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
VOSTEL_API int  FillRect(HDC dc, const RECT* rect, HBRUSH brush);

// One pixel. Outside the bitmap, with a bad handle or on a bitmap of 1 bit a pixel both answer CLR_INVALID.
VOSTEL_API COLORREF GetPixel(HDC dc, int x, int y);
VOSTEL_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);    // the colour that was set

// Copies. SRCCOPY is the one raster operation. A negative extent mirrors, as it does in GDI.
VOSTEL_API BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       DWORD operation);
VOSTEL_API BOOL StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight, DWORD operation);

// Text. A length of -1 takes the text up to its terminator.
VOSTEL_API BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
VOSTEL_API int  DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format);

VOSTEL_API BOOL GdiFlush();

// Rectangles.
VOSTEL_API BOOL PtInRect(const RECT* rect, POINT point);
VOSTEL_API BOOL InflateRect(RECT* rect, int dx, int dy);
VOSTEL_API BOOL OffsetRect(RECT* rect, int dx, int dy);

// The process.
VOSTEL_API HANDLE GetCurrentProcess();
// Live GDI objects of this process, stock objects left out. Other kinds answer 0.
VOSTEL_API DWORD GetGuiResources(HANDLE process, DWORD kind);

}    // extern "C"
