#pragma once

#include <QString>
#include <QVariantMap>

namespace vostel::viewer {

// What is remembered for the files of a folder, one map for each purpose. The folders used last are kept.
namespace FolderSettings {

QVariantMap Of(const QString& purpose, const QString& folder);    // empty if nothing is
void        Keep(const QString& purpose, const QString& folder, const QVariantMap& values);
void        Forget(const QString& purpose, const QString& folder);

}

// The folder of a file, absolute.
QString FolderOf(const QString& file);

}
