#include "window/DockSet.h"

#include "canvas/CanvasView.h"
#include "docks/HistogramPanel.h"
#include "docks/HistoryPanel.h"
#include "docks/MeasuresPanel.h"
#include "docks/ObjectsPanel.h"
#include "docks/OverviewPanel.h"
#include "docks/ProfilePanel.h"
#include "documents/Mnemonics.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"

#include <QDockWidget>
#include <QScrollArea>

#include <algorithm>
#include <array>

namespace vostel::viewer {

namespace {

struct DockText {
    const char* Name;    // the layout is kept by it
    CommandText Command;
};

constexpr std::array<DockText, 6> Texts = {{
    {"Histogram",
     {"dock.histogram", QT_TRANSLATE_NOOP("Commands", "&Histogram"), "F6",
      QT_TRANSLATE_NOOP("Commands", "Values of the image or the selected region, and the contrast")}},
    {"Objects",
     {"dock.objects", QT_TRANSLATE_NOOP("Commands", "&Objects"), "F7",
      QT_TRANSLATE_NOOP("Commands", "The list of the objects with their names, colors and order")}},
    {"Measures",
     {"dock.measures", QT_TRANSLATE_NOOP("Commands", "&Measures"), "F8",
      QT_TRANSLATE_NOOP("Commands", "The table of all measures")}},
    {"Profile",
     {"dock.profile", QT_TRANSLATE_NOOP("Commands", "&Profile"), "F9",
      QT_TRANSLATE_NOOP("Commands", "The values along the selected line")}},
    {"History",
     {"dock.history", QT_TRANSLATE_NOOP("Commands", "H&istory"), "F10",
      QT_TRANSLATE_NOOP("Commands", "The steps that can be undone and redone")}},
    {"Overview",
     {"dock.overview", QT_TRANSLATE_NOOP("Commands", "O&verview"), "F12",
      QT_TRANSLATE_NOOP("Commands", "The whole image, small, with the part that is shown")}},
}};

constexpr CommandText Standard = {"dock.standard", QT_TRANSLATE_NOOP("Commands", "&Standard layout"), nullptr,
                                  QT_TRANSLATE_NOOP("Commands", "Puts the panels where they were at first")};

constexpr std::size_t ManyControls = 2;    // the first panels

constexpr int RightWidth = 320, MeasuresHeight = 200;    // layout px

// For a panel of many controls: a small dock hides none for good, and what takes the keys is scrolled to.
QWidget* InScrollArea(QWidget& panel, const QString& title)
{
    auto* const area = new QScrollArea;
    area->setAccessibleName(title);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(&panel);
    return area;
}

}

DockSet::DockSet(MainWindow& window) : QObject(&window), Window(window)
{
    auto* const                                  profile = new ProfilePanel;
    const std::array<CanvasPanel*, Texts.size()> panels = {new HistogramPanel, new ObjectsPanel,
                                                           new MeasuresPanel,  profile,
                                                           new HistoryPanel,   new OverviewPanel};
    for (std::size_t i = 0; i < Texts.size(); ++i)
        Add(*panels[i], Texts[i].Name, TitleOf(CommandList::Translated(Texts[i].Command.Text)),
            i < ManyControls);
    connect(profile, &ProfilePanel::pointed, this,
            [this](std::optional<QPointF> image) { Window.View().ShowCross(image); });
    ArrangeAtFirst();
}

void DockSet::Add(CanvasPanel& panel, const char* name, const QString& title, bool scrolls)
{
    auto* const dock = new QDockWidget(title, &Window);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(scrolls ? InScrollArea(panel, title) : &panel);
    panel.setAccessibleName(title);
    connect(&panel, &CanvasPanel::reported, this, [this](const Outcome& outcome) { Window.Report(outcome); });
    connect(
        dock, &QDockWidget::visibilityChanged, this, [this] { Window.Commands().Update(); },
        Qt::QueuedConnection);
    Panels.push_back(&panel);
    Docks.push_back(dock);
}

void DockSet::AddCommands()
{
    CommandList& commands = Window.Commands();
    commands.BeginSubmenu(Menu::View, QT_TRANSLATE_NOOP("Commands", "&Panels"));
    for (std::size_t i = 0; i < Texts.size(); ++i) {
        QDockWidget& dock = *Docks[i];
        commands.AddSwitch(
            Menu::View, Texts[i].Command,
            [&dock](bool) {
                const bool show = !IsSeen(dock);
                dock.setVisible(show);
                if (show)    // to the front, once it has its place
                    QMetaObject::invokeMethod(&dock, &QDockWidget::raise, Qt::QueuedConnection);
            },
            [&dock] { return IsSeen(dock); });
    }
    commands.AddSeparator(Menu::View);
    commands.Add(Menu::View, Standard, [this] { ArrangeAtFirst(); });
    commands.EndSubmenu();
}

bool DockSet::IsSeen(const QDockWidget& dock)
{
    return dock.isVisible() && !dock.visibleRegion().isEmpty();
}

void DockSet::ShowCurrent()
{
    for (CanvasPanel* const panel : Panels)
        panel->SetCanvas(&Window.View().Model());
}

void DockSet::Detach()
{
    for (CanvasPanel* const panel : Panels)
        panel->SetCanvas(nullptr);
}

void DockSet::ArrangeAtFirst()
{
    QDockWidget &histogram = Of("Histogram"), &objects = Of("Objects"), &measures = Of("Measures");
    for (QDockWidget* const dock : Docks)
        dock->setFloating(false);
    Window.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    Window.addDockWidget(Qt::RightDockWidgetArea, &histogram);
    Window.addDockWidget(Qt::RightDockWidgetArea, &objects);
    Window.addDockWidget(Qt::BottomDockWidgetArea, &measures);
    Window.tabifyDockWidget(&measures, &Of("Profile"));
    Window.tabifyDockWidget(&objects, &Of("History"));
    Window.tabifyDockWidget(&objects, &Of("Overview"));
    for (QDockWidget* const dock : Docks)
        dock->show();
    measures.raise();
    objects.raise();
    Window.resizeDocks({&histogram, &objects}, {3, 2}, Qt::Vertical);
    Window.resizeDocks({&measures}, {MeasuresHeight}, Qt::Vertical);
    Window.resizeDocks({&histogram}, {RightWidth}, Qt::Horizontal);
}

QDockWidget& DockSet::Of(const char* name) const
{
    return **std::find_if(Docks.begin(), Docks.end(), [name](const QDockWidget* dock) {
        return dock->objectName() == QLatin1String(name);
    });
}

}
