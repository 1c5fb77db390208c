#pragma once

#include "canvas/Tool.h"

namespace vostel::viewer {

// Texts: a click puts a field to type in, Enter leaves the text there.
class TextTool : public Tool {
    Q_DECLARE_TR_FUNCTIONS(TextTool)

public:
    using Tool::Tool;

    void                 Press(const Pointer& at) override;
    std::optional<Shape> Draws() const override { return Shape::Text; }
    QString              Hint() const override;
    QCursor              Cursor(const Pointer&) const override { return Qt::IBeamCursor; }
};

// Lets the person change a text where it stands.
void EditText(CanvasView& view, const Object& text);

}
