#pragma once

#include "canvas/Tool.h"

#include <vector>

namespace vostel::viewer {

// Along a drag: free regions and strokes.
class FreehandTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(FreehandTool)

public:
    FreehandTool(CanvasView& view, Shape shape) : Tool(view), What(shape) {}

    void                 Press(const Pointer& at) override;
    void                 Move(const Pointer& at) override;
    void                 Release(const Pointer& at) override;
    bool                 IsBusy() const override { return !Path.empty(); }
    void                 Cancel() override;
    std::optional<Shape> Draws() const override { return What; }
    QString              Hint() const override;
    void                 Paint(QPainter& painter) const override;

private:
    Shape              What;
    std::vector<Point> Path;    // image px
};

}
