// A host as strangers write it: one include, a canvas on a memory context, one frame.
#include <VostelObj.h>

#include <cstdio>
#include <cstring>

int main()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 32;
    info.bmiHeader.biHeight = 32;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void*   bits = nullptr;
    HDC     dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(dc, bitmap);

    CRect client(0, 0, 32, 32);
    gCVSSetClient(0, client, dc);
    ClassData2DIO<unsigned char> gray;
    gray.Allocate(64, 64);
    std::memset(gray.Ptr1D, 200, 64 * 64);
    ClassData2DIO<unsigned char> copy(gray);
    copy = gray;
    gCVSShowUCGray(0, copy, true);
    gCVSOnDraw(0, dc);

    GdiFlush();
    const unsigned centre = static_cast<unsigned*>(bits)[16 * 32 + 16] & 0xFFFFFFu;
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    std::printf("centre %06X\n", centre);
    return centre == 0xC8C8C8u ? 0 : 1;
}
