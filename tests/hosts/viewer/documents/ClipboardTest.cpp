#include "documents/Clipboard.h"

#include "documents/Document.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QUrl>
#include <QXmlStreamReader>

using namespace vostel::viewer;
using vostel::Canvas;
using vostel::Object;

namespace {

// Coins with a named rectangle, a length and a polygon; the first two are selected.
struct Marked : Document {
    Marked()
    {
        REQUIRE(Open(QStringLiteral(VOSTEL_SAMPLES "/coins.png")).IsDone());
        On().view_actual();
        Object first = On().add_rectangle(10, 20, 30, 50);
        first.set_name("first\tof <all>");
        const Object length = On().add_length({60, 60}, {90, 100});
        On().add_polygon(std::vector<vostel::Point>{{5, 5}, {50, 8}, {30, 40}});
        On().select({first, length});
    }
    Canvas&             On() { return Model().Open(); }
    std::vector<Object> All() { return On().object_list(); }
    std::uint32_t       Steps() { return On().history_info().undo_count; }
};

}

TEST_CASE("copied objects come to another canvas at the same place, selected, as one step")
{
    Marked from, to;
    CHECK(Clipboard::Copy(from.Model()).Text.contains(QLatin1Char('2')));
    CHECK(Clipboard::Held() == Clipboard::Content::Objects);
    const std::uint32_t steps = to.Steps();
    CHECK(Clipboard::Paste(to).IsDone());
    REQUIRE(to.All().size() == 5);
    CHECK(to.Steps() == steps + 1);
    CHECK(to.All()[3].name() == "first\tof <all>");
    CHECK(to.All()[3].info().left == 10.0);
    CHECK(to.On().selection() == std::vector<Object>{to.All()[3], to.All()[4]});
    to.On().undo();
    CHECK(to.All().size() == 3);
}

TEST_CASE("each paste on the canvas of the originals lies further beside them")
{
    Marked at;
    CHECK(Clipboard::Copy(at.Model()).IsDone());
    CHECK(Clipboard::Paste(at).IsDone());
    CHECK(Clipboard::Paste(at).IsDone());
    REQUIRE(at.All().size() == 7);
    CHECK(at.All()[3].info().left == 20.0);
    CHECK(at.All()[3].info().top == 30.0);
    CHECK(at.All()[5].info().left == 30.0);
    CHECK(QApplication::clipboard()->mimeData()->hasImage());
}

TEST_CASE("cut and duplicate are one step each")
{
    Marked              at;
    const std::uint32_t steps = at.Steps();
    CHECK(Clipboard::Cut(at.Model()).IsDone());
    CHECK(at.All().size() == 1);
    CHECK(at.Steps() == steps + 1);
    at.On().undo();
    CHECK(at.All().size() == 3);
    QApplication::clipboard()->clear();
    at.On().select({at.All()[0]});
    CHECK(Clipboard::Duplicate(at.Model()).IsDone());
    REQUIRE(at.All().size() == 4);
    CHECK(at.All()[3].info().left == 20.0);
    CHECK(at.All()[3].selected());
    CHECK(at.Steps() == steps + 1);
    CHECK(Clipboard::Held() == Clipboard::Content::Nothing);
    at.On().select({});
    CHECK(Clipboard::Cut(at.Model()).Result == Outcome::Kind::Failed);
    CHECK(Clipboard::Paste(at).Result == Outcome::Kind::Failed);
}

TEST_CASE("other programs get a drawing, a table of measures and a picture of the copied objects")
{
    Marked at;
    CHECK(Clipboard::Copy(at.Model()).IsDone());
    const QMimeData* const data = QApplication::clipboard()->mimeData();

    QXmlStreamReader svg(data->data(QStringLiteral("image/svg+xml")));
    QStringList      shapes;
    QString          title;
    while (!svg.atEnd())
        if (svg.readNext() == QXmlStreamReader::StartElement) {
            if (svg.name() == QLatin1String("title"))
                title = svg.readElementText();
            else
                shapes << svg.name().toString();
        }
    CHECK_FALSE(svg.hasError());
    CHECK(title == QStringLiteral("first\tof <all>"));
    CHECK(shapes.count(QStringLiteral("polygon")) == 1);
    CHECK(shapes.count(QStringLiteral("polyline")) == 1);

    const QStringList lines = data->text().split(QLatin1Char('\n'));
    REQUIRE(lines.size() == 4);    // header, two objects, the end
    CHECK(lines[0].split(QLatin1Char('\t')).contains(QStringLiteral("area")));
    CHECK(lines[1].contains(QStringLiteral("first")));
    CHECK(lines[2].split(QLatin1Char('\t')).contains(QStringLiteral("50")));

    const QImage picture = qvariant_cast<QImage>(data->imageData());
    CHECK(picture.size() == QSize(100, 100));    // 10 to 90 and 20 to 100, with 10 around
}

TEST_CASE("objects are pasted from their text alone, as another program hands it on")
{
    Marked            at;
    const std::string text = at.On().regions_text(at.All());
    QApplication::clipboard()->setText(QString::fromStdString(text));
    CHECK(Clipboard::Held() == Clipboard::Content::Objects);
    CHECK(Clipboard::Paste(at).IsDone());
    CHECK(at.All().size() == 6);
    QApplication::clipboard()->setText(QStringLiteral("{\"vostel-regions\""));
    CHECK(Clipboard::Paste(at).Result == Outcome::Kind::Failed);
    QApplication::clipboard()->setText(QStringLiteral("hello"));
    CHECK(Clipboard::Held() == Clipboard::Content::Nothing);
}

TEST_CASE("a picture of another program becomes what is shown, in color, gray or deep as it is")
{
    Document document;
    QImage   colors(6, 4, QImage::Format_RGB32);
    colors.fill(QColor(10, 20, 30));
    QApplication::clipboard()->setImage(colors);
    CHECK(Clipboard::Held() == Clipboard::Content::Picture);
    CHECK(Clipboard::Paste(document).IsDone());
    CHECK(document.Model().Open().image_info()->type == VOSTEL_RGB8);
    CHECK(document.Model().Open().image_value(2, 2, 3) == 30.0);
    CHECK(document.IsModified());
    CHECK(document.Title() == QStringLiteral("Untitled"));
    colors.fill(QColor(9, 9, 9));
    QApplication::clipboard()->setImage(colors);
    CHECK(Clipboard::Paste(document).IsDone());
    CHECK(document.Model().Open().image_info()->type == VOSTEL_U8);
}

TEST_CASE("without a selection the picture is copied as it is shown, and a copied file is opened")
{
    const MadeFiles files;
    Marked          at;
    at.On().select({});
    CHECK(Clipboard::Copy(at.Model()).IsDone());
    CHECK(QApplication::clipboard()->image().pixelColor(20, 30) ==
          QImage(at.PicturePath()).pixelColor(20, 30));
    auto* const data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(files.Deep("a.png", 5, 5))});
    QApplication::clipboard()->setMimeData(data);
    CHECK(Clipboard::Held() == Clipboard::Content::Files);
    CHECK(Clipboard::Paste(at).IsDone());
    CHECK(at.Title() == QStringLiteral("a.png"));
}

TEST_CASE("every kind of object has its shape in the drawing")
{
    Marked at;
    at.On().add_arrow({1, 1}, {30, 1});
    at.On().add_angle({1, 1}, {5, 9}, {20, 3});
    at.On().add_angle_lines({1, 1}, {5, 9}, {20, 3}, {30, 30});
    at.On().add_points(std::vector<vostel::Point>{{3, 3}, {4, 4}});
    at.On().add_text({40, 40}, "a < b & c");
    at.On().add_free_strokes(std::vector<vostel::Point>{{3, 3}, {4, 4}, {9, 4}});
    at.On().add_panel({5, 5});
    at.On().select(at.All());
    CHECK(Clipboard::Copy(at.Model()).IsDone());
    const QByteArray svg = QApplication::clipboard()->mimeData()->data(QStringLiteral("image/svg+xml"));
    CHECK(svg.count("<g ") == 9);
    CHECK(svg.count("<circle") == 2);
    CHECK(svg.contains("a &lt; b &amp; c"));
}
