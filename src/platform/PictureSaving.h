#pragma once

#include "vostel/platform.h"

namespace vostel {

// What CImage::Save returns where there is no memory.
inline constexpr HRESULT NoMemoryForPicture = static_cast<HRESULT>(0x8007000Eu);

// Saves a picture beside its path and moves it there, as CImage::Save of this library does itself; the class
// of the same name that Windows frameworks bring writes in place.
HRESULT SavePicture(const ATL::CImage& picture, const CString& path);

}
