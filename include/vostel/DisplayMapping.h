#pragma once

/// @file
/// Look-up tables from raw values to gray or color.

#include "vostel/Containers.h"

/// Three look-up tables. They keep their size for the object's life and are zero until they are first built.
class VOSTEL_API ZEKMAPIMA {
public:
    std::int32_t                         RangeHigh = 0;    ///< value from which on UsMap gives 255
    std::int32_t                         RangeLow = 0;     ///< value up to which UsMap gives 0
    ClassData2DIOGeneral<int>*           UsMap;            ///< 65536 x 1, 16-bit value to gray 0..255; owned
    ClassData2DIOGeneral<int>*           UcMap;            ///< 256 x 1, 8-bit value to gray 0..255; owned
    ClassData2DIOGeneral<tagStructRGBA>* UsColorMap;       ///< 65536 x 1, 16-bit value to color; owned

    /// Makes the tables.
    ZEKMAPIMA();
    /// Frees the tables.
    ~ZEKMAPIMA();
    ZEKMAPIMA(const ZEKMAPIMA&) = delete;
    ZEKMAPIMA& operator=(const ZEKMAPIMA&) = delete;

    /// Builds UsMap from RangeLow and RangeHigh: 0 up to RangeLow, 255 from RangeHigh on, between them
    /// trunc(double(float(i - RangeLow)) * 255 / double(float(RangeHigh - RangeLow))).
    void GetMapUs();
    /// Builds UcMap from two fractions of 255 by the same three cases; RangeLow and RangeHigh stay.
    void GetMapUc(float low, float high);
    /// Stores the range, capped to 0..65535, and rebuilds UsMap. Nothing happens unless high is above low.
    void SetRange(int low, int high);
    /// Stores the range unchecked and rebuilds UsColorMap as a ramp from colorLow to colorHigh, truncated.
    /// The alpha byte of entries on the ramp is not written.
    void SetUsColorRange(int low, int high, tagStructRGBA colorLow, tagStructRGBA colorHigh);
};
