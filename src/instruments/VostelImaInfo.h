#pragma once

#include "instruments/VostelTextML.h"

namespace vostel {

// The read-out window: on every mouse move its lines give the image position and the value under the cursor.
class VostelImaInfo : public VostelTextML {
public:
    void OnMouseMove(unsigned int flags, CPoint point) override;
    bool TakeText(const CString& text) override;     // refused: the mouse makes the lines
    void Persist(StateArchive& archive) override;    // without the lines
};

}
