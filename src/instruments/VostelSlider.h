#pragma once

#include "instruments/VostelFixedRect.h"

namespace vostel {

// The contrast slider on the canvas: two thumbs on a track that hold a display window in 0..1, with a caption
// box at the left. The thumbs never pass each other; they stay at least one thumb's width of travel apart.
class VostelSlider : public VostelFixedRect {
public:
    bool  ControlHit = false;    // the last press fell inside; stays after the release for the canvas to read
    float Low = 0.0f;            // 0..1; dark thumb
    float High = 1.0f;           // 0..1; light thumb
    CString Caption;
    bool    SingleThumb = false;    // the light thumb is not drawn; nothing sets it
    CRect   CaptionRect;            // client px, as all rectangles here
    int     CaptionWidth = 60;      // px before the inset
    CRect   TrackRect;
    int     Travel = 0;    // px that a thumb can travel
    CRect   LowThumbRect;
    CRect   HighThumbRect;
    bool    DragLow = false;
    bool    DragHigh = false;
    int     ThumbWidth = 10;
    int     TrackWidth = 0;
    int     TrackGap = 0;    // px between caption box and track
    int     Inset = -2;      // of InflateRect: negative shrinks

    VostelSlider();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void RefreshClientGeometry() override;
    void OnDraw(HDC dc) override;
    void Persist(StateArchive& archive) override;

    void SetCaption(const CString& text);

private:
    CRect ThumbRect(float position) const;
};

}
