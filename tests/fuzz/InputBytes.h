#pragma once

// Takes an input of the fuzzer apart. Past its end there are zeros.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

class InputBytes {
public:
    explicit InputBytes(std::string_view input) : Input(input) {}

    bool             IsAtEnd() const { return At >= Input.size(); }
    std::string_view Rest() const { return Input.substr(std::min(At, Input.size())); }

    template <typename T>
    T Take()
    {
        T                 value = {};
        const std::size_t count = std::min(sizeof value, Input.size() - std::min(At, Input.size()));
        if (count > 0)
            std::memcpy(&value, Input.data() + At, count);
        At += sizeof value;
        return value;
    }
    int  Byte() { return Take<std::uint8_t>(); }
    int  Below(int count) { return Byte() % count; }
    bool Coin() { return Below(2) == 1; }

    template <typename T, std::size_t N>
    T Of(const T (&values)[N])
    {
        return values[static_cast<std::size_t>(Byte()) % N];
    }

    // Around an image mostly, in sixteenths; now and then a number that nobody means.
    double Coordinate()
    {
        const std::int16_t sixteenths = Take<std::int16_t>();
        if (sixteenths != std::numeric_limits<std::int16_t>::min())
            return sixteenths % 2048 / 16.0;
        static const double hard[] = {1e6,
                                      -1e6,
                                      1e300,
                                      -1e300,
                                      1e-300,
                                      2147483647.0,
                                      -2147483648.0,
                                      2147483648.0,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN()};
        return Of(hard);
    }

private:
    std::string_view Input;
    std::size_t      At = 0;
};
