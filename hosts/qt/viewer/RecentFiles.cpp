#include "RecentFiles.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace {

constexpr int Most = 9;    // one figure each

const QString FilesKey = QStringLiteral("RecentFiles");

}

RecentFiles::RecentFiles(QMenu* menu, QObject* parent)
    : QObject(parent), List(menu), Files(QSettings().value(FilesKey).toStringList())
{
    Files = Files.mid(0, Most);
    FillMenu();
}

void RecentFiles::Add(const QString& path)
{
    const QString whole = QFileInfo(path).absoluteFilePath();
    Files.removeAll(whole);
    Files.prepend(whole);
    Files = Files.mid(0, Most);
    Keep();
}

void RecentFiles::Remove(const QString& path)
{
    Files.removeAll(path);
    Keep();
}

void RecentFiles::Keep()
{
    QSettings().setValue(FilesKey, Files);
    // Not while the menu's own action is under way.
    QMetaObject::invokeMethod(this, &RecentFiles::FillMenu, Qt::QueuedConnection);
}

void RecentFiles::FillMenu()
{
    List->clear();
    List->setEnabled(!Files.isEmpty());
    for (qsizetype i = 0; i < Files.size(); ++i) {
        const QString path = Files[i];
        QString       shown = QDir::toNativeSeparators(path);
        shown.replace(u'&', QStringLiteral("&&"));
        List->addAction(QStringLiteral("&%1  %2").arg(i + 1).arg(shown), this,
                        [this, path] { Q_EMIT chosen(path); });
    }
    if (Files.isEmpty())
        return;
    List->addSeparator();
    List->addAction(tr("&Clear the list"), this, [this] {
        Files.clear();
        Keep();
    });
}
