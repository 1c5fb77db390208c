#pragma once

#include <QString>
#include <QStringList>

namespace vostel::widget {

// The filter of a file request, "text (*.x)|*.x;*.y|(*.z)|*.z|all|*.*||", as the toolkit's file dialog wants
// it: "text (*.x *.y)", "Z (*.z)", "all (*)".
QStringList NameFilters(const QString& filter);

}
