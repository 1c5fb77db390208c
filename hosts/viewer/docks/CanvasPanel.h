#pragma once

#include "canvas/CanvasModel.h"
#include "documents/Outcome.h"

#include <QElapsedTimer>
#include <QWidget>

namespace vostel::viewer {

// A panel that shows something of one canvas, or that there is none. What happens on the canvas is gathered
// until the event loop turns, and a panel that takes long rests between, so that a gesture goes on smoothly.
class CanvasPanel : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void         SetCanvas(CanvasModel* canvas);    // null: none
    CanvasModel* Shown() const { return Model; }

Q_SIGNALS:
    void reported(const Outcome& outcome);    // to be told the user, such as of a file that was written

protected:
    // Hears of another canvas, which may be null; Refresh() follows.
    virtual void Attach(CanvasModel* canvas) = 0;
    virtual void Refresh() = 0;

    void Later();    // Refresh(), once, or when the panel is shown again

    void showEvent(QShowEvent* event) override;

private:
    void RefreshNow();

    CanvasModel*  Model = nullptr;    // borrowed
    QElapsedTimer SinceRefresh;
    qint64        Cost = 0;    // ms that the last refresh took
    bool          Waiting = false;
    bool          Stale = false;
};

}
