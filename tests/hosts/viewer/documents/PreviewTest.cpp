#include "documents/Preview.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QColor>

using namespace vostel::viewer;

TEST_CASE("a large JPEG has a coarse preview, other formats and what is no picture have none")
{
    const MadeFiles files;
    QImage          picture(2400, 1600, QImage::Format_RGB32);
    picture.fill(QColor(200, 40, 40));
    for (int y = 0; y < 800; ++y)
        for (int x = 0; x < 1200; ++x)
            picture.setPixel(x, y, 0x2050D0);
    REQUIRE(picture.save(files.Path("large.jpg"), "jpg", 95));
    REQUIRE(picture.save(files.Path("large.png")));
    const QImage preview = PreviewOf(files.Path("large.jpg"), QSize(600, 400));
    REQUIRE(preview.size() == QSize(600, 400));
    CHECK(qBlue(preview.pixel(100, 100)) > 150);
    CHECK(qRed(preview.pixel(500, 300)) > 150);
    CHECK(PreviewOf(files.Path("large.jpg"), QSize()).isNull());
    CHECK(PreviewOf(files.Path("large.jpg"), QSize(9999, 9999)).size() == picture.size());
    CHECK(PreviewOf(files.Path("large.png"), QSize(600, 400)).isNull());
    CHECK(PreviewOf(files.Bytes("bad.jpg", "\xFF\xD8\xFF\xE0 nothing more"), QSize(600, 400)).isNull());
    CHECK(PreviewOf(files.Path("missing.jpg"), QSize(600, 400)).isNull());
}
