#pragma once

#include <QObject>

class QMenu;

namespace vostel::viewer {

class ViewerSession;

// The submenu of the files that were open last.
class RecentFilesMenu : public QObject {
    Q_OBJECT

public:
    RecentFilesMenu(QMenu* menu, ViewerSession& session, QObject* parent);

    void Update();    // after the list changed

private:
    void Fill();

    QMenu*         List;
    ViewerSession& Session;
};

}
