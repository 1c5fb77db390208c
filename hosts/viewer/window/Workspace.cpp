#include "window/Workspace.h"

#include "window/CanvasPane.h"

#include <QGridLayout>
#include <QTabBar>
#include <QVBoxLayout>

#include <cmath>

namespace vostel::viewer {

Workspace::Workspace(QWidget* parent) : QWidget(parent), Tabs(new QTabBar), Grid(new QGridLayout)
{
    Tabs->setObjectName(QStringLiteral("Documents"));
    Tabs->setAccessibleName(tr("Open documents"));
    Tabs->setTabsClosable(true);
    Tabs->setMovable(true);
    Tabs->setDocumentMode(true);
    Tabs->setExpanding(false);
    Tabs->setFocusPolicy(Qt::NoFocus);
    Grid->setSpacing(2);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(Tabs);
    rows->addLayout(Grid, 1);
    connect(Tabs, &QTabBar::currentChanged, this, &Workspace::SetCurrent);
    connect(Tabs, &QTabBar::tabCloseRequested, this, &Workspace::closeWanted);
    connect(Tabs, &QTabBar::tabMoved, this, [this](int from, int to) {
        Panes.move(from, to);
        Index = Tabs->currentIndex();
        Arrange();
    });
}

CanvasPane* Workspace::PaneBefore() const
{
    return Panes.contains(Before) && Before != Panes[Index] ? Before : nullptr;
}

CanvasPane& Workspace::AddPane()
{
    auto* const pane = new CanvasPane(this);
    pane->SetRulers(Rulers);
    Panes.append(pane);
    {
        const QSignalBlocker quiet(Tabs);
        Tabs->addTab(pane->Shown().Title());
    }
    connect(pane, &CanvasPane::titleChanged, this, &Workspace::ShowTitles);
    connect(&pane->View(), &CanvasView::activated, this, [this, pane] {
        if (!IsBlinking())    // the focus goes to and fro then
            SetCurrent(int(Panes.indexOf(pane)));
    });
    connect(&pane->View(), &CanvasView::cursorMoved, this,
            [this, pane](QPointF image) { ShowCross(pane, image); });
    connect(&pane->Shown(), &Document::readingChanged, this, [this, pane] {
        if (Linked && !pane->Shown().IsReading())
            Link(*pane);    // a picture that was read apart has another canvas
    });
    connect(&pane->View(), &CanvasView::cursorLeft, this, [this, pane] { ShowCross(pane, std::nullopt); });
    if (Linked)
        Link(*pane);
    Q_EMIT paneAdded(*pane);
    SetCurrent(int(Panes.size()) - 1);
    ShowTitles();
    return *pane;
}

CanvasPane& Workspace::PaneForOpening()
{
    CanvasPane& current = Current();
    const bool  isEmpty = !current.Shown().Model().HasImage() && !current.Shown().IsReading() &&
                         current.View().Open().object_list().empty();
    return isEmpty ? current : AddPane();
}

void Workspace::Remove(int index)
{
    CanvasPane* const pane = Panes.takeAt(index);
    {
        const QSignalBlocker quiet(Tabs);
        Tabs->removeTab(index);
    }
    pane->hide();
    pane->deleteLater();
    if (Panes.isEmpty())
        AddPane();
    else
        SetCurrent(std::min(Index > index ? Index - 1 : Index, int(Panes.size()) - 1));
    Arrange();
}

void Workspace::SetCurrent(int index)
{
    if (index < 0 || index >= Panes.size())
        return;
    if (Index < Panes.size() && index != Index)
        Before = Panes[Index];
    Index = index;
    {
        const QSignalBlocker quiet(Tabs);
        Tabs->setCurrentIndex(index);
    }
    Arrange();
    if (!Current().View().hasFocus())
        Current().View().setFocus();
    Q_EMIT currentChanged();
}

void Workspace::SetTiled(bool tiled)
{
    Tiled = tiled;
    Arrange();
}

void Workspace::SetRulers(bool shown)
{
    Rulers = shown;
    for (CanvasPane* const pane : Panes)
        pane->SetRulers(shown);
}

void Workspace::SetLinked(bool linked)
{
    Linked = linked;
    for (CanvasPane* const pane : Panes)
        Link(*pane);
    ShowCross(nullptr, std::nullopt);
}

void Workspace::Link(CanvasPane& pane)
{
    // With itself a canvas leaves its group; the first one stays for the others to join.
    if (!Linked || &pane != Panes.front())
        pane.View().Model().Try(
            [&](Canvas& canvas) { canvas.view_link(Linked ? Panes.front()->View().Open() : canvas); });
}

void Workspace::ShowCross(const CanvasPane* from, std::optional<QPointF> image)
{
    for (CanvasPane* const pane : Panes)
        pane->View().ShowCross(Linked && pane != from ? image : std::nullopt);
}

void Workspace::SetBlinking(bool blinking)
{
    constexpr int Period = 600;    // ms
    if (blinking)
        Blinking.start(Period, this);
    else
        Blinking.stop();
    ShowsBefore = false;
    SetCurrent(Index);
}

void Workspace::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != Blinking.timerId())
        return QWidget::timerEvent(event);
    ShowsBefore = !ShowsBefore;
    Arrange();
}

void Workspace::Arrange()
{
    const int before = int(Panes.indexOf(Before));
    const int seen = ShowsBefore && before >= 0 ? before : Index;
    const int count = Tiled ? int(Panes.size()) : 1;
    const int columns = int(std::ceil(std::sqrt(double(count))));
    for (CanvasPane* const pane : Panes)
        Grid->removeWidget(pane);
    for (int i = 0; i < Panes.size(); ++i) {
        CanvasPane* const pane = Panes[i];
        const bool        shown = Tiled || i == seen;
        if (shown)
            Grid->addWidget(pane, Tiled ? i / columns : 0, Tiled ? i % columns : 0);
        pane->SetCaption(Tiled && Panes.size() > 1);
        pane->SetCurrent(Tiled && Panes.size() > 1 && i == Index);
        pane->setVisible(shown);
    }
    Tabs->setVisible(Panes.size() > 1);
}

void Workspace::ShowTitles()
{
    for (int i = 0; i < Panes.size(); ++i) {
        Document&     shown = Panes[i]->Shown();
        const QString title = shown.Title() + (shown.IsModified() ? QStringLiteral(" *") : QString());
        QString       safe = title;
        Tabs->setTabText(i, safe.replace(QLatin1Char('&'), QStringLiteral("&&")));
        Tabs->setTabToolTip(i, shown.PicturePath());
        for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide})    // as the style has it
            if (QWidget* const close = Tabs->tabButton(i, side))
                close->setAccessibleName(tr("Close %1").arg(shown.Title()));
    }
}

}
