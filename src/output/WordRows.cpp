#include "output/WordRows.h"

#include "foundation/CpuForms.h"
#include "output/WordRowsForms.h"

#include <algorithm>
#include <cstring>

bool WritesPastCaches(std::size_t bytes)
{
    return bytes >= std::size_t{16} << 20;
}

void FillWordsPlain(std::uint32_t* target, std::size_t count, std::uint32_t value, bool)
{
    std::fill_n(target, count, value);
}

void CopyWordsPlain(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool)
{
    if (count > 0)
        std::memcpy(target, source, count * sizeof(std::uint32_t));
}

void WordFencePlain() {}

const WordRowsForms& ActiveWordRowsForms()
{
    static const WordRowsForms plain = {FillWordsPlain, CopyWordsPlain, WordFencePlain};
#if defined(__x86_64__) || defined(_M_X64)
    static const WordRowsForms avx2 = {FillWordsAvx2, CopyWordsAvx2, WordFenceAvx2};
    if (ActiveCpuForm() >= CpuForm::Avx2)    // wider registers do not pay: memory is the limit
        return avx2;
#endif
    return plain;
}

void FillWords(std::uint32_t* target, std::size_t count, std::uint32_t value, bool pastCaches)
{
    ActiveWordRowsForms().Fill(target, count, value, pastCaches);
}

void CopyWords(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool pastCaches)
{
    ActiveWordRowsForms().Copy(source, target, count, pastCaches);
}

void WordFence()
{
    ActiveWordRowsForms().Fence();
}
