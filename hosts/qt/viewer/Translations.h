#pragma once

#include <QString>

class QApplication;

namespace vostel::viewer {

// Loads the interface texts for the language of the system, or the one named ("zh_CN"); English where there
// are none. The toolkit's own texts come from its installation, when they are there.
void LoadTranslations(QApplication& application, const QString& language);

// A text of the command table.
QString CommandText(const char* english);

}
