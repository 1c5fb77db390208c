// Section bitmaps: their making and the questions about their layout.

#include "platform/portable/BitmapMemory.h"
#include "platform/portable/PortableContext.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

using namespace vostel::gdi;

namespace {

// The largest image that a header can state: its size is a 32-bit field.
constexpr std::int64_t ImageLimit = 0xFFFFFFFF;
constexpr DWORD        BitFields = 3;    // what a header query returns for 32 bits

}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset)
{
    if (bits)
        *bits = nullptr;
    if (!info || usage != DIB_RGB_COLORS || section || offset != 0)
        return nullptr;
    const BITMAPINFOHEADER& header = info->bmiHeader;
    if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biPlanes != 1 || header.biCompression != BI_RGB ||
        (header.biBitCount != 24 && header.biBitCount != 32))
        return nullptr;
    std::int64_t width = header.biWidth;
    std::int64_t height = header.biHeight < 0 ? -static_cast<std::int64_t>(header.biHeight) : header.biHeight;
    if (width <= 0 || height <= 0)
        return nullptr;
    std::int64_t rowBytes = (width * header.biBitCount + 31) / 32 * 4;
    if (rowBytes > ImageLimit / height || rowBytes > INT32_MAX)
        return nullptr;

    std::unique_ptr<Bitmap> bitmap(new (std::nothrow) Bitmap);
    if (!bitmap)
        return nullptr;
    bitmap->Width = static_cast<int>(width);
    bitmap->Height = static_cast<int>(height);
    bitmap->BitsPerPixel = header.biBitCount;
    bitmap->RowBytes = static_cast<int>(rowBytes);
    bitmap->TopDown = header.biHeight < 0;
    const std::size_t bytes = static_cast<std::size_t>(height) * static_cast<std::size_t>(rowBytes);
    unsigned char*    memory = AllocateBits(bytes);
    if (!memory)
        return nullptr;
    bitmap->Bits = memory;
    HBITMAP handle = InsertBitmap(std::move(bitmap));
    if (!handle)
        FreeBits(memory, bytes);
    else if (bits)
        *bits = memory;
    return handle;
}

int GetObjectW(HGDIOBJ object, int bytes, void* record)
{
    const Bitmap* bitmap = FindBitmap(static_cast<HBITMAP>(object));
    if (!bitmap)
        return 0;
    constexpr int Size = sizeof(BITMAP);
    if (!record)
        return Size;
    if (bytes >= 0 && bytes < Size)
        return 0;
    BITMAP answer = {};
    answer.bmWidth = bitmap->Width;
    answer.bmHeight = bitmap->Height;
    answer.bmWidthBytes = bitmap->BitsPerPixel == 1 ? 2 : bitmap->RowBytes;
    answer.bmPlanes = 1;
    answer.bmBitsPixel = static_cast<WORD>(bitmap->BitsPerPixel);
    answer.bmBits = bitmap->BitsPerPixel == 1 ? nullptr : bitmap->Bits;
    std::memcpy(record, &answer, sizeof(answer));
    return Size;
}

int GetDIBits(HDC dc, HBITMAP handle, UINT, UINT, void* bits, BITMAPINFO* info, UINT usage)
{
    const Bitmap* bitmap = FindBitmap(handle);
    if (!FindContext(dc) || !bitmap || bits || !info || usage != DIB_RGB_COLORS ||
        info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER))
        return 0;
    BITMAPINFOHEADER& header = info->bmiHeader;
    if (header.biBitCount == 0) {
        header.biWidth = bitmap->Width;
        header.biHeight = bitmap->Height;
        header.biPlanes = 1;
        header.biBitCount = static_cast<WORD>(bitmap->BitsPerPixel);
        header.biCompression = bitmap->BitsPerPixel == 32 ? BitFields : BI_RGB;
        header.biSizeImage = static_cast<DWORD>(static_cast<std::int64_t>(bitmap->RowBytes) * bitmap->Height);
        header.biXPelsPerMeter = header.biYPelsPerMeter = 0;
        header.biClrUsed = header.biClrImportant = 0;
        return bitmap->Height;
    }
    // A header that states a format of its own learns the size of an image of that format.
    std::uint64_t rowBytes =
        (static_cast<std::uint64_t>(std::llabs(header.biWidth)) * header.biBitCount + 31) / 32 * 4;
    header.biSizeImage =
        static_cast<DWORD>(rowBytes * static_cast<std::uint64_t>(std::llabs(header.biHeight)));
    return 1;
}
