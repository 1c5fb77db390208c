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

#include <QInputDialog>

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr CommandText Labels = {
    "process.labels", QT_TRANSLATE_NOOP("Commands", "Image of re&gions"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "An image whose values are the labels of the regions, 0 outside")};
constexpr CommandText Join = {
    "process.join", QT_TRANSLATE_NOOP("Commands", "&Join with the document before..."), nullptr,
    QT_TRANSLATE_NOOP("Commands",
                      "Puts this picture to the right of the one before, with what both show once")};
constexpr CommandText Batch = {
    "process.batch", QT_TRANSLATE_NOOP("Commands", "&Batch over a folder..."), "Ctrl+Shift+B",
    QT_TRANSLATE_NOOP("Commands", "Runs routines and measures on every picture of a folder")};
constexpr CommandText Stop = {"process.stop", QT_TRANSLATE_NOOP("Commands", "S&top"), "Ctrl+.",
                              QT_TRANSLATE_NOOP("Commands", "Ends the routine that is running")};

// In a document of its own.
void ShowMade(MainWindow& window, const std::vector<float>& values, int width, int height,
              const QString& title)
{
    CanvasPane& pane = window.Area().AddPane();
    pane.Shown().Model().Try(
        [&](Canvas& canvas) { canvas.image_show(VOSTEL_F32, values.data(), width, height); });
    pane.Shown().Name(title);
    pane.View().Fit();
}

void ShowLabels(MainWindow& window)
{
    const ImageOf<std::int32_t> labels = window.View().Open().labels();
    if (std::all_of(labels.values.begin(), labels.values.end(),
                    [](std::int32_t label) { return label == 0; }))
        return window.Report(Failed(CommandList::tr("No region is drawn.")));
    const std::vector<float> values(labels.values.begin(), labels.values.end());
    ShowMade(window, values, labels.width, labels.height,
             CommandList::tr("%1, regions").arg(window.Shown().Title()));
}

// The gray of colors, and the values where both overlap faded into each other.
void AskJoin(MainWindow& window)
{
    CanvasPane* const before = window.Area().PaneBefore();
    if (!before || !before->Shown().Model().HasImage())
        return;
    const ImageOf<float> left = before->View().Open().image_copy<float>();
    const ImageOf<float> right = window.View().Open().image_copy<float>();
    if (left.height != right.height)
        return window.Report(Failed(CommandList::tr("The two pictures have different heights: %1 and %2.")
                                        .arg(left.height)
                                        .arg(right.height)));
    bool      confirmed = false;
    const int overlap =
        QInputDialog::getInt(&window, CommandList::tr("Join"),
                             CommandList::tr("Columns that both pictures show, 0 or at least 2:"), 0, 0,
                             std::min(left.width, right.width), 1, &confirmed);
    if (!confirmed)
        return;
    const QString  title = CommandList::tr("%1 and %2").arg(before->Shown().Title(), window.Shown().Title());
    ImageOf<float> joined;
    joined.width = left.width + right.width - overlap;
    joined.height = left.height;
    joined.values.resize(static_cast<std::size_t>(joined.width) * static_cast<std::size_t>(joined.height));
    try {
        const auto plane = [](auto& image) { return Plane(image.values.data(), image.width, image.height); };
        stitch(plane(left), plane(right), overlap, plane(joined));
    } catch (const Error& error) {
        return window.Report(Failed(QString::fromUtf8(error.what())));
    }
    ShowMade(window, joined.values, joined.width, joined.height, title);
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
    commands.Add(
        Menu::Process, Join, [&window] { AskJoin(window); },
        [&window] { return window.Area().All().size() > 1 && window.View().Model().HasImage(); });
    commands.Add(Menu::Process, Batch, [&window] { ShowBatch(window); });
    commands.AddSeparator(Menu::Process);
    QAction& stop = commands.Add(
        Menu::Process, Stop, [&runs] { runs.Stop(); }, [&runs] { return runs.IsRunning(); });
    // Esc too, from anywhere but the canvas, which asks itself whether something runs.
    stop.setShortcuts({stop.shortcut(), QKeySequence(Qt::Key_Escape)});
    QObject::connect(&runs, &Processing::runningChanged, &commands, &CommandList::Update);
}

}
