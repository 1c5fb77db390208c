// CImage on GDI+. The library is brought up by the first load or save and goes away with the last
// picture object, so that a host pays for it only while pictures are at hand.

#include "vostel/platform.h"

#if !defined(VOSTEL_HAS_FRAMEWORK_CLASSES)

#    include <objidl.h>

#    include <algorithm>
#    include <cwchar>
#    include <cwctype>
#    include <new>
#    include <string>
#    include <utility>
#    include <vector>

// The library's headers ask for these by their bare names.
using std::max;
using std::min;
#    include <gdiplus.h>

namespace {

constexpr long long LargestPicture = 1LL << 28;    // pixels, 1 GiB of colour

// Counts the pictures and holds the token of the running library.
class Manager {
public:
    static Manager& Shared()
    {
        static Manager manager;
        return manager;
    }
    void Enter()
    {
        if (!Usable)
            return;
        const Lock lock(Section);
        ++Pictures;
    }
    void Leave()
    {
        if (!Usable)
            return;
        const Lock lock(Section);
        if (--Pictures == 0 && Token != 0) {
            Gdiplus::GdiplusShutdown(Token);
            Token = 0;
        }
    }
    bool Start()
    {
        if (!Usable)
            return false;
        const Lock                   lock(Section);
        Gdiplus::GdiplusStartupInput input;
        if (Token == 0 && Gdiplus::GdiplusStartup(&Token, &input, nullptr) != Gdiplus::Ok)
            Token = 0;
        return Token != 0;
    }

private:
    Manager() : Usable(InitializeCriticalSectionAndSpinCount(&Section, 0) != FALSE) {}
    // The section lives as long as the process: a static picture may leave after this object is gone.

    struct Lock {
        CRITICAL_SECTION& Held;
        explicit Lock(CRITICAL_SECTION& section) : Held(section) { EnterCriticalSection(&Held); }
        ~Lock() { LeaveCriticalSection(&Held); }
    };
    CRITICAL_SECTION Section;
    bool             Usable;
    int              Pictures = 0;
    ULONG_PTR        Token = 0;
};

struct SectionInfo {
    BITMAPINFOHEADER Header;
    RGBQUAD          Colours[256];
};

bool IsSaneSize(long long width, long long height)
{
    return width > 0 && height > 0 && width <= LargestPicture && height <= LargestPicture &&
           width * height <= LargestPicture;
}

// The encoder whose list of patterns, "*.TIF;*.TIFF", holds the extension of the path.
bool FindEncoder(const wchar_t* path, CLSID& encoder)
{
    std::wstring      pattern = path;
    const std::size_t dot = pattern.find_last_of(L".\\/");
    if (dot == std::wstring::npos || pattern[dot] != L'.')
        return false;
    pattern = L"*" + pattern.substr(dot);
    const auto upper = [](wchar_t character) { return static_cast<wchar_t>(std::towupper(character)); };
    std::transform(pattern.begin(), pattern.end(), pattern.begin(), upper);

    UINT count = 0, bytes = 0;
    if (Gdiplus::GetImageEncodersSize(&count, &bytes) != Gdiplus::Ok || bytes == 0)
        return false;
    std::vector<unsigned char> memory(bytes);
    auto*                      codecs = reinterpret_cast<Gdiplus::ImageCodecInfo*>(memory.data());
    if (Gdiplus::GetImageEncoders(count, bytes, codecs) != Gdiplus::Ok)
        return false;
    for (UINT i = 0; i < count; ++i) {
        std::wstring known = std::wstring(L";") + codecs[i].FilenameExtension + L";";
        std::transform(known.begin(), known.end(), known.begin(), upper);
        if (known.find(L";" + pattern + L";") != std::wstring::npos) {
            encoder = codecs[i].Clsid;
            return true;
        }
    }
    return false;
}

}

namespace ATL {

struct CImage::Picture {
    int     Width = 0;
    int     Height = 0;
    int     BitsPerPixel = 0;
    int     Pitch = 0;    // negative: bottom-up
    HBITMAP Section = nullptr;
    BYTE*   TopRow = nullptr;
    bool    HasAlpha = false;
    RGBQUAD Palette[256] = {};
    HDC     Context = nullptr;    // while GetDC is out
    HGDIOBJ Before = nullptr;     // what the context held before the picture

    ~Picture()
    {
        CloseContext();
        if (Section != nullptr)
            DeleteObject(Section);
    }
    void CloseContext()
    {
        if (Context == nullptr)
            return;
        SelectObject(Context, Before);
        DeleteDC(Context);
        Context = nullptr;
    }

    // With a palette of grays. A negative height: top-down.
    bool Allocate(int width, int height, int bitsPerPixel)
    {
        const int lines = height < 0 ? -height : height;
        if (!IsSaneSize(width, lines))
            return false;
        SectionInfo info = {};
        info.Header.biSize = sizeof info.Header;
        info.Header.biWidth = width;
        info.Header.biHeight = height;
        info.Header.biPlanes = 1;
        info.Header.biBitCount = static_cast<WORD>(bitsPerPixel);
        info.Header.biCompression = BI_RGB;
        if (bitsPerPixel <= 8) {
            const int last = (1 << bitsPerPixel) - 1;
            for (int i = 0; i <= last; ++i) {
                const BYTE level = static_cast<BYTE>(i * 255 / last);
                Palette[i] = {level, level, level, 0};
            }
            std::copy(std::begin(Palette), std::end(Palette), info.Colours);
        }
        void* bits = nullptr;
        Section = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits,
                                   nullptr, 0);
        if (Section == nullptr)
            return false;
        const long long rowBytes = (static_cast<long long>(width) * bitsPerPixel + 31) / 32 * 4;
        Width = width;
        Height = lines;
        BitsPerPixel = bitsPerPixel;
        Pitch = static_cast<int>(height > 0 ? -rowBytes : rowBytes);
        TopRow = static_cast<BYTE*>(bits) + (height > 0 ? (lines - 1) * rowBytes : 0);
        return true;
    }

    Gdiplus::PixelFormat Format() const
    {
        switch (BitsPerPixel) {
        case 1:
            return PixelFormat1bppIndexed;
        case 4:
            return PixelFormat4bppIndexed;
        case 8:
            return PixelFormat8bppIndexed;
        case 16:
            return PixelFormat16bppRGB555;
        case 24:
            return PixelFormat24bppRGB;
        default:
            return HasAlpha ? PixelFormat32bppARGB : PixelFormat32bppRGB;
        }
    }

    void TakePalette(Gdiplus::Bitmap& source)
    {
        const INT                  bytes = source.GetPaletteSize();
        std::vector<unsigned char> memory(static_cast<std::size_t>(std::max<INT>(bytes, 0)));
        auto*                      palette = reinterpret_cast<Gdiplus::ColorPalette*>(memory.data());
        if (bytes < static_cast<INT>(sizeof(Gdiplus::ColorPalette)) ||
            source.GetPalette(palette, bytes) != Gdiplus::Ok)
            return;
        for (UINT i = 0; i < palette->Count && i < 256; ++i) {
            const Gdiplus::ARGB colour = palette->Entries[i];
            Palette[i] = {static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8),
                          static_cast<BYTE>(colour >> 16), 0};
        }
    }

    // Colours are decoded straight into the section. Indices are taken as they lie in the decoder: on the
    // way through a buffer of ours the last half byte of an odd row can get lost.
    bool TakePixels(Gdiplus::Bitmap& source)
    {
        const bool          indices = BitsPerPixel <= 8;
        Gdiplus::BitmapData target = {};
        target.Width = static_cast<UINT>(Width);
        target.Height = static_cast<UINT>(Height);
        target.Stride = Pitch;
        target.PixelFormat = Format();
        target.Scan0 = TopRow;
        const Gdiplus::Rect whole(0, 0, Width, Height);
        const UINT mode = Gdiplus::ImageLockModeRead | (indices ? 0 : Gdiplus::ImageLockModeUserInputBuf);
        if (source.LockBits(&whole, mode, Format(), &target) != Gdiplus::Ok)
            return false;
        if (indices && target.Scan0 != nullptr) {
            const std::size_t bytes =
                (static_cast<std::size_t>(Width) * static_cast<std::size_t>(BitsPerPixel) + 7) / 8;
            const BYTE* first = static_cast<const BYTE*>(target.Scan0);
            for (std::ptrdiff_t y = 0; y < Height; ++y)
                std::copy_n(first + y * target.Stride, bytes, TopRow + y * Pitch);
        }
        return source.UnlockBits(&target) == Gdiplus::Ok;
    }

    bool SetPalette(Gdiplus::Bitmap& target) const
    {
        if (BitsPerPixel > 8)
            return true;
        const UINT                 count = 1u << BitsPerPixel;
        std::vector<unsigned char> memory(sizeof(Gdiplus::ColorPalette) + count * sizeof(Gdiplus::ARGB));
        auto*                      palette = reinterpret_cast<Gdiplus::ColorPalette*>(memory.data());
        palette->Count = count;
        for (UINT i = 0; i < count; ++i)
            palette->Entries[i] =
                Gdiplus::Color::MakeARGB(255, Palette[i].rgbRed, Palette[i].rgbGreen, Palette[i].rgbBlue);
        return target.SetPalette(palette) == Gdiplus::Ok;
    }
};

CImage::CImage()
{
    Manager::Shared().Enter();
}

CImage::~CImage()
{
    Held.reset();
    Manager::Shared().Leave();
}

HRESULT CImage::Load(const wchar_t* path)
{
    Destroy();
    if (path == nullptr || !Manager::Shared().Start())
        return E_FAIL;
    try {
        Gdiplus::Bitmap source(path);
        if (source.GetLastStatus() != Gdiplus::Ok || !IsSaneSize(source.GetWidth(), source.GetHeight()))
            return E_FAIL;
        // Formats that no section bitmap holds become 32 bits, as do those with alpha.
        const Gdiplus::PixelFormat format = source.GetPixelFormat();
        const bool                 alpha = (format & PixelFormatAlpha) != 0;
        const int depth = alpha || !(format & PixelFormatGDI) ? 32 : static_cast<int>(format >> 8 & 0xFF);
        auto      loaded = std::make_unique<Picture>();
        if (!loaded->Allocate(static_cast<int>(source.GetWidth()), static_cast<int>(source.GetHeight()),
                              depth))
            return E_FAIL;
        loaded->HasAlpha = alpha;
        if (depth <= 8)
            loaded->TakePalette(source);
        if (!loaded->TakePixels(source))
            return E_FAIL;
        Held = std::move(loaded);
    } catch (const std::bad_alloc&) {
        return E_FAIL;
    }
    return S_OK;
}

HRESULT CImage::Save(const wchar_t* path) const
{
    CLSID encoder = {};
    if (path == nullptr || IsNull() || !Manager::Shared().Start())
        return E_FAIL;
    try {
        if (!FindEncoder(path, encoder))
            return E_FAIL;
        GdiFlush();
        Gdiplus::Bitmap source(Held->Width, Held->Height, Held->Pitch, Held->Format(), Held->TopRow);
        if (source.GetLastStatus() != Gdiplus::Ok || !Held->SetPalette(source))
            return E_FAIL;
        return source.Save(path, &encoder, nullptr) == Gdiplus::Ok ? S_OK : E_FAIL;
    } catch (const std::bad_alloc&) {
        return E_FAIL;
    }
}

bool CImage::Create(int width, int height, int bitsPerPixel)
{
    Destroy();
    if ((bitsPerPixel != 8 && bitsPerPixel != 24 && bitsPerPixel != 32) || width <= 0 || height == 0 ||
        height == INT_MIN)
        return false;
    auto created = std::make_unique<Picture>();
    if (!created->Allocate(width, height, bitsPerPixel))
        return false;
    Held = std::move(created);
    return true;
}

void CImage::Destroy()
{
    Held.reset();
}
bool CImage::IsNull() const
{
    return Held == nullptr;
}
int CImage::GetWidth() const
{
    return Held ? Held->Width : 0;
}
int CImage::GetHeight() const
{
    return Held ? Held->Height : 0;
}
int CImage::GetBPP() const
{
    return Held ? Held->BitsPerPixel : 0;
}
void* CImage::GetBits() const
{
    return Held ? Held->TopRow : nullptr;
}
int CImage::GetPitch() const
{
    return Held ? Held->Pitch : 0;
}

HDC CImage::GetDC() const
{
    if (Held == nullptr || Held->BitsPerPixel < 24)
        return nullptr;
    if (Held->Context == nullptr) {
        Held->Context = CreateCompatibleDC(nullptr);
        Held->Before = SelectObject(Held->Context, Held->Section);
    }
    return Held->Context;
}

void CImage::ReleaseDC() const
{
    if (Held != nullptr)
        Held->CloseContext();
}

}

#endif
