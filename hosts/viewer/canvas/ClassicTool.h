#pragma once

#include "canvas/Tool.h"

namespace vostel::viewer {

// The library's own gestures: a press selects, a drag moves, Shift draws what was asked for, Control pans
// and, with the wheel, zooms.
class ClassicTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(ClassicTool)

public:
    using Tool::Tool;

    // An object of the kind, which the next presses with Shift draw.
    void DrawNext(VostelKind kind);

    void    Press(const Pointer& at) override;
    void    Move(const Pointer& at) override;
    void    Release(const Pointer& at) override;
    QString Hint() const override;
    QCursor Cursor(const Pointer& at) const override;
};

}
