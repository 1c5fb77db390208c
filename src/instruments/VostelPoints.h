#pragma once

#include "instruments/VostelMarking.h"

namespace vostel {

// Counted marks: a small cross with its number at each point, and a caption that gives their count. Where
// very many marks crowd, numbers that would fall on others are left out until the image is enlarged.
class VostelPoints : public VostelMarking {
public:
    VostelPoints();

    CString CaptionText() const override;

protected:
    bool HitsMark(CPoint point) const override;    // none beside the handles
    void DrawMark() override;

private:
    void DrawNumbers(const std::vector<CPoint>& shown, const std::vector<int>& numbers);
};

}
