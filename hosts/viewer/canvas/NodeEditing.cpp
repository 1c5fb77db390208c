#include "canvas/NodeEditing.h"

#include "canvas/CanvasView.h"

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double Reach = 6.0;    // layout px

struct NodeRule {
    VostelKind  Kind;
    std::size_t Least;
    std::size_t Most;
    bool        IsClosed;
};
constexpr NodeRule Rules[] = {{VOSTEL_POLYGON, 3, 100000, true},
                              {VOSTEL_SPLINE, 3, 198, true},
                              {VOSTEL_POLYLINE, 2, 100000, false},
                              {VOSTEL_POINTS, 1, 100000, false}};

const NodeRule* RuleOf(VostelKind kind)
{
    const auto* const found = std::find_if(std::begin(Rules), std::end(Rules),
                                           [&](const NodeRule& rule) { return rule.Kind == kind; });
    return found == std::end(Rules) ? nullptr : found;
}

struct Selected {
    Object             Which;
    const NodeRule*    Rule;
    std::vector<Point> Nodes;     // image px
    std::vector<Point> Client;    // device px
};

std::optional<Selected> SelectedNodes(const CanvasView& view)
{
    const std::optional<Object> object = view.Model().SelectedObject();
    if (!object)
        return std::nullopt;
    const ObjectInfo      info = object->info();
    const NodeRule* const rule = RuleOf(info.kind);
    if (!rule || (info.flags & (VOSTEL_LOCKED | VOSTEL_HIDDEN)) != 0)
        return std::nullopt;
    Selected selected{*object, rule, object->points(), {}};
    for (const Point& node : selected.Nodes)
        selected.Client.push_back(view.Open().view_to_client(node));
    return selected;
}

double FarFromSegment(Point p, Point a, Point b)
{
    const double x = b.x - a.x, y = b.y - a.y;
    const double square = x * x + y * y;
    const double along =
        square > 0.0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - a.x - along * x, p.y - a.y - along * y);
}

}

bool InsertNodeAt(CanvasView& view, Point client)
{
    std::optional<Selected> selected = SelectedNodes(view);
    if (!selected || selected->Rule->Kind == VOSTEL_POINTS || selected->Nodes.size() >= selected->Rule->Most)
        return false;
    const std::vector<Point>& nodes = selected->Client;
    const std::size_t         segments = nodes.size() - (selected->Rule->IsClosed ? 0 : 1);
    std::size_t               nearest = 0;
    double                    distance = INFINITY;
    for (std::size_t i = 0; i < segments; ++i) {
        const double far = FarFromSegment(client, nodes[i], nodes[(i + 1) % nodes.size()]);
        if (far < distance) {
            distance = far;
            nearest = i;
        }
    }
    // A spline bends away from the line between its nodes: the press has to be on the object instead.
    const bool isNear = selected->Rule->Kind == VOSTEL_SPLINE
                            ? view.Open().object_at(client) == selected->Which
                            : distance <= Reach * view.devicePixelRatioF();
    if (!isNear)
        return false;
    selected->Nodes.insert(selected->Nodes.begin() + static_cast<std::ptrdiff_t>(nearest) + 1,
                           view.Open().view_to_image(client));
    return view.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("Add node");
        canvas.object_set_points(selected->Which, selected->Nodes);
    });
}

bool RemoveNodeAt(CanvasView& view, Point client)
{
    std::optional<Selected> selected = SelectedNodes(view);
    if (!selected || selected->Nodes.size() <= selected->Rule->Least)
        return false;
    const auto far = [&](const Point& node) { return std::hypot(node.x - client.x, node.y - client.y); };
    const auto nearest = std::min_element(selected->Client.begin(), selected->Client.end(),
                                          [&](const Point& a, const Point& b) { return far(a) < far(b); });
    if (far(*nearest) > Reach * view.devicePixelRatioF())
        return false;
    selected->Nodes.erase(selected->Nodes.begin() + (nearest - selected->Client.begin()));
    return view.Model().Try([&](Canvas& canvas) {
        const Step one = canvas.step("Remove node");
        canvas.object_set_points(selected->Which, selected->Nodes);
    });
}

}
