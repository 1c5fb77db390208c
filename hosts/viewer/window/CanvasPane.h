#pragma once

#include "canvas/CanvasView.h"
#include "documents/Document.h"

#include <QFrame>

class QLabel;

namespace vostel::viewer {

class Ruler;
class StackBar;

// A document in the window: its canvas with rulers, and below it the pages of a stack.
class CanvasPane : public QFrame {
    Q_OBJECT

public:
    explicit CanvasPane(QWidget* parent = nullptr);

    Document&   Shown() { return Content; }
    CanvasView& View() { return *Canvas; }

    void SetRulers(bool shown);
    void SetCaption(bool shown);    // the title above the canvas, where panes are tiled
    void SetCurrent(bool current);

Q_SIGNALS:
    void titleChanged();

private:
    void ShowTitle();

    Document    Content;
    CanvasView* Canvas;
    Ruler*      Level;
    Ruler*      Upright;
    QWidget*    Corner;
    QLabel*     Caption;
    StackBar*   Pages;
};

}
