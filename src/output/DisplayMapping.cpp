#include "vostel/DisplayMapping.h"

#include "base/Truncate.h"

#include <algorithm>
#include <cstdint>
#include <memory>

using namespace vostel;

namespace {

constexpr int UsEntries = 65536;
constexpr int UcEntries = 256;

template <typename T>
std::unique_ptr<ClassData2DIOGeneral<T>> MakeTable(int entries)
{
    auto table = std::make_unique<ClassData2DIOGeneral<T>>();
    table->Allocate(entries, 1);
    std::fill_n(table->Ptr1D, entries, T());
    return table;
}

template <typename T>
void FreeTable(ClassData2DIOGeneral<T>* table)
{
    const std::unique_ptr<ClassData2DIOGeneral<T>> owned(table);
    table->Release();
}

// The differences pass through float before the quotient is formed in double: limits far outside the table
// lose their low bits. A host can set such limits; the difference itself may need 33 bits.
int RampEntry(int i, int low, int high)
{
    const float distance = static_cast<float>(static_cast<std::int64_t>(i) - low);
    const float span = static_cast<float>(static_cast<std::int64_t>(high) - low);
    return TruncToInt(static_cast<double>(distance) * 255.0 / static_cast<double>(span));
}

// 0 up to low, RampEntry below high, 255 from there on.
void BuildGrayTable(int* table, int entries, int low, int high)
{
    const int first = std::clamp(low, -1, entries - 1) + 1;
    const int last = std::max(first, std::min(high, entries));    // one behind the ramp
    std::fill(table, table + first, 0);
    std::fill(table + last, table + entries, 255);
    const std::int64_t span = static_cast<std::int64_t>(high) - low;
    if (low < 0 || span > 65535) {
        for (int i = first; i < last; ++i)
            table[i] = RampEntry(i, low, high);
        return;
    }
    // Of whole numbers this small every step of the formula is exact but the quotient, and that stays on its
    // side of the next whole number: it truncates as the exact quotient does. So each gray fills a run, and
    // the first entry with it follows from whole numbers.
    int begin = first;
    for (int gray = 0; gray <= 255 && begin < last; ++gray) {
        const int next = low + static_cast<int>(((gray + 1) * span + 254) / 255);
        const int end = std::clamp(next, begin, last);
        std::fill(table + begin, table + end, gray);
        begin = end;
    }
}

unsigned char RampChannel(float distance, float step, unsigned char low)
{
    return TruncToByte(distance * step + static_cast<float>(low));
}

}

ZEKMAPIMA::ZEKMAPIMA()
{
    auto us = MakeTable<int>(UsEntries);
    auto uc = MakeTable<int>(UcEntries);
    auto usColor = MakeTable<tagStructRGBA>(UsEntries);
    UsMap = us.release();
    UcMap = uc.release();
    UsColorMap = usColor.release();
}

ZEKMAPIMA::~ZEKMAPIMA()
{
    FreeTable(UsMap);
    FreeTable(UcMap);
    FreeTable(UsColorMap);
}

void ZEKMAPIMA::GetMapUs()
{
    BuildGrayTable(UsMap->Ptr1D, UsEntries, RangeLow, RangeHigh);
}

void ZEKMAPIMA::GetMapUc(float low, float high)
{
    BuildGrayTable(UcMap->Ptr1D, UcEntries, TruncToInt(static_cast<double>(low) * 255.0),
                   TruncToInt(static_cast<double>(high) * 255.0));
}

void ZEKMAPIMA::SetRange(int low, int high)
{
    if (high <= low)
        return;
    RangeHigh = std::min(high, 65535);
    RangeLow = std::max(low, 0);
    GetMapUs();
}

void ZEKMAPIMA::SetUsColorRange(int low, int high, tagStructRGBA colorLow, tagStructRGBA colorHigh)
{
    RangeLow = low;
    RangeHigh = high;
    const float    span = static_cast<float>(static_cast<std::int64_t>(high) - low);
    const float    stepRed = static_cast<float>(colorHigh.r - colorLow.r) / span;
    const float    stepGreen = static_cast<float>(colorHigh.g - colorLow.g) / span;
    const float    stepBlue = static_cast<float>(colorHigh.b - colorLow.b) / span;
    tagStructRGBA* entries = UsColorMap->Ptr1D;
    for (int i = 0; i < UsEntries; ++i) {
        if (i <= low) {
            entries[i] = colorLow;
        } else if (i < high) {
            const float distance = static_cast<float>(static_cast<std::int64_t>(i) - low);
            entries[i].r = RampChannel(distance, stepRed, colorLow.r);
            entries[i].g = RampChannel(distance, stepGreen, colorLow.g);
            entries[i].b = RampChannel(distance, stepBlue, colorLow.b);
        } else {
            entries[i] = colorHigh;
        }
    }
}
