// What CImage does alike on every platform. Loading, saving and what begins and ends with an object are the
// platform's: Win32Image.cpp and PortableImage.cpp.

#include "vostel/platform.h"

#if !defined(VOSTEL_HAS_FRAMEWORK_CLASSES)

#    include "platform/HeldPicture.h"

#    include <climits>
#    include <new>

namespace ATL {

bool CImage::Create(int width, int height, int bitsPerPixel)
{
    Destroy();
    if ((bitsPerPixel != 8 && bitsPerPixel != 24 && bitsPerPixel != 32) || width <= 0 || height == 0 ||
        height == INT_MIN)
        return false;
    try {
        auto created = std::make_unique<Picture>();
        if (!created->Allocate(width, height < 0 ? -height : height, bitsPerPixel, height > 0))
            return false;
        Held = std::move(created);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

void CImage::Destroy()
{
    Held.reset();
}

bool CImage::IsNull() const
{
    return !Held;
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
    return Held ? Held->Row(0) : nullptr;
}

int CImage::GetPitch() const
{
    return Held ? Held->Pitch() : 0;
}

HDC CImage::GetDC() const
{
    if (!Held || !Held->Bitmap())
        return nullptr;
    if (!Held->Context) {
        Held->Context = CreateCompatibleDC(nullptr);
        Held->Before = SelectObject(Held->Context, Held->Bitmap());
    }
    return Held->Context;
}

void CImage::ReleaseDC() const
{
    if (Held)
        Held->CloseContext();
}

}

#endif
