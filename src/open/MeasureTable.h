#pragma once

#include "vostel.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vostel::open {

// An object with everything that a table says of it.
struct MeasureRow {
    VostelObject   Object = 0;
    std::string    Name;
    const char*    Kind = "";
    std::int32_t   Label = 0;    // 0 for none
    VostelMeasures Measures = {};
};

// Texts by RFC 4180: a header line and one a row, ended by CR LF. A field that holds the separator, a quote
// or the end of a line stands in quotes, with its quotes doubled. What has no meaning leaves its field empty.
std::string CsvOf(const std::vector<MeasureRow>& rows, const std::string& unit, char separator);

// An array of objects with the same names; what has no meaning is null.
std::string JsonOf(const std::vector<MeasureRow>& rows, const std::string& unit);

}
