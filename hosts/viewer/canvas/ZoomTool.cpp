#include "canvas/ZoomTool.h"

#include "canvas/CanvasView.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace vostel::viewer {

void ZoomTool::Press(const Pointer& at)
{
    IsDown = true;
    From = To = at.Client;
}

void ZoomTool::Move(const Pointer& at)
{
    if (!IsDown)
        return;
    To = at.Client;
    View.update();
}

void ZoomTool::Release(const Pointer& at)
{
    if (!std::exchange(IsDown, false))
        return;
    constexpr double LeastBox = 6.0;    // layout px
    const Point      a = View.Open().view_to_image(From), b = View.Open().view_to_image(at.Client);
    if (std::hypot(at.Client.x - From.x, at.Client.y - From.y) > LeastBox * View.devicePixelRatioF())
        View.ShowArea(QRectF(QPointF(a.x, a.y), QPointF(b.x, b.y)).normalized());
    else
        View.ZoomAt(at.Modifiers.testFlag(Qt::AltModifier) ? 0.5 : 2.0, at.Client);
    View.update();
}

void ZoomTool::Cancel()
{
    IsDown = false;
    View.update();
}

QString ZoomTool::Hint() const
{
    return tr("Drag a box to fill the window with it, click to zoom in, Alt+click to zoom out");
}

void ZoomTool::Paint(QPainter& painter) const
{
    if (!IsDown)
        return;
    const double ratio = View.devicePixelRatioF();
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {QPen(QColor(0, 0, 0, 160), 3.0), QPen(Qt::white, 1.0, Qt::DashLine)}) {
        painter.setPen(pen);
        painter.drawRect(QRectF(QPointF(From.x, From.y) / ratio, QPointF(To.x, To.y) / ratio).normalized());
    }
}

}
