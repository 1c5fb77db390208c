#include "RecentFilesMenu.h"

#include "commands/ViewerSession.h"

#include <QAction>
#include <QDir>
#include <QMenu>

namespace vostel::viewer {

RecentFilesMenu::RecentFilesMenu(QMenu* menu, ViewerSession& session, QObject* parent)
    : QObject(parent), List(menu), Session(session)
{
    Fill();
}

void RecentFilesMenu::Update()
{
    // Not while the menu's own action is under way.
    QMetaObject::invokeMethod(this, &RecentFilesMenu::Fill, Qt::QueuedConnection);
}

void RecentFilesMenu::Fill()
{
    List->clear();
    List->setEnabled(!Session.RecentFiles().empty());
    int number = 0;
    for (const std::wstring& path : Session.RecentFiles()) {
        QString shown = QDir::toNativeSeparators(QString::fromStdWString(path));
        shown.replace(u'&', QStringLiteral("&&"));
        List->addAction(QStringLiteral("&%1  %2").arg(++number).arg(shown), this,
                        [this, path] { Session.OpenFiles({path}); });
    }
    if (Session.RecentFiles().empty())
        return;
    List->addSeparator();
    List->addAction(tr("&Clear the list"), this, [this] { Session.ClearRecentFiles(); });
}

}
