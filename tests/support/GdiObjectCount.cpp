#include "support/GdiObjectCount.h"

#include <VostelObj.h>

unsigned GdiObjectCount()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}
