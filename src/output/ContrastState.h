#pragma once

#include <string>

namespace vostel {

// How values become shades, in the image's own values: the data never change.
//
// shown = ((v - Low) / (High - Low))^(1 / Gamma), held within 0..1, of 255 and rounded to the nearest level,
// which the color map turns into a pixel. While High is not above Low, values above Low show as 1 and all
// others as 0.
struct ContrastState {
    double      Low = 0.0;
    double      High = 255.0;
    double      Gamma = 1.0;    // above 0
    std::string Map = "gray";

    // 0xAARRGGBB, laid over what would be shown of such values; alpha 0 marks nothing. Values that are not
    // finite show as black without a mark.
    unsigned Below = 0;
    unsigned Above = 0;
    unsigned NotFinite = 0;

    bool operator==(const ContrastState&) const = default;
    bool HasMarks() const { return (Below | Above | NotFinite) >> 24 != 0; }
};

}
