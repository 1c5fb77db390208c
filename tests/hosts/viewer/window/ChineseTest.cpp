#include "hosts/viewer/window/Dialogs.h"
#include "hosts/viewer/window/Speaking.h"

#include "documents/Clipboard.h"
#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include <QRegularExpression>

#include <map>

using namespace vostel::viewer;

namespace {

bool IsChinese(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x4E00; });
}

// The texts of Qt itself, as the program loads them beside its own.
class ToolkitSpeaking {
public:
    ToolkitSpeaking()
    {
        REQUIRE(
            Texts.load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
        QApplication::installTranslator(&Texts);
    }
    ~ToolkitSpeaking() { QApplication::removeTranslator(&Texts); }
    ToolkitSpeaking(const ToolkitSpeaking&) = delete;
    ToolkitSpeaking& operator=(const ToolkitSpeaking&) = delete;

private:
    QTranslator Texts;
};

// What a part says, shown, as a tip and to a reader of the screen.
QStringList TextsOf(const QWidget& part)
{
    QStringList texts{part.windowTitle(), part.toolTip(), part.accessibleName(),
                      part.accessibleDescription()};
    if (const auto* const label = qobject_cast<const QLabel*>(&part))
        texts << label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&part))
        texts << button->text();
    if (const auto* const line = qobject_cast<const QLineEdit*>(&part))
        texts << line->placeholderText();
    if (const auto* const box = qobject_cast<const QComboBox*>(&part))
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
    if (const auto* const view = qobject_cast<const QAbstractItemView*>(&part); view && view->model())
        for (int i = 0; i < view->model()->columnCount(); ++i)
            texts << view->model()->headerData(i, Qt::Horizontal).toString();
    return texts;
}

// The texts of a window with an English word. Names and patterns of files and proper names are none.
QString English(const QWidget& window)
{
    static const QRegularExpression word(QStringLiteral("\\b[A-Za-z][a-z]{2,}\\b"));
    static const QRegularExpression proper(QStringLiteral(
        "coins\\.png|\\(\\*[^)]*\\)|viridis|magma|inferno|plasma|cividis|turbo|jet|English|Qt"));
    QStringList                     found;
    for (const QWidget* const part : window.findChildren<QWidget*>()) {
        if (part->window() != &window || part->objectName() == QLatin1String("lookInCombo"))    // paths
            continue;
        for (QString text : TextsOf(*part))
            if (!IsChinese(text) && text.remove(proper).contains(word))
                found << QStringLiteral("%1 %2: %3")
                             .arg(QLatin1String(part->metaObject()->className()), part->objectName(), text);
    }
    return found.join(QLatin1Char('\n'));
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

TEST_CASE("no part of the window or of a dialog has an English text in a Chinese window")
{
    const Speaking        chinese("zh_CN");
    const ToolkitSpeaking toolkit;
    FullWindow            at({ShownWindow::Sample(), ShownWindow::Sample()});
    CHECK(English(at.Window).toStdString() == "");
    const int opened = EachDialog(at, [](QDialog& dialog) {
        CAPTURE(dialog.windowTitle().toStdString());
        CHECK(English(dialog).toStdString() == "");
    });
    CHECK(opened > 15);
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
