#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

// The files that were open last, newest first, kept between runs and offered in a menu.
class RecentFiles : public QObject {
    Q_OBJECT

public:
    RecentFiles(QMenu* menu, QObject* parent);

    void        Add(const QString& path);
    void        Remove(const QString& path);
    QStringList Paths() const { return Files; }

Q_SIGNALS:
    void chosen(const QString& path);

private:
    void Keep();
    void FillMenu();

    QMenu*      List;
    QStringList Files;
};
