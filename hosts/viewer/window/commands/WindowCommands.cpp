#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/ViewChoices.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace vostel::viewer {

namespace {

constexpr CommandText Tiles = {
    "window.tiles", QT_TRANSLATE_NOOP("Commands", "&Tiles"), "F4",
    QT_TRANSLATE_NOOP("Commands", "All documents side by side instead of in tabs")};
constexpr CommandText Next = {"window.next", QT_TRANSLATE_NOOP("Commands", "&Next document"), "Ctrl+Tab",
                              nullptr};
constexpr CommandText Previous = {"window.previous", QT_TRANSLATE_NOOP("Commands", "&Previous document"),
                                  "Ctrl+Shift+Tab", nullptr};
constexpr CommandText Link = {
    "window.link", QT_TRANSLATE_NOOP("Commands", "&Link views"), "Ctrl+L",
    QT_TRANSLATE_NOOP("Commands", "All documents pan and zoom together, with the pointer shown on each")};

constexpr CommandText Blink = {
    "window.blink", QT_TRANSLATE_NOOP("Commands", "&Blink"), "Ctrl+K",
    QT_TRANSLATE_NOOP("Commands", "Shows this document and the one before in turns, to see what differs")};

constexpr CommandText Difference = {
    "window.difference", QT_TRANSLATE_NOOP("Commands", "&Difference"), "Ctrl+Shift+D",
    QT_TRANSLATE_NOOP("Commands",
                      "Subtracts the document before from this one, pixel by pixel, into a new one")};

// Colors are compared by their luma. Values that are not finite stay so.
void ShowDifference(MainWindow& window)
{
    CanvasPane* const before = window.Area().PaneBefore();
    if (!before || !before->Shown().Model().HasImage() || !window.Shown().Model().HasImage())
        return;
    const ImageOf<float> first = window.View().Open().image_copy<float>();
    const ImageOf<float> second = before->View().Open().image_copy<float>();
    if (first.width != second.width || first.height != second.height) {
        window.Report(Failed(CommandList::tr("The two pictures have different sizes: %1 x %2 and %3 x %4.")
                                 .arg(first.width)
                                 .arg(first.height)
                                 .arg(second.width)
                                 .arg(second.height)));
        return;
    }
    std::vector<float> difference(first.values.size());
    std::transform(first.values.begin(), first.values.end(), second.values.begin(), difference.begin(),
                   std::minus<>());
    const QString text = CommandList::tr("%1 less %2").arg(window.Shown().Title(), before->Shown().Title());
    CanvasPane&   pane = window.Area().AddPane();
    pane.Shown().Model().Try(
        [&](Canvas& canvas) { canvas.image_show(VOSTEL_F32, difference.data(), first.width, first.height); });
    pane.View().Fit();
    window.Report(Done(text));
}

void TurnTo(MainWindow& window, int by)
{
    const int count = int(window.Area().All().size());
    window.Area().SetCurrent((window.Area().CurrentIndex() + by + count) % count);
}

}

void AddWindowCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    const auto   areSeveral = [&window] { return window.Area().All().size() > 1; };
    commands.AddSwitch(
        Menu::Window, Tiles, [&window](bool on) { window.Area().SetTiled(on); },
        [&window] { return window.Area().IsTiled(); });
    commands.AddSwitch(
        Menu::Window, Link, [&window](bool on) { ViewChoices::SetLinked(window.Area(), on); },
        [&window] { return window.Area().IsLinked(); });
    commands.AddSwitch(
        Menu::Window, Blink, [&window](bool on) { window.Area().SetBlinking(on); },
        [&window] { return window.Area().IsBlinking(); }, areSeveral);
    commands.Add(
        Menu::Window, Difference, [&window] { ShowDifference(window); }, areSeveral);
    commands.AddSeparator(Menu::Window);
    commands.Add(
        Menu::Window, Next, [&window] { TurnTo(window, 1); }, areSeveral);
    commands.Add(
        Menu::Window, Previous, [&window] { TurnTo(window, -1); }, areSeveral);
}

}
