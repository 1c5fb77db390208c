// The guide of the viewer has a table of all commands with their keys, in each of its languages.

#include "hosts/viewer/window/ShownWindow.h"
#include "hosts/viewer/window/Speaking.h"

#include "documents/Mnemonics.h"
#include "help/HelpWindow.h"

#include <doctest/doctest.h>

#include <QFile>

#include <fstream>

using namespace vostel::viewer;

namespace {

QString Row(const QStringList& cells)
{
    QString row = QStringLiteral("|");
    for (const QString& cell : cells)
        row += cell.isEmpty() ? QStringLiteral(" |") : QStringLiteral(" %1 |").arg(cell);
    return row;
}

QStringList RowsOf(const CommandList& commands)
{
    QStringList rows;
    for (const QAction* const action : commands.All()) {
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts())
            keys << key.toString();
        const QString path = TitleOf(commands.PathOf(*action));
        const bool    isTipOwn = !path.endsWith(QStringLiteral(", ") + TitleOf(action->statusTip()));
        rows << Row({path, keys.join(QStringLiteral(", ")), isTipOwn ? action->statusTip() : QString()});
    }
    return rows;
}

// Of the table under the heading of the keys, without its head.
QStringList RowsOf(const QString& page, const QString& heading)
{
    const QString part = page.section(heading, 1).section(QStringLiteral("\n## "), 0, 0);
    QStringList   rows;
    for (const QString& line : part.split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1Char('|')))
            rows << line;
    return rows.mid(2);
}

// Each row of one list that the other lacks, a line each.
std::string Missing(const QStringList& rows, const QStringList& in)
{
    QStringList missing;
    for (const QString& row : rows)
        if (!in.contains(row))
            missing << row;
    return missing.join(QLatin1Char('\n')).toStdString();
}

void CheckKeys(const char* language, const QString& heading)
{
    const Speaking    speaking(language);
    const ShownWindow at((QStringList()));
    QFile             file(HelpWindow::PathOf("viewer.md"));
    REQUIRE(file.open(QIODevice::ReadOnly));
    const QStringList commands = RowsOf(at.Window.Commands());
    const QStringList page = RowsOf(QString::fromUtf8(file.readAll()), heading);
    REQUIRE(commands.size() > 90);
    CHECK_MESSAGE(Missing(commands, page).empty(), "rows that the page lacks:\n", Missing(commands, page));
    CHECK_MESSAGE(Missing(page, commands).empty(), "rows of no command:\n", Missing(page, commands));
    CHECK(page.join(QLatin1Char('\n')).toStdString() == commands.join(QLatin1Char('\n')).toStdString());
}

}

TEST_CASE("the guide has every command with its key and what it does, in the order of the menus")
{
    CheckKeys("en", QStringLiteral("\n## All commands\n"));
}

TEST_CASE("the Chinese guide has every command too, as the Chinese window names them")
{
    CheckKeys("zh_CN", QString::fromUtf8("\n## 所有命令\n"));
}
