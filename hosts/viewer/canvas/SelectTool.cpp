#include "canvas/SelectTool.h"

#include "canvas/CanvasView.h"
#include "canvas/NodeEditing.h"
#include "canvas/TextTool.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double Slack = 3.0;    // layout px that a click may shake

bool LiesOnImage(VostelKind kind)
{
    return kind != VOSTEL_PANEL && kind != VOSTEL_NEIGHBOURS;
}

}

bool SelectTool::IsOnHandle(const Pointer& at) const
{
    const std::optional<Object> selected = View.Model().SelectedObject();
    if (!selected || (selected->flags() & (VOSTEL_LOCKED | VOSTEL_HIDDEN)) != 0)
        return false;
    const double reach = 5.0 * View.devicePixelRatioF();
    for (const Point& node : selected->points()) {
        const Point client = View.Open().view_to_client(node);
        if (std::hypot(client.x - at.Client.x, client.y - at.Client.y) <= reach)
            return true;
    }
    return false;
}

void SelectTool::Toggle(const Object& object)
{
    std::vector<Object> selected = View.Open().selection();
    const auto          found = std::find(selected.begin(), selected.end(), object);
    if (found == selected.end())
        selected.push_back(object);
    else
        selected.erase(found);
    View.Open().select(selected);
}

void SelectTool::Press(const Pointer& at)
{
    Canvas& canvas = View.Open();
    From = Last = at.Client;
    FromImage = at.Image;
    WasMoved = false;
    const std::optional<Object> under = canvas.object_at(at.Client);
    if (at.Modifiers.testFlag(Qt::AltModifier) && RemoveNodeAt(View, at.Client))
        return;
    if (at.Modifiers.testFlag(Qt::ShiftModifier)) {
        if (under)
            Toggle(*under);
        else
            Doing = Drag::Box;
        return;
    }
    if (under && under->selected() && canvas.selection().size() > 1)
        return BeginGroup(at);
    if (!under && !IsOnHandle(at)) {
        Doing = Drag::Pan;
        return;
    }
    Doing = Drag::Gesture;
    if (View.Snapped() != Snap::None) {
        canvas.history_begin("Move object");
        InStep = true;
    }
    canvas.event_move(at.Client);
    canvas.event_press(at.Client);
}

void SelectTool::BeginGroup(const Pointer&)
{
    Doing = Drag::Group;
    Group.clear();
    for (const Object& object : View.Open().selection()) {
        const ObjectInfo info = object.info();
        if ((info.flags & VOSTEL_LOCKED) == 0 && LiesOnImage(info.kind))
            Group.push_back({object, object.points()});
    }
    View.Open().history_begin("Move objects");
    InStep = true;
}

void SelectTool::MoveGroup(const Pointer& at)
{
    View.Model().Try([&](Canvas& canvas) {
        for (const Moved& moved : Group) {
            std::vector<Point> points = moved.Points;
            for (Point& point : points)
                point = {point.x + at.Image.x - FromImage.x, point.y + at.Image.y - FromImage.y};
            canvas.object_set_points(moved.Which, points);
        }
    });
}

void SelectTool::Move(const Pointer& at)
{
    const double shaken = Slack * View.devicePixelRatioF();
    if (std::hypot(at.Client.x - From.x, at.Client.y - From.y) > shaken)
        WasMoved = true;
    switch (Doing) {
    case Drag::Pan:
        if (WasMoved) {
            View.Pan(QPointF(at.Client.x - Last.x, at.Client.y - Last.y) / View.devicePixelRatioF());
            Last = at.Client;
        }
        break;
    case Drag::Box:
        Last = at.Client;
        View.update();
        break;
    case Drag::Group:
        if (WasMoved)
            MoveGroup(at);
        break;
    case Drag::Gesture:
        View.Open().event_move(at.Client, VOSTEL_LEFT_BUTTON);
        break;
    case Drag::None:
        View.Open().event_move(at.Client);    // read-outs follow the pointer
        break;
    }
}

void SelectTool::Release(const Pointer& at)
{
    const Drag did = std::exchange(Doing, Drag::None);
    Canvas&    canvas = View.Open();
    if (did == Drag::Gesture) {
        canvas.event_release(at.Client);
        if (View.Snapped() != Snap::None && WasMoved)
            View.SnapSelection();
    }
    if (std::exchange(InStep, false))
        canvas.history_end();
    if (did == Drag::Pan && !WasMoved)
        canvas.select({});
    if (did == Drag::Box)
        SelectBox();
    if (did == Drag::Group && !WasMoved) {
        if (const std::optional<Object> under = canvas.object_at(at.Client))
            canvas.select({*under});
    }
    View.update();
}

void SelectTool::SelectBox()
{
    const Point         a = View.Open().view_to_image(From), b = View.Open().view_to_image(Last);
    const double        left = std::min(a.x, b.x), right = std::max(a.x, b.x);
    const double        top = std::min(a.y, b.y), bottom = std::max(a.y, b.y);
    std::vector<Object> chosen = View.Open().selection();
    for (const Object& object : View.Open().object_list()) {
        const ObjectInfo info = object.info();
        const bool       inside = info.left >= left && info.right <= right && info.top >= top &&
                            info.bottom <= bottom && LiesOnImage(info.kind);
        if (inside && info.selected == 0 && (info.flags & (VOSTEL_HIDDEN | VOSTEL_LOCKED)) == 0)
            chosen.push_back(object);
    }
    View.Open().select(chosen);
}

void SelectTool::DoubleClick(const Pointer& at)
{
    const std::optional<Object> under = View.Open().object_at(at.Client);
    if (under && under->kind() == VOSTEL_TEXT)
        EditText(View, *under);
    else if (!InsertNodeAt(View, at.Client))
        Press(at);
}

// What a gesture has moved returns to where it was.
void SelectTool::Cancel()
{
    const Drag did = std::exchange(Doing, Drag::None);
    Canvas&    canvas = View.Open();
    if (did == Drag::Gesture)
        canvas.event_release(Last);
    if (did == Drag::Group)
        MoveGroup({From, FromImage, true, {}});
    if (std::exchange(InStep, false))
        canvas.history_end();
    View.update();
}

QString SelectTool::Hint() const
{
    if (Doing == Drag::Box)
        return tr("Release to select what lies in the box");
    if (View.Open().selection().empty())
        return tr("Drag moves the image, the wheel zooms, a click selects, Shift and a drag select by a box");
    return tr(
        "Drag or the arrow keys move, a double click on the outline adds a node, Alt+click takes one away, "
        "Delete removes");
}

QCursor SelectTool::Cursor(const Pointer& at) const
{
    if (Doing == Drag::Pan)
        return Qt::ClosedHandCursor;
    if (Doing == Drag::Box)
        return Qt::CrossCursor;
    if (Doing == Drag::Group || Doing == Drag::Gesture)
        return Qt::SizeAllCursor;
    return View.Open().object_at(at.Client) ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

void SelectTool::Paint(QPainter& painter) const
{
    if (Doing != Drag::Box)
        return;
    const double ratio = View.devicePixelRatioF();
    painter.setPen(QPen(View.palette().color(QPalette::Highlight), 1.0, Qt::DashLine));
    QColor inside = View.palette().color(QPalette::Highlight);
    inside.setAlpha(40);
    painter.setBrush(inside);
    painter.drawRect(QRectF(QPointF(From.x, From.y) / ratio, QPointF(Last.x, Last.y) / ratio).normalized());
}

}
