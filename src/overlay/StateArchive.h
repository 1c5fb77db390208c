#pragma once

#include "vostel/Geometry.h"
#include "vostel/platform.h"

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace vostel {

// The state of an object as bytes. A class lists its fields once, and the same list saves and loads them:
//     archive(ImagePoints, EllipseMode);
// The same bytes mean the same state: numbers have a fixed size, lie lowest byte first and keep all their
// bits.
class StateArchive {
public:
    // Saves.
    StateArchive() = default;
    // Loads from bytes that outlive the archive, and never reads beyond them. A field that is not there in
    // full is left as it was, and so are all after it.
    explicit StateArchive(std::span<const unsigned char> bytes) : Source(bytes), Loads(true) {}

    template <typename... Fields>
    void operator()(Fields&... fields)
    {
        (Transfer(fields), ...);
    }
    // Saves the value, and breaks loading where another one is found.
    void Expect(int value);
    // Breaks loading where a value makes no sense.
    void Refuse() { Broken = true; }

    bool IsLoading() const { return Loads; }
    // Loading only: whether every field was there, and nothing after the last one.
    bool IsWhole() const { return !Broken && Source.empty(); }
    // Saving only.
    std::vector<unsigned char> TakeBytes() { return std::move(Saved); }

private:
    template <std::integral Number>
    void Transfer(Number& value)
    {
        TransferBits<std::make_unsigned_t<std::conditional_t<std::same_as<Number, bool>, char, Number>>>(
            value);
    }
    template <typename Number>
    requires std::is_enum_v<Number>
    void Transfer(Number& value)
    {
        TransferBits<std::make_unsigned_t<std::underlying_type_t<Number>>>(value);
    }
    void Transfer(float& value);
    void Transfer(double& value);
    void Transfer(CPoint& point);
    void Transfer(PointTemplateBase<double>& point);
    void Transfer(CString& text);
    template <typename Element>
    void Transfer(std::vector<Element>& list)
    {
        std::uint32_t count = static_cast<std::uint32_t>(list.size());
        Transfer(count);
        if (!Loads) {
            for (Element& element : list)
                Transfer(element);
            return;
        }
        // Grows with what is there, not with what the count claims.
        std::vector<Element> loaded;
        for (std::uint32_t i = 0; i < count && !Broken; ++i)
            Transfer(loaded.emplace_back());
        if (!Broken)
            list = std::move(loaded);
    }
    template <typename Bits, typename Value>
    void TransferBits(Value& value)
    {
        std::array<unsigned char, sizeof(Bits)> bytes{};
        if (!Loads) {
            const Bits bits = static_cast<Bits>(value);
            for (std::size_t i = 0; i < bytes.size(); ++i)
                bytes[i] = static_cast<unsigned char>(bits >> (8 * i));
            Saved.insert(Saved.end(), bytes.begin(), bytes.end());
            return;
        }
        if (!Take(bytes))
            return;
        Bits bits = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bits = static_cast<Bits>(bits | static_cast<Bits>(static_cast<Bits>(bytes[i]) << (8 * i)));
        value = static_cast<Value>(bits);
    }

    bool Take(std::span<unsigned char> bytes);

    std::span<const unsigned char> Source;    // what is left to load
    std::vector<unsigned char>     Saved;
    bool                           Loads = false;
    bool                           Broken = false;
};

}
