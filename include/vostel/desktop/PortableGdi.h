#pragma once

/// @file
/// GDI's names on platforms that have no GDI of their own: the calls that the engine makes, and those that a
/// host needs to look at a frame, with GDI's pixel rules. LineTo leaves out its end point, Rectangle and
/// Ellipse leave out their right and bottom edge. Drawing is clipped to the selected bitmap. Coordinates are
/// pixels, y downwards, 0, 0 at the top left of the bitmap unless SetViewportOrgEx moved it. Colors are
/// 0x00BBGGRR.
///
/// A call with a bad handle fails and does nothing: it returns 0, FALSE, null or CLR_INVALID. Contexts and
/// objects are to be used on one thread at a time.

#include "vostel/desktop/WindowsTypes.h"
#include "vostel/export.h"

/// The layout of a bitmap in memory.
struct BITMAPINFOHEADER {
    DWORD biSize;             ///< bytes of this record
    LONG  biWidth;            ///< pixels
    LONG  biHeight;           ///< rows; positive: they run bottom-up; negative: top-down
    WORD  biPlanes;           ///< 1
    WORD  biBitCount;         ///< bits per pixel
    DWORD biCompression;      ///< BI_RGB
    DWORD biSizeImage;        ///< bytes of the pixels; may be 0
    LONG  biXPelsPerMeter;    ///< not used
    LONG  biYPelsPerMeter;    ///< not used
    DWORD biClrUsed;          ///< not used
    DWORD biClrImportant;     ///< not used
};

/// An entry of a palette.
struct RGBQUAD {
    BYTE rgbBlue;        ///< blue
    BYTE rgbGreen;       ///< green
    BYTE rgbRed;         ///< red
    BYTE rgbReserved;    ///< not used
};

/// The layout of a bitmap with its palette.
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;       ///< the layout
    RGBQUAD          bmiColors[1];    ///< the palette; not used
};

/// What GetObjectW reports of a bitmap.
struct BITMAP {
    LONG  bmType;          ///< 0
    LONG  bmWidth;         ///< pixels
    LONG  bmHeight;        ///< rows
    LONG  bmWidthBytes;    ///< bytes from row to row
    WORD  bmPlanes;        ///< 1
    WORD  bmBitsPixel;     ///< bits per pixel
    void* bmBits;          ///< lowest address of the bits of a section bitmap, null for others
};

inline constexpr UINT DIB_RGB_COLORS = 0;    ///< usage of CreateDIBSection and GetDIBits: colors, not indices
inline constexpr DWORD BI_RGB = 0;           ///< biCompression: none
inline constexpr DWORD SRCCOPY = 0x00CC0020;    ///< BitBlt, StretchBlt: the source replaces the target

inline constexpr int WHITE_BRUSH = 0;              ///< GetStockObject: brush, white
inline constexpr int LTGRAY_BRUSH = 1;             ///< GetStockObject: brush, 0xC0 in each channel
inline constexpr int GRAY_BRUSH = 2;               ///< GetStockObject: brush, 0x80 in each channel
inline constexpr int DKGRAY_BRUSH = 3;             ///< GetStockObject: brush, 0x40 in each channel
inline constexpr int BLACK_BRUSH = 4;              ///< GetStockObject: brush, black
inline constexpr int NULL_BRUSH = 5;               ///< GetStockObject: brush that fills nothing
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;    ///< GetStockObject: brush that fills nothing
inline constexpr int WHITE_PEN = 6;                ///< GetStockObject: pen, white, one pixel
inline constexpr int BLACK_PEN = 7;                ///< GetStockObject: pen, black, one pixel
inline constexpr int NULL_PEN = 8;                 ///< GetStockObject: pen that draws nothing
inline constexpr int SYSTEM_FONT = 13;             ///< GetStockObject: bold font, cells 16 high
inline constexpr int DEFAULT_GUI_FONT = 17;        ///< GetStockObject: font, 11 high

inline constexpr UINT OBJ_PEN = 1;       ///< GetCurrentObject: the pen
inline constexpr UINT OBJ_BRUSH = 2;     ///< GetCurrentObject: the brush
inline constexpr UINT OBJ_FONT = 6;      ///< GetCurrentObject: the font
inline constexpr UINT OBJ_BITMAP = 7;    ///< GetCurrentObject: the bitmap

inline constexpr int PS_SOLID = 0;      ///< CreatePen: one stroke
inline constexpr int PS_DASH = 1;       ///< CreatePen: dashes; this and the next three for pens of one pixel
inline constexpr int PS_DOT = 2;        ///< CreatePen: dots
inline constexpr int PS_DASHDOT = 3;    ///< CreatePen: dash and dot in turn
inline constexpr int PS_DASHDOTDOT = 4;    ///< CreatePen: a dash and two dots in turn
inline constexpr int PS_NULL = 5;          ///< CreatePen: draws nothing

inline constexpr int HS_HORIZONTAL = 0;    ///< CreateHatchBrush: horizontal lines
inline constexpr int HS_VERTICAL = 1;      ///< CreateHatchBrush: vertical lines
inline constexpr int HS_FDIAGONAL = 2;     ///< CreateHatchBrush: lines falling to the right
inline constexpr int HS_BDIAGONAL = 3;     ///< CreateHatchBrush: lines rising to the right
inline constexpr int HS_CROSS = 4;         ///< CreateHatchBrush: horizontal and vertical lines
inline constexpr int HS_DIAGCROSS = 5;     ///< CreateHatchBrush: lines of both diagonals

inline constexpr int TRANSPARENT =
    1;                              ///< SetBkMode: text, hatches and gaps of pens keep what is behind them
inline constexpr int OPAQUE = 2;    ///< SetBkMode: they are filled with the background color

inline constexpr int BLACKONWHITE =
    1;    ///< SetStretchBltMode: shrinking joins pixels by AND; a new context's mode
inline constexpr int WHITEONBLACK = 2;    ///< SetStretchBltMode: shrinking joins pixels by OR
inline constexpr int COLORONCOLOR = 3;    ///< SetStretchBltMode: one source pixel per target pixel
inline constexpr int HALFTONE = 4;        ///< SetStretchBltMode: shrinking averages, enlarging interpolates

inline constexpr UINT DT_TOP = 0x0000;           ///< DrawTextW: from the top of the rectangle
inline constexpr UINT DT_LEFT = 0x0000;          ///< DrawTextW: from the left of the rectangle
inline constexpr UINT DT_CENTER = 0x0001;        ///< DrawTextW: centered between left and right
inline constexpr UINT DT_RIGHT = 0x0002;         ///< DrawTextW: up to the right of the rectangle
inline constexpr UINT DT_VCENTER = 0x0004;       ///< DrawTextW: a single line centered between top and bottom
inline constexpr UINT DT_BOTTOM = 0x0008;        ///< DrawTextW: a single line down to the bottom
inline constexpr UINT DT_WORDBREAK = 0x0010;     ///< DrawTextW: no effect here, lines do not wrap
inline constexpr UINT DT_SINGLELINE = 0x0020;    ///< DrawTextW: line ends do not count
inline constexpr UINT DT_NOCLIP = 0x0100;        ///< DrawTextW: may leave the rectangle
inline constexpr UINT DT_EXTERNALLEADING = 0x0200;    ///< DrawTextW: no effect here
inline constexpr UINT DT_CALCRECT =
    0x0400;    ///< DrawTextW: sets right and bottom to what the text needs, draws nothing
inline constexpr UINT DT_NOPREFIX = 0x0800;       ///< DrawTextW: & is a character like others
inline constexpr UINT DT_EDITCONTROL = 0x2000;    ///< DrawTextW: no effect here

inline constexpr int   FW_NORMAL = 400;         ///< CreateFontW: weight of plain text
inline constexpr DWORD DEFAULT_CHARSET = 1;     ///< CreateFontW: character set of the system
inline constexpr DWORD GB2312_CHARSET = 134;    ///< CreateFontW: simplified Chinese

inline constexpr DWORD GR_GDIOBJECTS = 0;    ///< GetGuiResources: GDI objects

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;    ///< what calls that return a color return on failure

extern "C" {

/// Returns a new memory context, to be freed with DeleteDC. It holds a 1 x 1 monochrome bitmap, the white
/// brush, the black pen and the system font; text is black on opaque white. like is a context or null.
VOSTEL_API HDC CreateCompatibleDC(HDC like);
/// Frees a context. The objects selected in it stay alive.
VOSTEL_API BOOL DeleteDC(HDC dc);

/// Puts a pen, brush, font or bitmap into a context and returns what was there before, null on failure. A
/// bitmap can be selected into one context at a time.
VOSTEL_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
/// Frees an object. Fails for one that is selected in a context; succeeds without effect for stock objects.
VOSTEL_API BOOL DeleteObject(HGDIOBJ object);
/// Returns an object that the system owns, by its number.
VOSTEL_API HGDIOBJ GetStockObject(int index);
/// Returns the object of a kind, OBJ_, that is selected in a context.
VOSTEL_API HGDIOBJ GetCurrentObject(HDC dc, UINT kind);
/// Fills a BITMAP from a bitmap and returns its size in bytes; the size alone for a null record. Other
/// objects: 0.
VOSTEL_API int GetObjectW(HGDIOBJ object, int bytes, void* record);

/// Returns a bitmap of 24 or 32 bits per pixel, to be freed with DeleteObject, with its bits in memory,
/// cleared. Rows are padded to four bytes. The context is not used; sections handed in from outside are not
/// supported: section is null and offset 0. Null on failure, with bits null too.
VOSTEL_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                    DWORD offset);
/// Fills the header with the bitmap's own layout; bits must be null. Returns the bitmap's height for a header
/// that came with biBitCount 0, else 1, as GDI does.
VOSTEL_API int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstRow, UINT rows, void* bits, BITMAPINFO* info,
                         UINT usage);

/// Returns a pen, to be freed with DeleteObject. A width of 0 counts as one pixel, an unknown style as
/// PS_SOLID.
VOSTEL_API HPEN CreatePen(int style, int width, COLORREF color);
/// Returns a brush of one color, to be freed with DeleteObject.
VOSTEL_API HBRUSH CreateSolidBrush(COLORREF color);
/// Returns a brush of lines, HS_, to be freed with DeleteObject; null for an unknown style.
VOSTEL_API HBRUSH CreateHatchBrush(int style, COLORREF color);
/// Returns a font, to be freed with DeleteObject. height: positive for the cell, negative for the em, in
/// pixels; face: up to 31 characters, another face stands in where it is missing. Weight, italic, underline
/// and strikeOut count, the rest does not.
VOSTEL_API HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                             DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                             DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCWSTR face);

/// Sets what is drawn behind text, hatches and broken lines, TRANSPARENT or OPAQUE; returns the previous
/// mode.
VOSTEL_API int SetBkMode(HDC dc, int mode);
/// Sets the background color; returns the previous one.
VOSTEL_API COLORREF SetBkColor(HDC dc, COLORREF color);
/// Sets the color of text; returns the previous one.
VOSTEL_API COLORREF SetTextColor(HDC dc, COLORREF color);
/// Sets how StretchBlt scales into the context; returns the previous mode.
VOSTEL_API int SetStretchBltMode(HDC dc, int mode);
/// Sets the point of the bitmap that 0, 0 is drawn at; before, unless null, receives the previous one.
VOSTEL_API BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before);

/// Sets the point that the next line begins at; before, unless null, receives the previous one.
VOSTEL_API BOOL MoveToEx(HDC dc, int x, int y, POINT* before);
/// Draws a line with the pen up to a point, without the point itself, which the next line begins at.
VOSTEL_API BOOL LineTo(HDC dc, int x, int y);
/// Outlines a box with the pen and fills it with the brush, without right and bottom edge.
VOSTEL_API BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
/// Outlines the ellipse in a box with the pen and fills it with the brush, without right and bottom edge.
VOSTEL_API BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
/// Fills a box with a brush, without right and bottom edge. Returns 1, 0 on failure.
VOSTEL_API int FillRect(HDC dc, const RECT* rect, HBRUSH brush);

/// Returns the color of a pixel; CLR_INVALID outside of the bitmap and on a bitmap of 1 bit per pixel.
VOSTEL_API COLORREF GetPixel(HDC dc, int x, int y);
/// Sets the color of a pixel and returns it; CLR_INVALID outside of the bitmap and on a bitmap of 1 bit per
/// pixel.
VOSTEL_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF color);

/// Copies a box between contexts. SRCCOPY is the one operation. A negative extent mirrors, as it does in GDI.
VOSTEL_API BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       DWORD operation);
/// Copies and scales a box between contexts by the target's mode. SRCCOPY is the one operation. A negative
/// extent mirrors.
VOSTEL_API BOOL StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight, DWORD operation);

/// Draws a line of text with its top left at a point. A length of -1 takes the text up to its terminator.
VOSTEL_API BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
/// Draws or measures text in a rectangle by DT_ bits. A length of -1 takes the text up to its terminator.
/// Returns the height of the text in pixels.
VOSTEL_API int DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format);

/// Finishes all drawing; here it is always finished. Returns TRUE.
VOSTEL_API BOOL GdiFlush();

/// Returns whether a point is inside, left and top counted in, right and bottom out; FALSE for null.
VOSTEL_API BOOL PtInRect(const RECT* rect, POINT point);
/// Moves left and right outwards by dx, top and bottom by dy; inwards for negative ones.
VOSTEL_API BOOL InflateRect(RECT* rect, int dx, int dy);
/// Shifts a rectangle.
VOSTEL_API BOOL OffsetRect(RECT* rect, int dx, int dy);

/// Returns the handle of this process, which GetGuiResources takes.
VOSTEL_API HANDLE GetCurrentProcess();
/// Returns the number of live GDI objects of this process, stock objects left out; 0 for other kinds.
VOSTEL_API DWORD GetGuiResources(HANDLE process, DWORD kind);

}    // extern "C"
