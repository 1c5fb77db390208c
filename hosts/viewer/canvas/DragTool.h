#pragma once

#include "canvas/Tool.h"

namespace vostel::viewer {

// Two ends or corners, by one drag: rectangles, ellipses, lengths, profiles, arrows. Shift makes squares and
// multiples of 45 degrees. The object is there from the first move on, so its measure is seen while it grows.
class DragTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(DragTool)

public:
    DragTool(CanvasView& view, Shape shape) : Tool(view), What(shape) {}

    void                 Press(const Pointer& at) override;
    void                 Move(const Pointer& at) override;
    void                 Release(const Pointer& at) override;
    bool                 IsBusy() const override { return IsDown; }
    void                 Cancel() override;
    std::optional<Shape> Draws() const override { return What; }
    QString              Hint() const override;

private:
    Point End(const Pointer& at) const;
    void  EndStep();

    Shape  What;
    bool   IsDown = false;
    Point  From = {};          // image px
    Point  FromClient = {};    // client px
    Object Growing;            // none before the first move
};

}
