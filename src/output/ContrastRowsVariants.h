#pragma once

#include "output/ContrastRows.h"

#include <cstddef>

namespace vostel {

// The forms of ContrastRows.h, on rows.
void ContrastRowPlain(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                      bool streaming);
void ContrastRowLabelledPlain(const ContrastTable& table, const float* raw, unsigned* pixels,
                              const int* label, std::size_t count);

void ContrastRowAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                     bool streaming);
void ContrastRowLabelledAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                             std::size_t count);

// The form in use.
struct ContrastRowsVariants {
    decltype(&ContrastRowPlain)         Row;
    decltype(&ContrastRowLabelledPlain) RowLabelled;
};
const ContrastRowsVariants& ActiveContrastRowsVariants();

}
