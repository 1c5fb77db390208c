#pragma once

#include "fileio/ImageFiles.h"

#include <cstddef>

namespace vostel {

// Rows in the caller's memory, aligned as it likes, for values of VOSTEL_U8, VOSTEL_U16 or VOSTEL_F32.
struct RawTarget {
    SampleType     Type = SampleType::U8;
    void*          Data = nullptr;
    std::ptrdiff_t RowBytes = 0;
};

// Gray samples of a file without a header, converted on their way: truncated and held within the range of the
// target, which is written nowhere but in its pixels. Fails as ReadRawImage does; of a file that cannot be
// read to its end the target holds the first rows.
void ReadRawRows(const std::string& path, const RawLayout& layout, const RawTarget& target);

}
