#include "canvas/FreehandTool.h"

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"

#include <QPainter>

#include <cmath>

namespace vostel::viewer {

void FreehandTool::Press(const Pointer& at)
{
    Path = {at.Image};
}

void FreehandTool::Move(const Pointer& at)
{
    if (!IsBusy() || Between(at.Image, Path.back()) == 0.0)
        return;
    Path.push_back(at.Image);
    View.update();
}

void FreehandTool::Release(const Pointer& at)
{
    Move(at);
    if (Path.size() >= (What == Shape::FreeRegion ? 3u : 2u))
        AddWhole(View, What, Path);
    Cancel();
}

void FreehandTool::Cancel()
{
    Path.clear();
    View.update();
}

QString FreehandTool::Hint() const
{
    return What == Shape::FreeRegion ? tr("Drag around the region; Esc puts the tool away")
                                     : tr("Drag a stroke; Esc puts the tool away");
}

void FreehandTool::Paint(QPainter& painter) const
{
    if (IsBusy())
        PaintPath(painter, View, Path, What == Shape::FreeRegion);
}

}
