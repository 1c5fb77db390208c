#include "fileio/RawRows.h"

#include "base/Failure.h"
#include "base/Truncate.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <type_traits>

namespace vostel {

namespace {

// Samples pass through a block that stays in the processor's cache.
constexpr std::size_t BlockBytes = 128 * 1024;

// Whether each value of one type is one of the other.
template <typename From, typename To>
constexpr bool Holds = std::is_floating_point_v<To> ||
                       (std::is_integral_v<From> && std::is_unsigned_v<From> && sizeof(From) <= sizeof(To));

template <typename From, typename To>
void ConvertRow(const unsigned char* from, char* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        From sample;
        std::memcpy(&sample, from + i * sizeof sample, sizeof sample);
        To value;
        if constexpr (Holds<From, To>)
            value = static_cast<To>(sample);
        else
            value = TruncWithin<To>(static_cast<float>(sample));
        std::memcpy(to + i * sizeof value, &value, sizeof value);
    }
}

using RowConversion = void (*)(const unsigned char* from, char* to, std::size_t count);

template <typename From>
RowConversion ConversionTo(SampleType target)
{
    return target == SampleType::U8    ? ConvertRow<From, std::uint8_t>
           : target == SampleType::U16 ? ConvertRow<From, std::uint16_t>
                                       : ConvertRow<From, float>;
}

RowConversion ConversionBetween(SampleType file, SampleType target)
{
    switch (file) {
    case SampleType::U8:
        return ConversionTo<std::uint8_t>(target);
    case SampleType::U16:
        return ConversionTo<std::uint16_t>(target);
    case SampleType::I16:
        return ConversionTo<std::int16_t>(target);
    default:
        return ConversionTo<float>(target);
    }
}

}

void ReadRawRows(const std::string& path, const RawLayout& layout, const RawTarget& target)
{
    const OwnedFile     file = OpenRawFile(path, layout);
    const RowConversion convert = ConversionBetween(layout.Type, target.Type);
    const std::size_t   width = static_cast<std::size_t>(layout.Width);
    const std::size_t   rowBytes = width * PixelBytes(layout.Type);
    const int           blockRows = static_cast<int>(std::max<std::size_t>(BlockBytes / rowBytes, 1));
    const auto          block =
        std::make_unique_for_overwrite<unsigned char[]>(rowBytes * static_cast<std::size_t>(blockRows));
    for (int y = 0; y < layout.Height; y += blockRows) {
        const int         rows = std::min(blockRows, layout.Height - y);
        const std::size_t bytes = rowBytes * static_cast<std::size_t>(rows);
        ReadRawBytes(file.get(), path, layout, block.get(), bytes);
        for (int row = 0; row < rows; ++row)
            convert(block.get() + rowBytes * static_cast<std::size_t>(row),
                    static_cast<char*>(target.Data) + (y + row) * target.RowBytes, width);
    }
}

}
