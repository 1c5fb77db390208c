#pragma once

#include "overlay/VostelMovableRect.h"

namespace vostel {

// A movable box of text lines, sized to its text at each paint, without frame or fill.
class VostelTextML : public VostelMovableRect {
public:
    std::vector<CString> Lines;         // top first
    int                  Margin = 5;    // px around and between lines

    VostelTextML();

    void OnDraw(HDC dc) override;
    void DerivePainted() override;    // the size
    void SetTextLines(std::vector<CString>& lines) override;
    void AddTextLine(CString line) override;

    CString CaptionText() const override;    // a line feed between lines
    bool    TakeText(const CString& text) override;
    void    Persist(StateArchive& archive) override;

    void ClearLines();

private:
    int FitToLines();    // returns the height of a line
};

}
