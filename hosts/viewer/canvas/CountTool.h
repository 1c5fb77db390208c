#pragma once

#include "canvas/Tool.h"

#include <vector>

namespace vostel::viewer {

// Marks that are counted, one by a click, all in one object until Enter begins another.
class CountTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(CountTool)

public:
    using Tool::Tool;

    void                 Press(const Pointer& at) override;
    bool                 IsBusy() const override { return Marks.id() != 0; }
    void                 Finish() override { Marks = Object(); }
    void                 Cancel() override { Finish(); }
    void                 StepBack() override;
    std::optional<Shape> Draws() const override { return Shape::Points; }
    QString              Hint() const override;

private:
    std::vector<Point> Standing() const;    // none once the object is gone

    Object Marks;
};

}
