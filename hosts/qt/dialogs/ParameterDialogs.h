#pragma once

#include <QSettings>

// Puts the toolkit's dialogs in the place of the library's three parameter dialogs. Each starts with the last
// answer, which is kept between runs.
void InstallParameterDialogs();

// Where the answers to one dialog are kept: a file of that name in the program's own settings folder. Folders
// in the name do not count.
QSettings AnswersIn(const QString& file);
