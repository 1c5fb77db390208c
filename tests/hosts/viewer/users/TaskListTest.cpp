// The usual tasks of somebody who measures, done by hand at the window: each key, click, drag and typed word
// is counted, and the counts are those of the table in docs/viewers.md.

#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/users/AtTheWindow.h"
#include "hosts/viewer/users/OddFiles.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTreeView>

#include <map>

using namespace vostel::viewer;

namespace {

// A picture of 300 x 200 pixels of 16 bits with some that lie far off.
QString DeepPicture(const MadeFiles& files)
{
    files::TiffPage page;
    page.Width = 300;
    page.Height = 200;
    page.Bits = 16;
    files::Bytes bytes;
    for (int i = 0; i < page.Width * page.Height; ++i)
        files::Little(bytes,
                      i % 1000 == 0 ? 60000u : 20000u + static_cast<std::uint32_t>(i % page.Width) * 10, 2);
    page.Blocks = {bytes};
    return files.Bytes("slice.tif", odd::Raw(files::TiffOf(page)));
}

class Counting {
public:
    ShownWindow at{QStringList()};

    int Take() { return std::exchange(Actions, 0); }

    void Key(const char* chord)
    {
        ++Actions;
        hand::Key(chord);
    }
    void Type(const char* text)
    {
        ++Actions;
        hand::Type(text);
    }
    void Press(const char* button)
    {
        ++Actions;
        hand::Click(hand::Of<QAbstractButton>(at.Window, button));
    }
    void Drag(int x, int y, int toX, int toY)
    {
        ++Actions;
        at.Drag(x, y, toX, toY);
    }
    void DoubleClickName(int row)
    {
        ++Actions;
        auto& list = hand::Of<QAbstractItemView>(at.Window, "objects");
        hand::DoubleClick(*list.viewport(), list.visualRect(list.model()->index(row, 0)).center());
    }

    // A key that brings up a file dialog, a path and Enter.
    void InFileDialog(const std::function<void()>& open, const QString& path)
    {
        bool closed = false;
        hand::InDialog([&](QDialog& dialog) {
            TypePath(dialog, path);
            closed = true;
        });
        open();
        REQUIRE(hand::Wait([&] { return closed; }));
        hand::Settle();
        REQUIRE(hand::Wait([&] { return !at.Window.Shown().IsReading(); }));
        hand::Settle();
    }

    // The same for a dialog that leaves the window free.
    void InFileDialogBeside(const char* button, const QString& path)
    {
        Press(button);
        auto* const dialog = at.Window.findChild<QFileDialog*>();
        REQUIRE(dialog);
        REQUIRE(hand::Wait([&] { return dialog->isActiveWindow(); }));
        TypePath(*dialog, path);
    }

    // By the letters that are underlined in the menu.
    void ChooseInFileMenu(const char* command)
    {
        const QString text = at.Window.Commands().Of(command).text();
        const QString letter = text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toLower();
        Key("alt+f");
        Key(letter.toLatin1().constData());
    }

private:
    int Actions = 0;

    void TypePath(QDialog& dialog, const QString& path)
    {
        const QPointer<QDialog> up = &dialog;    // some are gone when they are closed
        auto&                   name = hand::Of<QLineEdit>(dialog, "fileNameEdit");
        name.setFocus();
        name.setText(path);
        ++Actions;
        Key("Return");
        REQUIRE(hand::Wait([&] { return !up || !up->isVisible(); }));
    }
};

// Of the table in the page, by the first cell of each row: ours and the other program's.
std::map<QString, std::pair<int, int>> CountsInPage()
{
    QFile file(QStringLiteral(VOSTEL_SAMPLES "/../docs/viewers.md"));
    REQUIRE(file.open(QIODevice::ReadOnly));
    const QString part = QString::fromUtf8(file.readAll())
                             .section(QStringLiteral("\n### Steps of the usual tasks\n"), 1)
                             .section(QStringLiteral("\n## "), 0, 0);
    std::map<QString, std::pair<int, int>> counts;
    for (const QString& line : part.split(QLatin1Char('\n'))) {
        const QStringList cells = line.split(QLatin1Char('|'));
        if (cells.size() >= 6 && cells[2].trimmed().toInt() > 0)
            counts[cells[1].trimmed()] = {cells[2].trimmed().toInt(), cells[4].trimmed().toInt()};
    }
    return counts;
}

}

TEST_CASE("the usual tasks take as many steps as the documentation counts, and no more than elsewhere")
{
    const MadeFiles             files;
    Counting                    person;
    const auto                  picture = DeepPicture(files);
    std::map<QString, int>      counted;
    vostel::viewer::MainWindow& window = person.at.Window;

    person.InFileDialog([&] { person.Key("ctrl+o"); }, picture);
    REQUIRE(person.at.Label("Size").startsWith("300 x 200, 16 bits"));
    counted["open a 16-bit TIFF"] = person.Take();

    person.Press("percent0.5");
    CHECK(person.at.Open().contrast_info().high < 30000);
    counted["set the contrast by percentiles"] = person.Take();

    person.Key("r");
    for (int i = 0; i < 5; ++i)
        person.Drag(20 + 50 * i, 40, 50 + 50 * i, 90);
    REQUIRE(person.at.Open().object_list().size() == 5);
    counted["draw five regions"] = person.Take();

    for (int i = 0; i < 5; ++i) {
        person.DoubleClickName(i);
        person.Type(("part " + std::to_string(i)).c_str());
        person.Key("Return");
    }
    for (const vostel::Object& object : person.at.Open().object_list())
        CHECK(object.name().rfind("part ", 0) == 0);
    counted["name them"] = person.Take();

    const QString table = files.Path("parts.csv");
    person.InFileDialogBeside("saveMeasures", table);
    CHECK(BytesOf(table).contains("part 4"));
    counted["save the table as CSV"] = person.Take();

    const QString regions = files.Path("parts.json");
    person.InFileDialog([&] { person.ChooseInFileMenu("regions"); }, regions);
    CHECK(BytesOf(regions).contains("part 4"));
    counted["save the regions"] = person.Take();

    person.at.View().setFocus();
    hand::Key("ctrl+a");
    hand::Key("Delete");
    REQUIRE(person.at.Open().object_list().empty());
    person.InFileDialog([&] { person.Key("ctrl+o"); }, regions);
    CHECK(window.View().Open().object_list().size() == 5);
    counted["open the regions again"] = person.Take();

    const auto page = CountsInPage();
    CHECK(page.size() == counted.size());
    for (const auto& task : counted) {
        CAPTURE(task.first.toStdString());
        REQUIRE(page.count(task.first) == 1);
        CHECK(page.at(task.first).first == task.second);
        CHECK(task.second <= page.at(task.first).second);
    }
}
