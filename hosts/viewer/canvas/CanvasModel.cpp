#include "canvas/CanvasModel.h"

namespace vostel::viewer {

CanvasModel::CanvasModel(QObject* parent) : QObject(parent) {}

std::optional<VostelPlane> CanvasModel::Image() const
{
    VostelPlane plane = {};
    plane.size = sizeof plane;
    if (vostel_image_plane(Own.number(), &plane) != VOSTEL_OK)
        return std::nullopt;
    return plane;
}

std::optional<Object> CanvasModel::SelectedObject() const
{
    const std::vector<Object> selected = Own.selection();
    return selected.size() == 1 ? std::optional(selected.front()) : std::nullopt;
}

void CanvasModel::Adopt(Canvas&& made)
{
    Events.end();
    Canvas before = std::move(made);
    std::swap(Own, before);
    Events = Listen();
    Q_EMIT imageChanged();
    Q_EMIT selectionChanged();
    Q_EMIT viewChanged();
    Q_EMIT contrastChanged();
    Q_EMIT historyChanged();
    Q_EMIT frameStale();
}

Subscription CanvasModel::Listen()
{
    return Own.listen(AllEvents, [this](const Event& event) { Hear(event); });
}

void CanvasModel::Hear(const Event& event)
{
    switch (event.type) {
    case VOSTEL_OBJECT_ADDED:
        Q_EMIT objectAdded(event.object);
        break;
    case VOSTEL_OBJECT_CHANGING:
        Q_EMIT objectChanging(event.object);
        break;
    case VOSTEL_OBJECT_CHANGED:
        Q_EMIT objectChanged(event.object);
        break;
    case VOSTEL_OBJECT_REMOVED:
        Q_EMIT objectRemoved(event.object);
        break;
    case VOSTEL_SELECTION_CHANGED:
        Q_EMIT selectionChanged();
        break;
    case VOSTEL_VIEW_CHANGED:
        Q_EMIT viewChanged();
        break;
    case VOSTEL_IMAGE_CHANGED:
        Q_EMIT imageChanged();
        break;
    case VOSTEL_CONTRAST_CHANGED:
        Q_EMIT contrastChanged();
        break;
    case VOSTEL_HISTORY_CHANGED:
        Q_EMIT historyChanged();
        break;
    case VOSTEL_FRAME_STALE:
        Q_EMIT frameStale();
        break;
    default:
        break;
    }
}

}
