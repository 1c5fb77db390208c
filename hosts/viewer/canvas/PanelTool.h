#pragma once

#include "canvas/Tool.h"

namespace vostel::viewer {

// Read-outs that lie on the window: a click puts them.
class PanelTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(PanelTool)

public:
    PanelTool(CanvasView& view, Shape shape) : Tool(view), What(shape) {}

    void                 Press(const Pointer& at) override;
    std::optional<Shape> Draws() const override { return What; }
    QString              Hint() const override;

private:
    Shape What;
};

}
