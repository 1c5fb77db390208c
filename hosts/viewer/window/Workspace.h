#pragma once

#include <QBasicTimer>
#include <QList>
#include <QPointF>
#include <QWidget>

#include <optional>

class QGridLayout;
class QTabBar;

namespace vostel::viewer {

class CanvasPane;
class CanvasView;
class Document;

// Any number of documents, one of them current: in tabs, or all side by side as tiles.
class Workspace : public QWidget {
    Q_OBJECT

public:
    explicit Workspace(QWidget* parent = nullptr);

    CanvasPane&               Current() const { return *Panes[Index]; }
    int                       CurrentIndex() const { return Index; }
    const QList<CanvasPane*>& All() const { return Panes; }    // at least one, in the order of the tabs

    CanvasPane* PaneBefore() const;    // that was current before this one; null when it is gone

    CanvasPane& AddPane();            // becomes the current one
    CanvasPane& PaneForOpening();     // the current one if it is empty, else a new one
    void        Remove(int index);    // the last one is replaced by an empty one
    void        SetCurrent(int index);

    void SetTiled(bool tiled);
    bool IsTiled() const { return Tiled; }
    void SetRulers(bool shown);
    bool HasRulers() const { return Rulers; }
    // All pan and zoom together, and each shows where the pointer is on another.
    void SetLinked(bool linked);
    bool IsLinked() const { return Linked; }

    // Shows the current document and the one that was current before in turns, in the same place.
    void SetBlinking(bool blinking);
    bool IsBlinking() const { return Blinking.isActive(); }

protected:
    void timerEvent(QTimerEvent* event) override;

Q_SIGNALS:
    void paneAdded(CanvasPane& pane);
    void currentChanged();
    void closeWanted(int index);

private:
    void Arrange();
    void ShowTitles();
    void Link(CanvasPane& pane);
    void ShowCross(const CanvasPane* from, std::optional<QPointF> image);

    QTabBar*           Tabs;
    QGridLayout*       Grid;
    QList<CanvasPane*> Panes;
    int                Index = 0;
    CanvasPane*        Before = nullptr;       // what was current before; may be gone
    bool               ShowsBefore = false;    // of a blink
    QBasicTimer        Blinking;
    bool               Tiled = false;
    bool               Rulers = false;
    bool               Linked = false;
};

}
