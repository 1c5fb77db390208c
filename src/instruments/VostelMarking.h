#pragma once

#include "instruments/VostelCaptioned.h"

namespace vostel {

// What marks on the image that bound no region share: each Shift press adds a point, a press on a handle
// drags it, one on the mark drags the whole and its caption, one on the caption drags that alone. The caption
// always says the measure.
class VostelMarking : public VostelCaptioned {
public:
    bool LabelDragged = false;    // the caption's place is the user's; else it goes beside each new point

    VostelMarking();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags) override;    // none
    bool Covers(CPoint point) const override;
    void OnDraw(HDC dc) override;
    void Persist(StateArchive& archive) override;

protected:
    // Of the mark itself, without handles and caption.
    virtual bool HitsMark(CPoint point) const = 0;
    virtual void DrawMark() = 0;
    CString      LengthText() const;
    void         PlaceFirstLabel() override;

private:
    void   PlaceLabelAgain();         // unless the user has
    CPoint NearestToLabel() const;    // of the points
};

}
