#pragma once

#include <QSettings>

namespace vostel::widget {

class DialogScope;

// Puts the toolkit's dialogs in the place of the library's three parameter dialogs. Each starts with the last
// answer, which is kept between runs.
void InstallParameterDialogs();

// The library deletes the objects of a canvas before it asks how a raw file lies. This asks now, when the
// file of the scope is a raw one, and keeps the answer for the library; false when the person cancelled. A
// program's own dialog is left to the library.
bool AskRawLayoutBefore(DialogScope& scope);

// Where the answers to one dialog are kept: a file of that name in the program's own settings folder. Folders
// in the name do not count.
QSettings AnswersIn(const QString& file);

}
