#include "platform/portable/TiffReading.h"

#include <algorithm>
#include <cstring>

namespace vostel::pictures {
namespace {

TiffBytes& BytesOf(thandle_t handle)
{
    return *static_cast<TiffBytes*>(handle);
}

tmsize_t ReadBytes(thandle_t handle, void* target, tmsize_t count)
{
    TiffBytes& bytes = BytesOf(handle);
    if (count <= 0 || bytes.At >= bytes.File.size())
        return 0;
    const std::size_t taken = std::min(bytes.File.size() - bytes.At, static_cast<std::size_t>(count));
    std::memcpy(target, bytes.File.data() + bytes.At, taken);
    bytes.At += taken;
    return static_cast<tmsize_t>(taken);
}

tmsize_t WriteNothing(thandle_t, void*, tmsize_t)
{
    return -1;
}

toff_t Seek(thandle_t handle, toff_t offset, int whence)
{
    TiffBytes&        bytes = BytesOf(handle);
    const std::size_t from = whence == SEEK_CUR ? bytes.At : whence == SEEK_END ? bytes.File.size() : 0;
    // Far beyond the end reads nothing.
    bytes.At = std::min<std::size_t>(from + offset, std::size_t{1} << 40);
    return bytes.At;
}

int Close(thandle_t)
{
    return 0;
}

toff_t Size(thandle_t handle)
{
    return BytesOf(handle).File.size();
}

// The library then takes blocks from where they are. Its own conversion refuses plain tiles that it has read
// into memory of its own unless their length is a multiple of 1024.
int Map(thandle_t handle, void** base, toff_t* size)
{
    const std::span<const unsigned char> file = BytesOf(handle).File;
    *base = const_cast<unsigned char*>(file.data());    // read only
    *size = file.size();
    return 1;
}

void Unmap(thandle_t, void*, toff_t) {}

// Handlers of this one file; what the host has set for others stays untouched.
int Silent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

}

TiffHandle OpenTiff(TiffBytes& bytes)
{
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    if (!options)
        return nullptr;
    TIFFOpenOptionsSetMaxSingleMemAlloc(options, tmsize_t{1} << 30);
    TIFFOpenOptionsSetErrorHandlerExtR(options, Silent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, Silent, nullptr);
    TiffHandle tiff(TIFFClientOpenExt("picture", "r", &bytes, ReadBytes, WriteNothing, Seek, Close, Size, Map,
                                      Unmap, options));
    TIFFOpenOptionsFree(options);
    return tiff;
}

}
