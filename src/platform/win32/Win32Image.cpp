// Loads and saves of CImage by GDI+. The library is brought up by the first load or save and goes away with
// the last picture object, so that a host pays for it only while pictures are at hand.

#include "vostel/platform.h"

#if !defined(VOSTEL_HAS_FRAMEWORK_CLASSES)

#    include "platform/FileSaving.h"
#    include "platform/HeldPicture.h"
#    include "platform/PictureLimits.h"
#    include "platform/PictureSaving.h"

#    include <objidl.h>

#    include <algorithm>
#    include <cstdint>
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

using namespace vostel;

namespace {

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

// 0 for what is not there, which the system then reports.
std::size_t FileBytes(const wchar_t* path)
{
    WIN32_FILE_ATTRIBUTE_DATA facts = {};
    if (!GetFileAttributesExW(path, GetFileExInfoStandard, &facts))
        return 0;
    return static_cast<std::size_t>(std::uint64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow);
}

Gdiplus::PixelFormat FormatOf(const PictureBuffer& picture)
{
    switch (picture.BitsPerPixel) {
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
        return picture.HasAlpha ? PixelFormat32bppARGB : PixelFormat32bppRGB;
    }
}

void TakePalette(Gdiplus::Bitmap& source, PictureBuffer& picture)
{
    const INT                  bytes = source.GetPaletteSize();
    std::vector<unsigned char> memory(static_cast<std::size_t>(std::max<INT>(bytes, 0)));
    auto*                      palette = reinterpret_cast<Gdiplus::ColorPalette*>(memory.data());
    if (bytes < static_cast<INT>(sizeof(Gdiplus::ColorPalette)) ||
        source.GetPalette(palette, bytes) != Gdiplus::Ok)
        return;
    for (UINT i = 0; i < palette->Count && i < 256; ++i) {
        const Gdiplus::ARGB color = palette->Entries[i];
        picture.Palette[i] = {static_cast<BYTE>(color), static_cast<BYTE>(color >> 8),
                              static_cast<BYTE>(color >> 16), 0};
    }
}

// Colors are decoded straight into the picture. Indices are taken as they lie in the decoder: on the way
// through a buffer of ours the last half byte of an odd row can get lost.
bool TakePixels(Gdiplus::Bitmap& source, PictureBuffer& picture)
{
    const bool                 indices = picture.BitsPerPixel <= 8;
    const Gdiplus::PixelFormat format = FormatOf(picture);
    Gdiplus::BitmapData        target = {};
    target.Width = static_cast<UINT>(picture.Width);
    target.Height = static_cast<UINT>(picture.Height);
    target.Stride = picture.Pitch();
    target.PixelFormat = format;
    target.Scan0 = picture.Row(0);
    const Gdiplus::Rect whole(0, 0, picture.Width, picture.Height);
    const UINT mode = Gdiplus::ImageLockModeRead | (indices ? 0 : Gdiplus::ImageLockModeUserInputBuf);
    if (source.LockBits(&whole, mode, format, &target) != Gdiplus::Ok)
        return false;
    if (indices && target.Scan0) {
        const std::size_t bits =
            static_cast<std::size_t>(picture.Width) * static_cast<std::size_t>(picture.BitsPerPixel);
        const BYTE* const first = static_cast<const BYTE*>(target.Scan0);
        for (int y = 0; y < picture.Height; ++y)
            std::copy_n(first + static_cast<std::ptrdiff_t>(y) * target.Stride, (bits + 7) / 8,
                        picture.Row(y));
    }
    return source.UnlockBits(&target) == Gdiplus::Ok;
}

bool SetPalette(const PictureBuffer& picture, Gdiplus::Bitmap& target)
{
    if (picture.BitsPerPixel > 8)
        return true;
    const UINT                 count = 1u << picture.BitsPerPixel;
    std::vector<unsigned char> memory(sizeof(Gdiplus::ColorPalette) + count * sizeof(Gdiplus::ARGB));
    auto*                      palette = reinterpret_cast<Gdiplus::ColorPalette*>(memory.data());
    palette->Count = count;
    for (UINT i = 0; i < count; ++i) {
        const RGBQUAD& color = picture.Palette[i];
        palette->Entries[i] = Gdiplus::Color::MakeARGB(255, color.rgbRed, color.rgbGreen, color.rgbBlue);
    }
    return target.SetPalette(palette) == Gdiplus::Ok;
}

}

namespace ATL {

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
    if (!path || !Manager::Shared().Start())
        return E_FAIL;
    try {
        const std::size_t bytes = FileBytes(path);
        if (bytes > static_cast<std::uint64_t>(LimitsOfCImage().MaxFileBytes))
            return E_FAIL;
        Gdiplus::Bitmap source(path);
        if (source.GetLastStatus() != Gdiplus::Ok || source.GetWidth() < 1 || source.GetHeight() < 1 ||
            !IsWithin(LimitsOfCImage(), bytes, source.GetWidth(), source.GetHeight()))
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
            TakePalette(source, *loaded);
        if (!TakePixels(source, *loaded))
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
    if (!path || IsNull() || !Manager::Shared().Start())
        return E_FAIL;
    try {
        if (!FindEncoder(path, encoder))
            return E_FAIL;
        GdiFlush();
        Gdiplus::Bitmap source(Held->Width, Held->Height, Held->Pitch(), FormatOf(*Held), Held->Row(0));
        if (source.GetLastStatus() != Gdiplus::Ok || !SetPalette(*Held, source))
            return E_FAIL;
        FileReplacement target(path);
        const CString   name = target.CloseToName();
        const bool      saved =
            !name.IsEmpty() && source.Save(name, &encoder, nullptr) == Gdiplus::Ok && target.Keep();
        return saved ? S_OK : E_FAIL;
    } catch (const std::bad_alloc&) {
        return NoMemoryForPicture;
    }
}

}

#endif
