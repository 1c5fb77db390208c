// What a screen reader says: each part that takes the keys has a name, in both languages.

#include "hosts/viewer/window/Dialogs.h"
#include "hosts/viewer/window/Speaking.h"

#include "documents/RawLayoutDialog.h"
#include "help/HelpWindow.h"
#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QDockWidget>
#include <QFileDialog>
#include <QTabBar>
#include <QTreeView>

using namespace vostel::viewer;

namespace {

QString NameOf(QWidget& widget)
{
    const QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(&widget);
    return face ? face->text(QAccessible::Name) : QString();
}

// Edit fields of spin boxes and of combo boxes belong to these, as do buttons within a field that only the
// mouse reaches, and bars of scrolling belong to what they scroll.
bool IsPartOfAnother(const QWidget& widget)
{
    const QWidget* const parent = widget.parentWidget();
    if (!parent || widget.focusProxy())
        return widget.focusProxy() != nullptr;
    return parent->inherits("QLineEdit") ||
           (widget.inherits("QLineEdit") &&
            (parent->inherits("QAbstractSpinBox") || parent->inherits("QComboBox"))) ||
           (widget.inherits("QScrollBar") &&
            (parent->inherits("QAbstractScrollArea") || parent->objectName().startsWith("qt_scrollarea")));
}

bool TakesInput(const QWidget& widget)
{
    const auto* const tabs = qobject_cast<const QTabBar*>(&widget);
    return (!tabs || tabs->count() > 0) && !widget.isWindow() && !IsPartOfAnother(widget) &&
           (widget.focusPolicy() != Qt::NoFocus || widget.inherits("QAbstractButton")) &&
           !widget.inherits("QMenuBar");
}

struct Named {
    int         Count = 0;
    QStringList Unnamed;
};

// Of all parts, those included that are hidden at the moment.
Named NamesOf(QWidget& window)
{
    Named named;
    for (QWidget* const part : window.findChildren<QWidget*>()) {
        if (!TakesInput(*part) || part->window() != &window)
            continue;
        ++named.Count;
        if (NameOf(*part).trimmed().isEmpty())
            named.Unnamed << QStringLiteral("%1 %2 in %3 %4")
                                 .arg(QLatin1String(part->metaObject()->className()), part->objectName(),
                                      QLatin1String(part->parent()->metaObject()->className()),
                                      part->parent()->objectName());
    }
    return named;
}

void CheckNames(QWidget& window, int least)
{
    const Named named = NamesOf(window);
    CAPTURE(window.objectName().toStdString());
    CAPTURE(window.metaObject()->className());
    CHECK(named.Unnamed.join(QLatin1Char('\n')).toStdString() == "");
    CHECK(named.Count >= least);
}

QString Spoken(QTreeView& list, int row, int column)
{
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(&list);
    REQUIRE(face);
    REQUIRE(face->tableInterface());
    QAccessibleInterface* const cell = face->tableInterface()->cellAt(row, column);
    REQUIRE(cell);
    return cell->text(QAccessible::Name);
}

}

TEST_CASE("each part of the window with all its panels has a name for screen readers, in both languages")
{
    for (const char* const language : {"en", "zh_CN"}) {
        CAPTURE(language);
        const Speaking speaking(language);
        FullWindow     at({ShownWindow::Sample(), ShownWindow::Sample()});
        CheckNames(at.Window, 40);
        for (const char* const name :
             {"Histogram", "Objects", "Measures", "Profile", "History", "Overview"}) {
            QDockWidget& dock = at.Window.Docks().Of(name);
            CHECK_FALSE(NameOf(dock).isEmpty());
            dock.setFloating(true);    // in a window of its own it is named as well
            hand::Settle();
            CheckNames(dock, 1);
            dock.setFloating(false);
        }
        for (const QTabBar* const tabs : at.Window.findChildren<QTabBar*>())
            CHECK((language == std::string("zh_CN")) == (tabs->accessibleName().front() > QChar(0x4E00)));
    }
}

TEST_CASE("each part of each dialog has a name for screen readers, in both languages")
{
    for (const char* const language : {"en", "zh_CN"}) {
        CAPTURE(language);
        const Speaking speaking(language);
        FullWindow     at;
        CHECK(EachDialog(at, [](QDialog& dialog) { CheckNames(dialog, 1); }) >= 20);
        HelpWindow help(&at.Window);
        CheckNames(help, 3);
        RawLayoutDialog layout(ShownWindow::Sample());
        CheckNames(layout, 9);
    }
}

TEST_CASE("the list of objects tells what lies on the canvas: name, kind, color and whether it is shown")
{
    FullWindow at;
    at.Open().object_list()[0].set_name("bright coin");
    at.Open().object_list()[1].set_flags(VOSTEL_LOCKED);
    hand::Settle();
    CHECK(NameOf(at.View()) == "Canvas");
    QAccessibleInterface* const canvas = QAccessible::queryAccessibleInterface(&at.View());
    CHECK(canvas->text(QAccessible::Description).contains(QStringLiteral("list of objects")));

    QTreeView& list = *at.Window.Docks().Of("Objects").findChild<QTreeView*>();
    CHECK(NameOf(list) == "Objects, topmost first");
    QAccessibleInterface* const rows = QAccessible::queryAccessibleInterface(&list);
    REQUIRE(rows->tableInterface());
    CHECK(rows->tableInterface()->rowCount() == 2);
    CHECK(rows->tableInterface()->columnDescription(1) == "Kind");
    CHECK(Spoken(list, 1, 0) == "bright coin");
    CHECK(Spoken(list, 1, 1) == "Rectangle");
    CHECK(Spoken(list, 0, 1) == "Length");
    CHECK(Spoken(list, 0, 5) == "locked");
    CHECK(Spoken(list, 1, 4) == "shown");
    CHECK(rows->tableInterface()->isRowSelected(0));
    CHECK_FALSE(rows->tableInterface()->isRowSelected(1));
}
