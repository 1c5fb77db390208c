#include "platform/ImageSamples.h"

#include "base/CacheLimits.h"
#include "platform/System.h"

namespace vostel {

ImageSamples::ImageSamples(SampleType type, int width, int height) : Type(type), Width(width), Height(height)
{
    Memory = std::make_unique_for_overwrite<unsigned char[]>(Bytes());
    if (Bytes() >= CoreCacheBytes)
        PreferLargePages(Memory.get(), Bytes());
}

}
