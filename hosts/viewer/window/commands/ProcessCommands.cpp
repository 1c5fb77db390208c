#include "canvas/CanvasView.h"
#include "documents/Document.h"
#include "process/BatchDialog.h"
#include "process/Routine.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/Processing.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr CommandText Labels = {
    "process.labels", QT_TRANSLATE_NOOP("Commands", "Image of re&gions"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "An image whose values are the labels of the regions, 0 outside")};
constexpr CommandText Batch = {
    "process.batch", QT_TRANSLATE_NOOP("Commands", "&Batch over a folder..."), "Ctrl+Shift+B",
    QT_TRANSLATE_NOOP("Commands", "Runs routines and measures on every picture of a folder")};
constexpr CommandText Stop = {"process.stop", QT_TRANSLATE_NOOP("Commands", "S&top"), "Ctrl+.",
                              QT_TRANSLATE_NOOP("Commands", "Ends the routine that is running")};

void ShowLabels(MainWindow& window)
{
    const ImageOf<std::int32_t> labels = window.View().Open().labels();
    if (std::all_of(labels.values.begin(), labels.values.end(),
                    [](std::int32_t label) { return label == 0; }))
        return window.Report(Failed(CommandList::tr("No region is drawn.")));
    const std::vector<float> values(labels.values.begin(), labels.values.end());
    const QString            title = CommandList::tr("%1, regions").arg(window.Shown().Title());
    CanvasPane&              pane = window.Area().AddPane();
    pane.Shown().Model().Try(
        [&](Canvas& canvas) { canvas.image_show(VOSTEL_F32, values.data(), labels.width, labels.height); });
    pane.Shown().Name(title);
    pane.View().Fit();
}

// There is one; it stays beside the window while it works.
void ShowBatch(MainWindow& window)
{
    auto* dialog = window.findChild<BatchDialog*>();
    if (!dialog)
        dialog = new BatchDialog(&window);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

}

void AddProcessCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    Processing&  runs = window.Runs();
    const auto   isFree = [&window, &runs] { return window.View().Model().HasImage() && !runs.IsRunning(); };
    for (const Routine& routine : AllRoutines())
        commands.Add(
            Menu::Process, {routine.Id, routine.Title, nullptr, routine.Tip, "Routines"},
            [&runs, &routine] { runs.Ask(routine); }, isFree);
    commands.Add(
        Menu::Process, Labels, [&window] { ShowLabels(window); }, isFree);
    commands.Add(Menu::Process, Batch, [&window] { ShowBatch(window); });
    commands.AddSeparator(Menu::Process);
    QAction& stop = commands.Add(
        Menu::Process, Stop, [&runs] { runs.Stop(); }, [&runs] { return runs.IsRunning(); });
    // Esc too, from anywhere but the canvas, which asks itself whether something runs.
    stop.setShortcuts({stop.shortcut(), QKeySequence(Qt::Key_Escape)});
    QObject::connect(&runs, &Processing::runningChanged, &commands, &CommandList::Update);
}

}
