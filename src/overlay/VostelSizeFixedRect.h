#pragma once

#include "overlay/VostelCustomRect.h"

namespace vostel {

// A box that keeps its size on the screen through zoom: FixedSize, set by its descendant, holds the second
// point at a constant distance in client px from the first.
class VostelSizeFixedRect : public VostelCustomRect {
public:
    DerivedFrom PlacedBy() const override { return DerivedFrom::Client; }
};

}
