#pragma once

#include "canvas/view/PaintKit.h"
#include "vostel/platform.h"

namespace vostel {

// What a text needs with the font that the context holds, at 0, 0. Nothing for an empty text, and nothing
// without a live context, where the measuring call of some systems leaves rubbish.
CRect TextExtent(HDC dc, const CString& text);

// A memory context that a kit measures with for the length of a scope, whatever it drew on last. Nothing is
// recorded meanwhile.
class MeasuringContext {
public:
    explicit MeasuringContext(PaintKit& kit)
        : Kit(kit), Before(kit.Dc), FontBefore(kit.Font), RecorderBefore(kit.Recorder)
    {
        Kit.Dc = CreateCompatibleDC(nullptr);
        Kit.Recorder = nullptr;
        Kit.Font = nullptr;
    }
    ~MeasuringContext();
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;

private:
    PaintKit&      Kit;
    HDC            Before;
    HFONT          FontBefore;    // which may still be selected there
    VectorDrawing* RecorderBefore;
};

}
