#pragma once

#include "canvas/Tool.h"

#include <QPointF>

#include <vector>

namespace vostel::viewer {

// Without an armed tool: a press selects what lies under it and a drag moves it or its node, a drag on the
// background moves the image, Shift selects several, one by one or by a box. A double click on an outline
// adds a node, on a text edits it; Alt and a click take a node away.
class SelectTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(SelectTool)

public:
    using Tool::Tool;

    void    Press(const Pointer& at) override;
    void    Move(const Pointer& at) override;
    void    Release(const Pointer& at) override;
    void    DoubleClick(const Pointer& at) override;
    bool    IsBusy() const override { return Doing != Drag::None; }
    void    Cancel() override;
    QString Hint() const override;
    QCursor Cursor(const Pointer& at) const override;
    void    Paint(QPainter& painter) const override;

private:
    enum class Drag { None, Pan, Box, Group, Gesture };

    struct Moved {
        Object             Which;
        std::vector<Point> Points;    // at the press
    };

    bool IsOnHandle(const Pointer& at) const;
    void Toggle(const Object& object);
    void BeginGroup(const Pointer& at);
    void MoveGroup(const Pointer& at);
    void SelectBox();

    Drag               Doing = Drag::None;
    Point              From = {};    // client px, of the press
    Point              Last = {};    // client px
    Point              FromImage = {};
    bool               WasMoved = false;
    bool               InStep = false;    // of several objects or a snapped one
    std::vector<Moved> Group;
};

}
