#include "documents/Document.h"
#include "documents/Stack.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/commands/CommandGroups.h"

namespace vostel::viewer {

namespace {

constexpr CommandText NextPage = {"image.pageNext", QT_TRANSLATE_NOOP("Commands", "&Next page"), "PgDown",
                                  QT_TRANSLATE_NOOP("Commands", "Of the stack; the objects stay")};
constexpr CommandText PreviousPage = {"image.pagePrevious", QT_TRANSLATE_NOOP("Commands", "&Previous page"),
                                      "PgUp",
                                      QT_TRANSLATE_NOOP("Commands", "Of the stack; the objects stay")};
constexpr CommandText FirstPage = {"image.pageFirst", QT_TRANSLATE_NOOP("Commands", "&First page"),
                                   "Ctrl+PgUp", nullptr};
constexpr CommandText LastPage = {"image.pageLast", QT_TRANSLATE_NOOP("Commands", "&Last page"),
                                  "Ctrl+PgDown", nullptr};
constexpr CommandText KeepContrast = {
    "image.keepContrast", QT_TRANSLATE_NOOP("Commands", "&Keep contrast on all pages"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Else each page gets a window that fits its values")};

}

void AddImageCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    const auto   pages = [&window]() -> Stack& { return window.Shown().Pages(); };
    const auto   isStack = [pages] { return pages().Count() > 1; };
    const auto   isBefore = [pages] { return pages().Index() + 1 < pages().Count(); };
    const auto   isAfter = [pages] { return pages().Index() > 0; };
    commands.Add(
        Menu::Image, NextPage, [pages] { pages().Go(pages().Index() + 1); }, isBefore);
    commands.Add(
        Menu::Image, PreviousPage, [pages] { pages().Go(pages().Index() - 1); }, isAfter);
    commands.Add(
        Menu::Image, FirstPage, [pages] { pages().Go(0); }, isAfter);
    commands.Add(
        Menu::Image, LastPage, [pages] { pages().Go(pages().Count() - 1); }, isBefore);
    commands.AddSwitch(
        Menu::Image, KeepContrast, [pages](bool on) { pages().SetKeepsContrast(on); },
        [pages] { return pages().KeepsContrast(); }, isStack);
}

}
