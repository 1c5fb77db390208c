#include "docks/OverviewPanel.h"

#include "docks/OverviewMap.h"

#include <QVBoxLayout>

namespace vostel::viewer {

OverviewPanel::OverviewPanel(QWidget* parent) : CanvasPanel(parent), Map(new OverviewMap)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(Map);
    Map->setObjectName(QStringLiteral("overview"));
    Map->setAccessibleName(tr("Overview: the arrow keys move the visible part"));
}

void OverviewPanel::Attach(CanvasModel* canvas)
{
    Map->SetCanvas(canvas);
    PictureStale = true;
    if (!canvas)
        return;
    const auto draw = [this] {
        PictureStale = true;
        Later();
    };
    connect(canvas, &CanvasModel::imageChanged, this, draw);
    connect(canvas, &CanvasModel::contrastChanged, this, draw);
    connect(canvas, &CanvasModel::viewChanged, this, [this] { Map->update(); });
    connect(canvas, &CanvasModel::frameStale, this, [this] { Map->update(); });    // also of another size
}

void OverviewPanel::Refresh()
{
    if (PictureStale)
        Map->DrawPicture();
    PictureStale = false;
}

void OverviewPanel::resizeEvent(QResizeEvent* event)
{
    CanvasPanel::resizeEvent(event);
    PictureStale = true;
    Later();
}

void OverviewPanel::changeEvent(QEvent* event)
{
    CanvasPanel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Map->update();
}

}
