#include "documents/RecentPaths.h"

#include <QSettings>

namespace vostel::viewer {

namespace {

constexpr qsizetype MostRecent = 12;
const QString       FilesKey = QStringLiteral("RecentFiles");
const QString       SessionsKey = QStringLiteral("RecentSessions");

QStringList ListOf(const QString& key)
{
    return QSettings().value(key).toStringList();
}

void AddTo(const QString& key, const QString& path)
{
    QStringList list = ListOf(key);
    list.removeAll(path);
    list.prepend(path);
    QSettings().setValue(key, QStringList(list.mid(0, MostRecent)));
}

}

QStringList RecentPaths::Files()
{
    return ListOf(FilesKey);
}

QStringList RecentPaths::Sessions()
{
    return ListOf(SessionsKey);
}

void RecentPaths::AddFile(const QString& path)
{
    AddTo(FilesKey, path);
}

void RecentPaths::AddSession(const QString& path)
{
    AddTo(SessionsKey, path);
}

void RecentPaths::Remove(const QString& path)
{
    for (const QString& key : {FilesKey, SessionsKey}) {
        QStringList list = ListOf(key);
        list.removeAll(path);
        QSettings().setValue(key, list);
    }
}

void RecentPaths::Clear()
{
    QSettings().remove(FilesKey);
    QSettings().remove(SessionsKey);
}

}
