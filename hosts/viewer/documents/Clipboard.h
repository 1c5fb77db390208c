#pragma once

#include "documents/Outcome.h"

namespace vostel::viewer {

class CanvasModel;
class Document;

// Objects and pictures between canvases and programs. Objects leave as what the viewer reads again, as an SVG
// drawing, as a table of their measures and as a picture; each change is one step of history.
namespace Clipboard {

enum class Content { Nothing, Objects, Picture, Files };
Content Held();

Outcome Copy(CanvasModel& model);     // the selected objects; without any, the picture as it is shown
Outcome Cut(CanvasModel& model);      // the selected objects
Outcome Paste(Document& document);    // objects on top, beside their originals; a picture or a file in the
                                      // place of what is shown, as opening does
Outcome Duplicate(CanvasModel& model);    // the selected objects, without the clipboard

}

}
