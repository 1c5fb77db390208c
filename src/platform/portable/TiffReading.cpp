#include "platform/portable/TiffReading.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

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

// Numbers in the byte order and the width of addresses that a file has; zero behind its end.
class Numbers {
public:
    explicit Numbers(std::span<const unsigned char> file)
        : File(file), BigEndian(!file.empty() && file[0] == 'M'), Wide(At(2, 2) == 43)
    {
    }

    bool          IsWide() const { return Wide; }
    std::uint64_t At(std::uint64_t place, std::size_t bytes) const
    {
        std::uint64_t value = 0;
        if (place > File.size() || bytes > File.size() - place)
            return value;
        for (std::size_t i = 0; i < bytes; ++i)
            value = value << 8 | File[place + (BigEndian ? i : bytes - 1 - i)];
        return value;
    }
    std::uint64_t Address(std::uint64_t place) const { return At(place, Wide ? 8 : 4); }

private:
    std::span<const unsigned char> File;
    bool                           BigEndian, Wide;
};

// By the number of a type; 1 for those that nobody knows.
constexpr std::uint64_t TypeBytes[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 1, 1, 8, 8, 8};

// Handlers of this one file; what the host has set for others stays untouched.
int Silent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

}

bool AreTagsWithin(std::span<const unsigned char> file, int page)
{
    const Numbers       numbers(file);
    const std::uint64_t head = numbers.IsWide() ? 8 : 2, entryBytes = numbers.IsWide() ? 20 : 12;
    const auto          countAt = [&](std::uint64_t directory) {
        // As many as the library looks at.
        return std::min<std::uint64_t>(numbers.At(directory, head), UINT16_MAX);
    };
    std::uint64_t directory = numbers.Address(numbers.IsWide() ? 8 : 4);
    for (int i = 0; i < page && directory != 0; ++i)
        directory = numbers.Address(directory + head + entryBytes * countAt(directory));
    constexpr std::uint64_t spared = 1 << 20;
    const std::uint64_t     most = 2 * std::uint64_t{file.size()} + spared;
    const std::uint64_t     count = countAt(directory);
    std::uint64_t           sum = 0;
    for (std::uint64_t i = 0; i < count && sum <= most; ++i) {
        const std::uint64_t entry = directory + head + entryBytes * i;
        const std::uint64_t type = numbers.At(entry + 2, 2);
        const std::uint64_t values = numbers.Address(entry + 4);
        // What cannot be in the file is not read.
        const std::uint64_t each = type < std::size(TypeBytes) ? TypeBytes[type] : 1;
        sum += values <= file.size() / each ? values * each : 0;
    }
    return sum <= most;
}

TiffHandle OpenTiff(TiffBytes& bytes)
{
    if (!AreTagsWithin(bytes.File, 0))
        return nullptr;
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
