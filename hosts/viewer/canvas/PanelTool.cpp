#include "canvas/PanelTool.h"

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"

namespace vostel::viewer {

void PanelTool::Press(const Pointer& at)
{
    View.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("");
        AddDrawn(View, canvas, What, {at.Client});
    });
    View.Disarm();    // a second one would lie over the first
}

QString PanelTool::Hint() const
{
    return tr("Click where it is to lie; Esc puts the tool away");
}

}
