#include "canvas/DragTool.h"

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vostel::viewer {

namespace {

constexpr double LeastDrag = 3.0;    // layout px; what is shorter is a click

}

Point DragTool::End(const Pointer& at) const
{
    if (!at.Modifiers.testFlag(Qt::ShiftModifier))
        return at.Image;
    const double x = at.Image.x - From.x, y = at.Image.y - From.y;
    if (What == Shape::Rectangle || What == Shape::Ellipse) {
        const double side = std::max(std::fabs(x), std::fabs(y));
        return {From.x + std::copysign(side, x), From.y + std::copysign(side, y)};
    }
    constexpr double Eighth = std::numbers::pi / 4.0;
    const double     angle = std::round(std::atan2(y, x) / Eighth) * Eighth;
    const double     length = std::hypot(x, y);
    return {From.x + length * std::cos(angle), From.y + length * std::sin(angle)};
}

void DragTool::Press(const Pointer& at)
{
    IsDown = true;
    From = at.Image;
    FromClient = at.Client;
    Growing = Object();
}

void DragTool::Move(const Pointer& at)
{
    if (!IsDown)
        return;
    if (Growing.id() == 0 && Between(at.Client, FromClient) < LeastDrag * View.devicePixelRatioF())
        return;
    const bool done = View.Model().Try([&](Canvas& canvas) {
        if (Growing.id() != 0) {
            canvas.object_set_points(Growing, {From, End(at)});
            return;
        }
        canvas.history_begin("");
        Growing = AddDrawn(View, canvas, What, {From, End(at)});
    });
    if (!done)
        Cancel();
}

void DragTool::EndStep()
{
    if (Growing.id() != 0)
        View.Open().history_end();
    Growing = Object();
    IsDown = false;
}

void DragTool::Release(const Pointer& at)
{
    Move(at);
    EndStep();
}

void DragTool::Cancel()
{
    if (Growing.id() != 0)
        View.Open().object_remove(Growing);
    EndStep();
}

QString DragTool::Hint() const
{
    if (What == Shape::Rectangle || What == Shape::Ellipse)
        return IsDown ? tr("Shift keeps the sides equal, Esc drops it")
                      : tr("Drag from corner to corner; Esc puts the tool away");
    return IsDown ? tr("Shift keeps to multiples of 45 degrees, Esc drops it")
                  : tr("Drag from end to end; Esc puts the tool away");
}

}
