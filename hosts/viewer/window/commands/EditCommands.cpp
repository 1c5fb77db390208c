#include "canvas/CanvasView.h"
#include "canvas/StepNames.h"
#include "documents/Clipboard.h"
#include "documents/Document.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <QMenu>

namespace vostel::viewer {

namespace {

constexpr CommandText Undo = {
    "edit.undo", QT_TRANSLATE_NOOP("Commands", "&Undo"), "Ctrl+Z",
    QT_TRANSLATE_NOOP("Commands", "Takes back the last change of objects or contrast")};
constexpr CommandText Redo = {"edit.redo", QT_TRANSLATE_NOOP("Commands", "&Redo"), "Ctrl+Shift+Z",
                              QT_TRANSLATE_NOOP("Commands", "Brings again what was taken back")};
constexpr CommandText CutObjects = {
    "edit.cut", QT_TRANSLATE_NOOP("Commands", "Cu&t"), "Ctrl+X",
    QT_TRANSLATE_NOOP("Commands", "Moves the selected objects to the clipboard")};
constexpr CommandText CopyObjects = {
    "edit.copy", QT_TRANSLATE_NOOP("Commands", "&Copy"), "Ctrl+C",
    QT_TRANSLATE_NOOP("Commands",
                      "Copies the selected objects, as objects, drawing and measures, or else the picture")};
constexpr CommandText PasteObjects = {
    "edit.paste", QT_TRANSLATE_NOOP("Commands", "&Paste"), "Ctrl+V",
    QT_TRANSLATE_NOOP("Commands", "Adds the objects of the clipboard, or shows its picture")};
constexpr CommandText Duplicate = {
    "edit.duplicate", QT_TRANSLATE_NOOP("Commands", "&Duplicate"), "Ctrl+D",
    QT_TRANSLATE_NOOP("Commands", "Adds copies of the selected objects beside them")};
constexpr CommandText Delete = {"edit.delete", QT_TRANSLATE_NOOP("Commands", "De&lete"), "Delete",
                                QT_TRANSLATE_NOOP("Commands", "Removes the selected objects")};
constexpr CommandText All = {"edit.selectAll", QT_TRANSLATE_NOOP("Commands", "Select &all"), "Ctrl+A",
                             nullptr};
constexpr CommandText None = {"edit.selectNone", QT_TRANSLATE_NOOP("Commands", "Select &nothing"),
                              "Ctrl+Shift+A", nullptr};
constexpr CommandText Front = {"edit.toFront", QT_TRANSLATE_NOOP("Commands", "Bring to &front"),
                               "Ctrl+Shift+Up",
                               QT_TRANSLATE_NOOP("Commands", "Draws the selected objects over all others")};
constexpr CommandText Back = {"edit.toBack", QT_TRANSLATE_NOOP("Commands", "Send to &back"),
                              "Ctrl+Shift+Down",
                              QT_TRANSLATE_NOOP("Commands", "Draws the selected objects under all others")};

// A picture never replaces one that is shown.
void Paste(MainWindow& window)
{
    const bool isPicture =
        Clipboard::Held() == Clipboard::Content::Picture || Clipboard::Held() == Clipboard::Content::Files;
    CanvasPane& pane = isPicture ? window.Area().PaneForOpening() : window.Area().Current();
    window.Report(Clipboard::Paste(pane.Shown()));
    if (isPicture)
        pane.View().Fit();
}

void Reorder(CanvasView& view, bool toFront)
{
    view.Model().Try([&](Canvas& canvas) {
        const Step                one = canvas.step("Change order");
        const std::vector<Object> selected = canvas.selection();
        const std::size_t         last = canvas.object_list().size() - 1;
        for (std::size_t i = 0; i < selected.size(); ++i)
            canvas.object_move_to(selected[i], toFront ? last : i);
    });
}

}

void AddEditCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    const auto   undos = [&window] { return window.View().Open().history_info(); };
    const auto   isSelected = [&window] { return !window.View().Open().selection().empty(); };

    QAction& undo = commands.Add(
        Menu::Edit, Undo, [&window] { window.View().Model().Try([](Canvas& canvas) { canvas.undo(); }); },
        [undos] { return undos().undo_count > 0; });
    QAction& redo = commands.Add(
        Menu::Edit, Redo, [&window] { window.View().Model().Try([](Canvas& canvas) { canvas.redo(); }); },
        [undos] { return undos().redo_count > 0; });
    QObject::connect(&commands, &CommandList::updated, &window, [&window, &undo, &redo] {
        const int     canvas = window.View().Open().number();
        const QString back = UndoName(canvas), again = RedoName(canvas);
        const QString undoText = CommandList::Translated(Undo.Text),
                      redoText = CommandList::Translated(Redo.Text);
        undo.setText(back.isEmpty() ? undoText : QStringLiteral("%1 %2").arg(undoText, back));
        redo.setText(again.isEmpty() ? redoText : QStringLiteral("%1 %2").arg(redoText, again));
    });
    commands.AddSeparator(Menu::Edit);
    commands.Add(
        Menu::Edit, CutObjects, [&window] { window.Report(Clipboard::Cut(window.Shown().Model())); },
        isSelected);
    commands.Add(
        Menu::Edit, CopyObjects, [&window] { window.Report(Clipboard::Copy(window.Shown().Model())); },
        [&window] { return window.Shown().Model().HasImage(); });
    commands.Add(Menu::Edit, PasteObjects, [&window] { Paste(window); });
    commands.Add(
        Menu::Edit, Duplicate, [&window] { window.Report(Clipboard::Duplicate(window.Shown().Model())); },
        isSelected);
    commands.Add(
        Menu::Edit, Delete, [&window] { window.View().RemoveSelection(); }, isSelected);
    commands.AddSeparator(Menu::Edit);
    commands.Add(Menu::Edit, All, [&window] {
        Canvas& canvas = window.View().Open();
        canvas.select(canvas.object_list());
    });
    commands.Add(
        Menu::Edit, None, [&window] { window.View().Open().select({}); }, isSelected);
    commands.AddSeparator(Menu::Edit);
    commands.Add(
        Menu::Edit, Front, [&window] { Reorder(window.View(), true); }, isSelected);
    commands.Add(
        Menu::Edit, Back, [&window] { Reorder(window.View(), false); }, isSelected);
}

}
