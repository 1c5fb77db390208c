#pragma once

#include <cstddef>
#include <cstdint>

// The forms of WordRows.h. Plain first: what the others do, too.
void FillWordsPlain(std::uint32_t* target, std::size_t count, std::uint32_t value, bool pastCaches);
void CopyWordsPlain(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool pastCaches);
void WordFencePlain();

void FillWordsAvx2(std::uint32_t* target, std::size_t count, std::uint32_t value, bool pastCaches);
void CopyWordsAvx2(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool pastCaches);
void WordFenceAvx2();

// The form in use.
struct WordRowsForms {
    decltype(&FillWordsPlain) Fill;
    decltype(&CopyWordsPlain) Copy;
    decltype(&WordFencePlain) Fence;
};
const WordRowsForms& ActiveWordRowsForms();
