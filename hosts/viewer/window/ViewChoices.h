#pragma once

namespace vostel::viewer {

class CanvasView;
class Workspace;
enum class Snap;

// What the person chose of how canvases are shown and drawn on. It holds for all documents of the window, for
// those that come later, and for the next start.
namespace ViewChoices {

void SetRulers(Workspace& area, bool on);
void SetLinked(Workspace& area, bool on);
void SetGrid(Workspace& area, bool on);
void SetScaleBar(Workspace& area, bool on);
void SetSnap(Workspace& area, Snap snap);

void Restore(Workspace& area);     // before its first document
void Restore(CanvasView& view);    // of a new document

}

}
