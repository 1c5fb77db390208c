#pragma once

#include <QStringList>

namespace vostel::viewer {

// Files and folders that were opened and sessions that were opened or saved, the last one first.
namespace RecentPaths {

QStringList Files();
QStringList Sessions();
void        AddFile(const QString& path);
void        AddSession(const QString& path);
void        Remove(const QString& path);    // from both, of what is gone
void        Clear();

}

}
