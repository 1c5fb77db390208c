#pragma once

#include "geometry/ImagePoint.h"

#include <cstddef>
#include <cstdint>

namespace vostel {

// What the client geometry of a kind follows from, beside its image points.
enum class DerivedFrom {
    Client,    // texts, the area, gestures: derived at each event
    View,      // the view alone
    Paint      // the view, and that of the last paint
};

// What the list of a canvas notes of an object that stands on it.
struct ElementEntry {
    std::size_t   Place = 0;        // on the list
    std::uint64_t ViewStamp = 0;    // of the view that the client geometry was derived from; 0: changed since
    std::uint64_t PaintStamp = 0;    // of the paint that derived the rest; 0: changed since
    std::uint64_t IndexStamp = 0;    // of the index that has the object, by this box
    Bounds        Box;               // image px
    std::uint64_t WokenIn = 0;       // the outermost call in which somebody took the object
    bool          Listed = false;
    bool          Resting = false;    // derived when somebody looks
};

}
