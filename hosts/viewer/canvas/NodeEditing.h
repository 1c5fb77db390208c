#pragma once

#include <vostel.hpp>

namespace vostel::viewer {

class CanvasView;

// Nodes of the selected object near a client point: polygons, splines, polylines and counted marks. False
// when there is nothing to do.
bool InsertNodeAt(CanvasView& view, Point client);
bool RemoveNodeAt(CanvasView& view, Point client);

}
