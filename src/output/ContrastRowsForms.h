#pragma once

#include "output/ContrastRows.h"

#include <cstddef>

// The forms of ContrastRows.h, on rows.
void ContrastRowPlain(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                      bool pastCaches);
void ContrastRowLabelledPlain(const ContrastTable& table, const float* raw, unsigned* pixels,
                              const int* label, std::size_t count);

void ContrastRowAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                     bool pastCaches);
void ContrastRowLabelledAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                             std::size_t count);

// The form in use.
struct ContrastRowsForms {
    decltype(&ContrastRowPlain)         Row;
    decltype(&ContrastRowLabelledPlain) RowLabelled;
};
const ContrastRowsForms& ActiveContrastRowsForms();
