#include "docks/CanvasPanel.h"

#include <QTimer>

#include <algorithm>

namespace vostel::viewer {

void CanvasPanel::SetCanvas(CanvasModel* canvas)
{
    if (Model == canvas)
        return;
    if (Model)
        disconnect(Model, nullptr, this, nullptr);
    Model = canvas;
    if (Model)
        connect(Model, &QObject::destroyed, this, [this] {
            Model = nullptr;
            Attach(nullptr);
            RefreshNow();
        });
    Attach(Model);
    RefreshNow();
}

void CanvasPanel::Later()
{
    if (Waiting)
        return;
    if (!isVisible()) {
        Stale = true;
        return;
    }
    Waiting = true;
    constexpr qint64 Frame = 8,
                     Share = 4;    // ms of a frame that a panel may take, and rest after a longer one
    const qint64 rest = Cost <= Frame ? 0 : std::max<qint64>(0, Share * Cost - SinceRefresh.elapsed());
    QTimer::singleShot(static_cast<int>(rest), Qt::PreciseTimer, this, [this] {
        if (Waiting)
            RefreshNow();
    });
}

void CanvasPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (Stale)
        RefreshNow();
}

void CanvasPanel::RefreshNow()
{
    Waiting = Stale = false;
    SinceRefresh.start();
    Refresh();
    Cost = SinceRefresh.restart();
}

}
