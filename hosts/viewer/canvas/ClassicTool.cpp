#include "canvas/ClassicTool.h"

#include "canvas/CanvasView.h"

namespace vostel::viewer {

namespace {

std::uint32_t Flags(const Pointer& at)
{
    std::uint32_t flags = 0;
    if (at.Modifiers.testFlag(Qt::ShiftModifier))
        flags |= VOSTEL_SHIFT;
    if (at.Modifiers.testFlag(Qt::ControlModifier))
        flags |= VOSTEL_CONTROL;
    if (at.IsDown)
        flags |= VOSTEL_LEFT_BUTTON;
    return flags;
}

}

void ClassicTool::DrawNext(VostelKind kind)
{
    View.Dress(View.Open().draw_next(kind));
}

void ClassicTool::Press(const Pointer& at)
{
    View.Open().event_press(at.Client, Flags(at));
}

void ClassicTool::Move(const Pointer& at)
{
    View.Open().event_move(at.Client, Flags(at));
    if (at.IsDown && at.Modifiers.testFlag(Qt::ControlModifier))
        View.SetFitted(false);
}

void ClassicTool::Release(const Pointer& at)
{
    View.Open().event_release(at.Client, Flags(at));
}

QString ClassicTool::Hint() const
{
    return tr("Shift and a drag or clicks draw, a drag moves, Control and a drag pan");
}

QCursor ClassicTool::Cursor(const Pointer& at) const
{
    return at.Modifiers.testFlag(Qt::ControlModifier) ? Qt::OpenHandCursor : Qt::ArrowCursor;
}

}
