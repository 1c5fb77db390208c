#pragma once

#include <QString>

class QApplication;

namespace vostel::viewer {

// What the main function of a program around the viewer's window does first.

bool HasScreen();    // to show windows on, or a platform plugin chosen by the environment

// Names the program for its settings and loads the texts for a language, "zh_CN" or the like; an empty one
// means that of the system.
void PrepareApplication(QApplication& application, const QString& name, const QString& language);

}
