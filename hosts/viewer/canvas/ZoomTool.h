#pragma once

#include "canvas/Tool.h"

namespace vostel::viewer {

// A drag shows what lies in its box as large as fits; a click zooms in, with Alt out.
class ZoomTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(ZoomTool)

public:
    using Tool::Tool;

    void    Press(const Pointer& at) override;
    void    Move(const Pointer& at) override;
    void    Release(const Pointer& at) override;
    bool    IsBusy() const override { return IsDown; }
    void    Cancel() override;
    QString Hint() const override;
    void    Paint(QPainter& painter) const override;

private:
    bool  IsDown = false;
    Point From = {};    // client px
    Point To = {};      // client px
};

}
