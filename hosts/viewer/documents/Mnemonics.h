#pragma once

#include <QString>

namespace vostel::viewer {

// "&Open..." or "打开(&O)..." as a person says it. Two mnemonic signs stand for one letter.
QString WithoutMnemonic(QString text);
// The same for the title of a dialog: without the dots that announce it, and without a colon.
QString TitleOf(const QString& text);

}
