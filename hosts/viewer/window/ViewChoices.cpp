#include "window/ViewChoices.h"

#include "canvas/CanvasView.h"
#include "window/CanvasPane.h"
#include "window/Workspace.h"

#include <QSettings>

#include <algorithm>

namespace vostel::viewer {

namespace {

const QString RulersKey = QStringLiteral("View/Rulers");
const QString LinkedKey = QStringLiteral("View/Linked");
const QString GridKey = QStringLiteral("View/Grid");
const QString ScaleBarKey = QStringLiteral("View/ScaleBar");
const QString SnapKey = QStringLiteral("Draw/Snap");

bool IsKept(const QString& key)
{
    return QSettings().value(key, false).toBool();
}

Snap KeptSnap()
{
    const int kept = QSettings().value(SnapKey, 0).toInt();
    return static_cast<Snap>(std::clamp(kept, 0, static_cast<int>(Snap::PixelEdges)));
}

}

void ViewChoices::SetRulers(Workspace& area, bool on)
{
    QSettings().setValue(RulersKey, on);
    area.SetRulers(on);
}

void ViewChoices::SetLinked(Workspace& area, bool on)
{
    QSettings().setValue(LinkedKey, on);
    area.SetLinked(on);
}

void ViewChoices::SetGrid(Workspace& area, bool on)
{
    QSettings().setValue(GridKey, on);
    for (CanvasPane* const pane : area.All())
        pane->View().SetGrid(on);
}

void ViewChoices::SetScaleBar(Workspace& area, bool on)
{
    QSettings().setValue(ScaleBarKey, on);
    for (CanvasPane* const pane : area.All())
        pane->View().SetScaleBar(on);
}

void ViewChoices::SetSnap(Workspace& area, Snap snap)
{
    QSettings().setValue(SnapKey, static_cast<int>(snap));
    for (CanvasPane* const pane : area.All())
        pane->View().SetSnap(snap);
}

void ViewChoices::Restore(Workspace& area)
{
    area.SetRulers(IsKept(RulersKey));
    area.SetLinked(IsKept(LinkedKey));
}

void ViewChoices::Restore(CanvasView& view)
{
    view.SetGrid(IsKept(GridKey));
    view.SetScaleBar(IsKept(ScaleBarKey));
    view.SetSnap(KeptSnap());
}

}
