#include "canvas/PixelSurface.h"

#include "base/Truncate.h"
#include "platform/PictureSaving.h"
#include "vostel/BmpFiles.h"
#include "vostel/PathStrings.h"

#include <memory>

namespace vostel {

bool PixelSurface::SaveGrayBmp(CString path)
{
    ClassData2DIO<unsigned char> gray;
    if (!Pixels)
        return true;
    gray.Allocate(Width, Height);
    const std::size_t count = static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height);
    for (std::size_t i = 0; i < count; ++i) {
        const int b = Pixels[i] & 0xFF;
        const int g = Pixels[i] >> 8 & 0xFF;
        const int r = Pixels[i] >> 16 & 0xFF;
        // Blue before red: the order differs from the read-back of pixel values, and the last bit with it.
        gray.Ptr1D[i] = TruncToByte(g * 0.587 + b * 0.114 + r * 0.299);
    }
    const std::unique_ptr<char, void (*)(char*)> name(gCStringToChar(&path), gDLLDelete);
    ZEKSaveGrayBmp(name.get(), gray);    // memory order, bottom row first, is the file's order too
    return true;
}

bool PixelSurface::SaveColorImage(const CString& path)
{
    WriteColorImage(path);
    return true;
}

HRESULT PixelSurface::WriteColorImage(const CString& path) const
{
    ATL::CImage picture;
    if (!Pixels)
        return E_FAIL;
    if (!picture.Create(Width, Height, 24))
        return NoMemoryForPicture;
    unsigned char* const top = static_cast<unsigned char*>(picture.GetBits());
    for (int i = 0; i < Height; ++i) {
        const unsigned int* source =
            Pixels + static_cast<std::size_t>(Height - 1 - i) * static_cast<std::size_t>(Width);
        unsigned char* target = top + static_cast<std::ptrdiff_t>(i) * picture.GetPitch();
        for (int x = 0; x < Width; ++x, target += 3) {
            target[0] = static_cast<unsigned char>(source[x]);
            target[1] = static_cast<unsigned char>(source[x] >> 8);
            target[2] = static_cast<unsigned char>(source[x] >> 16);
        }
    }
    return SavePicture(picture, path);
}

}
