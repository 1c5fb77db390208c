#include "hosts/viewer/window/ShownWindow.h"
#include "hosts/viewer/window/Speaking.h"

#include "help/HelpWindow.h"

#include <doctest/doctest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>

#include <algorithm>

using namespace vostel::viewer;

namespace {

bool HasChinese(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x4E00; });
}

struct OpenHelp {
    ShownWindow At;
    HelpWindow& Help;

    OpenHelp() : Help(Opened(At)) {}
    ~OpenHelp() { Help.close(); }

    static HelpWindow& Opened(ShownWindow& at)
    {
        hand::Key("F1");
        REQUIRE(hand::Wait([&] { return at.Window.findChild<HelpWindow*>() != nullptr; }));
        HelpWindow& help = *at.Window.findChild<HelpWindow*>();
        REQUIRE(hand::Wait([&] { return help.isVisible(); }));
        return help;
    }

    QListWidget&  Pages() { return hand::Of<QListWidget>(Help, "Pages"); }
    QTextBrowser& Text() { return hand::Of<QTextBrowser>(Help, "Text"); }
};

}

TEST_CASE("the help begins with the guide of the viewer and shows no picture that is not there")
{
    OpenHelp at;
    CHECK(at.Pages().item(0)->text() == "The viewer");
    CHECK(at.Text().toPlainText().contains(QStringLiteral("Ctrl+Shift+B")));
    for (int i = 0; i < at.Pages().count(); ++i) {
        at.Pages().setCurrentRow(i);
        CHECK_FALSE(at.Text().toPlainText().contains(QChar(QChar::ObjectReplacementCharacter)));
    }
}

TEST_CASE("in a Chinese window F1 shows Chinese pages, and the search finds Chinese words")
{
    const Speaking chinese("zh_CN");
    OpenHelp       at;
    for (int i = 0; i < at.Pages().count(); ++i) {
        CAPTURE(at.Pages().item(i)->text().toStdString());
        CHECK(HasChinese(at.Pages().item(i)->text()));
    }
    CHECK(at.Pages().item(0)->text() == QString::fromUtf8("查看器"));
    hand::Keep(at.Help, "help-zh");
    hand::Of<QLineEdit>(at.Help, "Words").setText(QString::fromUtf8("奇偶规则"));
    CHECK(at.Pages().item(0)->text() == QString::fromUtf8("测量"));
}

TEST_CASE("a link in a page leads to the other page, in the same language")
{
    const Speaking chinese("zh_CN");
    OpenHelp       at;
    Q_EMIT at.Text().anchorClicked(QUrl(QStringLiteral("measuring.md")));
    CHECK(at.Pages().currentItem()->text() == QString::fromUtf8("测量"));
    CHECK(at.Text().toPlainText().startsWith(QString::fromUtf8("测量")));
}
