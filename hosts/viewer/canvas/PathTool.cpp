#include "canvas/PathTool.h"

#include "canvas/CanvasView.h"
#include "canvas/DrawTools.h"

#include <QPainter>

#include <cmath>

namespace vostel::viewer {

namespace {

bool IsClosed(Shape shape)
{
    return shape == Shape::Polygon || shape == Shape::Spline;
}

// Points after which an object is complete; 0: when the person says so.
std::size_t FixedCount(Shape shape)
{
    return shape == Shape::Angle ? 3 : shape == Shape::AngleOfLines ? 4 : 0;
}

std::size_t LeastCount(Shape shape)
{
    return FixedCount(shape) != 0 ? FixedCount(shape) : IsClosed(shape) ? 3 : 2;
}

}

bool PathTool::IsOnFirst(const Pointer& at) const
{
    constexpr double FirstReach = 7.0;    // layout px
    return IsClosed(What) && Nodes.size() >= LeastCount(What) &&
           Between(View.Open().view_to_client(Nodes.front()), at.Client) <=
               FirstReach * View.devicePixelRatioF();
}

void PathTool::Press(const Pointer& at)
{
    if (IsOnFirst(at))
        return Finish();
    Nodes.push_back(at.Image);
    Next = at.Image;
    if (Nodes.size() == FixedCount(What))
        Finish();
    View.update();
}

void PathTool::Move(const Pointer& at)
{
    Next = at.Image;
    if (IsBusy())
        View.update();
}

void PathTool::DoubleClick(const Pointer& at)
{
    if (FixedCount(What) != 0)
        Press(at);
    else
        Finish();    // the first of the two clicks set the last node
}

void PathTool::Finish()
{
    if (Nodes.size() < LeastCount(What))
        return;
    AddWhole(View, What, Nodes);
    Cancel();
}

void PathTool::Cancel()
{
    Nodes.clear();
    View.update();
}

void PathTool::StepBack()
{
    Nodes.pop_back();
    View.update();
}

QString PathTool::Hint() const
{
    if (What == Shape::Angle)
        return tr("Click an end, the vertex and the other end; Esc drops it");
    if (What == Shape::AngleOfLines)
        return tr("Click both ends of one line, then of the other; Esc drops it");
    if (!IsBusy())
        return tr("Click the first node; Esc puts the tool away");
    return tr("Click the next node, Backspace takes one back, Enter or a double click ends, Esc drops it");
}

void PathTool::Paint(QPainter& painter) const
{
    if (Nodes.empty())
        return;
    std::vector<Point> path = Nodes;
    path.push_back(Next);
    if (What == Shape::AngleOfLines && path.size() > 2) {
        PaintPath(painter, View, {path[0], path[1]}, false);
        path.erase(path.begin(), path.begin() + 2);
    }
    PaintPath(painter, View, path, IsClosed(What));
    painter.setPen(QPen(Qt::black, 1.0));
    painter.setBrush(QColor::fromRgb(View.Drawn().Handle));
    for (const Point& node : Nodes)
        painter.drawRect(QRectF(View.PositionOf(node) - QPointF(3, 3), QSizeF(6, 6)));
}

}
