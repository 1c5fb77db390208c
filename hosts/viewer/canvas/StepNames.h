#pragma once

#include <QString>

#include <string>

namespace vostel::viewer {

// The name of a step of history in the language of the interface.
QString StepName(const std::string& english);

// The names of the next undo and redo; empty when there is none.
QString UndoName(int canvas);
QString RedoName(int canvas);

}
