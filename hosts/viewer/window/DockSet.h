#pragma once

#include <QObject>

#include <vector>

class QDockWidget;

namespace vostel::viewer {

class CanvasPanel;
class MainWindow;

// The panels around the canvases, as docks. All show the current document.
class DockSet : public QObject {
    Q_OBJECT

public:
    explicit DockSet(MainWindow& window);

    void AddCommands();       // a switch for each, and the standard layout
    void ShowCurrent();       // after another document has become the current one
    void Detach();            // before the documents go
    void ArrangeAtFirst();    // as in a window that is opened for the first time

    QDockWidget& Of(const char* name) const;

private:
    void        Add(CanvasPanel& panel, const char* name, const QString& title, bool scrolls);
    static bool IsSeen(const QDockWidget& dock);    // not behind another tab

    MainWindow&               Window;
    std::vector<CanvasPanel*> Panels;
    std::vector<QDockWidget*> Docks;    // each of the panel with its index
};

}
