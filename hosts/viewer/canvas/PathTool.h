#pragma once

#include "canvas/Tool.h"

#include <vector>

namespace vostel::viewer {

// Node by node: polygons, splines, polylines, angles. Enter, a double click or, of closed ones, a click on
// the first node ends it; angles end with their last point.
class PathTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(PathTool)

public:
    PathTool(CanvasView& view, Shape shape) : Tool(view), What(shape) {}

    void                 Press(const Pointer& at) override;
    void                 Move(const Pointer& at) override;
    void                 DoubleClick(const Pointer& at) override;
    bool                 IsBusy() const override { return !Nodes.empty(); }
    void                 Finish() override;
    void                 Cancel() override;
    void                 StepBack() override;
    std::optional<Shape> Draws() const override { return What; }
    QString              Hint() const override;
    void                 Paint(QPainter& painter) const override;

private:
    bool IsOnFirst(const Pointer& at) const;

    Shape              What;
    std::vector<Point> Nodes;        // image px
    Point              Next = {};    // image px, under the pointer
};

}
