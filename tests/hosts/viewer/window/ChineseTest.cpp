#include "hosts/viewer/window/ShownWindow.h"
#include "hosts/viewer/window/Speaking.h"

#include "documents/Clipboard.h"
#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>

#include <map>

using namespace vostel::viewer;

namespace {

bool IsChinese(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x4E00; });
}

// The letters of a menu's entries that are chosen by more than one of them.
QStringList Clashes(const QMenu& menu)
{
    std::map<QString, QStringList> byLetter;
    QStringList                    clashes;
    for (const QAction* const action : menu.actions()) {
        const QString key = QKeySequence::mnemonic(action->text()).toString();
        if (!key.isEmpty())
            byLetter[key] << action->text();
        if (action->menu())
            clashes += Clashes(*action->menu());
    }
    for (const auto& [key, texts] : byLetter)
        if (texts.size() > 1)
            clashes << texts.join(QStringLiteral(" | "));
    return clashes;
}

QStringList Clashes(MainWindow& window)
{
    QStringList clashes;
    for (const QAction* const action : window.menuBar()->actions())
        clashes += Clashes(*action->menu());
    return clashes;
}

}

TEST_CASE("the window speaks Chinese: menus, panels, status, steps and captions")
{
    const Speaking chinese("zh_CN");
    ShownWindow    at;
    CHECK(at.Window.menuBar()->actions().front()->text() == QString::fromUtf8("文件(&F)"));
    CHECK(at.Window.Docks().Of("Measures").windowTitle() == QString::fromUtf8("测量值"));
    CHECK(at.Label("Scale") == QString::fromUtf8("未标定"));
    CHECK(at.Label("Size").contains(QString::fromUtf8("8 位")));
    hand::Key("l");
    at.Drag(50, 60, 150, 60);
    CHECK(IsChinese(QString::fromStdString(at.Open().object_list().at(0).text())));
    CHECK(at.Window.Commands().Of("edit.undo").text().contains(QString::fromUtf8("添加长度")));
    CHECK(IsChinese(at.Label("Hint")));
    for (const QAction* const action : at.Window.Commands().All()) {
        CAPTURE(action->text().toStdString());
        CHECK((IsChinese(action->text()) || action->text().contains(QStringLiteral("100 %")) ||
               action->text().contains(QStringLiteral("English"))));
        CHECK((action->toolTip().isEmpty() || IsChinese(action->toolTip()) || !IsChinese(action->text())));
    }
    hand::Keep(at.Window, "window-zh");
}

TEST_CASE("no two entries of a menu have the same letter, in either language")
{
    {
        ShownWindow at;
        CHECK(Clashes(at.Window).join(QLatin1Char(0x2C)).toStdString() == "");
    }
    const Speaking chinese("zh_CN");
    ShownWindow    at;
    CHECK(Clashes(at.Window).join(QLatin1Char(0x2C)).toStdString() == "");
}

TEST_CASE("one object is counted as one")
{
    const Speaking english("en");
    ShownWindow    at;
    at.Open().add_rectangle(10, 10, 40, 40);
    at.Open().select(at.Open().object_list());
    CHECK(Clipboard::Duplicate(at.Window.Shown().Model()).Text == "Duplicated 1 object");
    at.Open().select(at.Open().object_list());
    CHECK(Clipboard::Duplicate(at.Window.Shown().Model()).Text == "Duplicated 2 objects");
}

TEST_CASE("a language is chosen in the menu, for the next start")
{
    ShownWindow at;
    CHECK(at.Window.Commands().Of("view.languageSystem").isChecked());
    at.Window.Commands().Of("view.chinese").trigger();
    CHECK(QSettings().value(QStringLiteral("Language")) == "zh_CN");
    CHECK(at.Window.Commands().Of("view.chinese").isChecked());
    CHECK_FALSE(at.Window.Commands().Of("view.languageSystem").isChecked());
    CHECK(at.Label("Hint") == "The language changes at the next start.");
}
