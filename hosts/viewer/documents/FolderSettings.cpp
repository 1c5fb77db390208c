#include "documents/FolderSettings.h"

#include <QFileInfo>
#include <QSettings>
#include <QVariantList>

namespace vostel::viewer {

namespace {

constexpr qsizetype MostFolders = 100;
const QString       FolderMember = QStringLiteral("Folder");

QString KeyOf(const QString& purpose)
{
    return QStringLiteral("Folders/") + purpose;
}

QVariantList WithoutFolder(const QString& purpose, const QString& folder)
{
    QVariantList others = QSettings().value(KeyOf(purpose)).toList();
    others.removeIf([&](const QVariant& one) { return one.toMap().value(FolderMember) == folder; });
    return others;
}

}

QVariantMap FolderSettings::Of(const QString& purpose, const QString& folder)
{
    for (const QVariant& one : QSettings().value(KeyOf(purpose)).toList())
        if (one.toMap().value(FolderMember) == folder)
            return one.toMap();
    return {};
}

void FolderSettings::Keep(const QString& purpose, const QString& folder, const QVariantMap& values)
{
    QVariantList all = WithoutFolder(purpose, folder);
    QVariantMap  kept = values;
    kept.insert(FolderMember, folder);
    all.prepend(kept);
    all.resize(qMin(all.size(), MostFolders));
    QSettings().setValue(KeyOf(purpose), all);
}

void FolderSettings::Forget(const QString& purpose, const QString& folder)
{
    QSettings().setValue(KeyOf(purpose), WithoutFolder(purpose, folder));
}

QString FolderOf(const QString& file)
{
    return QFileInfo(file).absolutePath();
}

}
