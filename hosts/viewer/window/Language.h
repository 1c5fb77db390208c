#pragma once

#include <QString>

namespace vostel::viewer {

// The language that the person chose, "en" or "zh_CN"; empty for that of the system. It holds from the start
// of the program.
QString KeptLanguage();
void    KeepLanguage(const QString& language);

}
