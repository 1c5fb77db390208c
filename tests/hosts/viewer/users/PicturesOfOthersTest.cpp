#include "hosts/viewer/users/AtTheWindow.h"
#include "hosts/viewer/users/OddFiles.h"

#include <QSpinBox>
#include <QTabBar>

using namespace vostel::viewer;

namespace {

// A window with one of those files, and what its status bar tells of them.
struct Opened : ShownWindow {
    explicit Opened(const QString& path) : ShownWindow(QStringList{path})
    {
        const QString failure = hand::TakeFailure();
        CHECK_MESSAGE(failure.isEmpty(), failure.toStdString());
    }

    QString ValuesAt(double x, double y)
    {
        hand::Move(View(), At(x + 0.5, y + 0.5));
        return Label("Values");
    }

    // The darkest and the lightest shade on the screen where the image lies.
    std::pair<int, int> Shades()
    {
        const QImage grab = View().grab().toImage();
        const QRect  image = QRect(At(0, 0), At(Open().image_info()->width, Open().image_info()->height));
        int          dark = 255, light = 0;
        for (int y = std::max(0, image.top() + 2); y < std::min(grab.height(), image.bottom() - 2); ++y)
            for (int x = std::max(0, image.left() + 2); x < std::min(grab.width(), image.right() - 2); ++x) {
                dark = std::min(dark, qGray(grab.pixel(x, y)));
                light = std::max(light, qGray(grab.pixel(x, y)));
            }
        return {dark, light};
    }
};

// What the status bar says of an entry of the palette that the files have.
QString EntryText(int index)
{
    const auto color = files::EntryColor(index);
    return QStringLiteral("RGB %1 %2 %3, ").arg(color[2]).arg(color[1]).arg(color[0]);
}

files::Bytes Counted(std::size_t count, int bytesOfEach, std::uint32_t first, std::uint32_t step)
{
    files::Bytes bytes;
    for (std::size_t i = 0; i < count; ++i)
        files::Little(bytes, first + static_cast<std::uint32_t>(i) * step, bytesOfEach);
    return bytes;
}

}

TEST_CASE("pictures of 16 bits show the values of the file, and are neither black nor white")
{
    const MadeFiles files;
    files::TiffPage page;
    page.Width = 8;
    page.Height = 6;
    page.Bits = 16;
    page.Blocks = {Counted(48, 2, 27698, 100)};
    for (const QString& path :
         {files.Deep("deep.png", 8, 6, 27698), files.Bytes("deep.tif", odd::Raw(files::TiffOf(page)))}) {
        Opened at(path);
        CHECK(at.ValuesAt(0, 0) == "Value 27698");
        CHECK(at.ValuesAt(3, 0) == (path.endsWith("png") ? "Value 27701" : "Value 27998"));
        CHECK(at.Label("Size") == "8 x 6, 16 bits");
        CHECK(at.Shades() == std::pair(0, 255));
    }
}

TEST_CASE("a 16-bit TIFF of values up to 255 is seen as it is, black and white")
{
    const MadeFiles files;
    files::TiffPage page;
    page.Width = page.Height = 4;
    page.Bits = 16;
    page.Blocks = {Counted(16, 2, 0, 17)};
    Opened at(files.Bytes("chess.tif", odd::Raw(files::TiffOf(page))));
    CHECK(at.ValuesAt(3, 3) == "Value 255");
    CHECK(at.Shades() == std::pair(0, 255));
}

TEST_CASE("a float TIFF opens with its values")
{
    const MadeFiles    files;
    std::vector<float> values(48);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = -0.25f + 0.5f * static_cast<float>(i);
    files::TiffPage page;
    page.Width = 8;
    page.Height = 6;
    page.Bits = 32;
    page.Format = 3;
    page.Blocks.emplace_back(4 * values.size());
    std::memcpy(page.Blocks[0].data(), values.data(), 4 * values.size());
    Opened at(files.Bytes("slice.tif", odd::Raw(files::TiffOf(page))));
    CHECK(at.ValuesAt(0, 0) == "Value -0.25");
    CHECK(at.ValuesAt(7, 5) == "Value 23.25");
    CHECK(at.Label("Size") == "8 x 6, float");
    CHECK(at.Shades() == std::pair(0, 255));
}

TEST_CASE("palette pictures show the colors of their palettes, and the brightness of these")
{
    const MadeFiles    files;
    const files::Bytes entries = {9, 200, 31, 77, 200, 9};
    files::Bytes       runs = files::Bmp(3, 2, 8, entries);
    runs[30] = 1;    // in runs
    runs.resize(54 + 1024);
    files::Append(runs, {1, 77, 1, 200, 1, 9, 0, 0, 0, 3, 9, 200, 31, 0, 0, 1});
    for (const QString& path :
         {files.Bytes("plain.bmp", odd::Raw(files::Bmp(3, 2, 8, entries))),
          files.Bytes("runs.bmp", odd::Raw(runs)),
          files.Bytes("web.gif", odd::Raw(files::Gif(3, 2, entries))),
          files.Bytes("web.png", odd::Raw(files::Png(3, 2, 8, files::Indexed, entries)))}) {
        INFO(path.toStdString());
        Opened at(path);
        for (int i = 0; i < 6; ++i) {
            const QString values = at.ValuesAt(i % 3, i / 3);
            const auto    color = files::EntryColor(entries[static_cast<std::size_t>(i)]);
            CHECK_MESSAGE(values.startsWith(EntryText(entries[static_cast<std::size_t>(i)])),
                          values.toStdString());
            const double gray = 0.299 * color[2] + 0.587 * color[1] + 0.114 * color[0];
            CHECK(std::abs(values.section("gray ", 1).toDouble() - gray) <= 1.0);
        }
    }
}

TEST_CASE("bitmaps of 1, 4 and 16 bits, faxes, PNM, WebP and color in planes of 16 bits open")
{
    const MadeFiles files;
    const auto      bmp = [&](const char* name, int width, int height, int bits, const files::Bytes& rows) {
        return files.Bytes(name, odd::Raw(files::Bmp(width, height, bits, rows)));
    };
    files::TiffPage planes;
    planes.Width = planes.Height = 2;
    planes.Bits = 16;
    planes.Samples = 3;
    planes.Photometric = 2;
    planes.Planar = 2;
    for (const std::uint32_t value : {0xFFFFu, 0x8080u, 0u})
        planes.Blocks.push_back(Counted(4, 2, value, 0));
    files::Bytes four = files::Bmp(3, 1, 4, {0x1F, 0x30});
    four[30] = 2;    // in runs of half bytes
    four.resize(54 + 64);
    files::Append(four, {1, 0x10, 2, 0xF3, 0, 0, 0, 1});
    const struct {
        QString Path;
        int     X, Y;
        QString Values;
        QString Size;
    } kinds[] = {
        {bmp("one.bmp", 8, 2, 1, {0b10100000, 0}), 1, 0, EntryText(0), "8 x 2, color"},
        {bmp("four.bmp", 3, 1, 4, {0x1F, 0x30}), 1, 0, EntryText(15), "3 x 1, color"},
        {files.Bytes("fourruns.bmp", odd::Raw(four)), 2, 0, EntryText(3), "3 x 1, color"},
        {bmp("sixteen.bmp", 2, 1, 16, {0xFF, 0x7F, 0x10, 0x00}), 1, 0, "RGB 0 0 132, ", "2 x 1, color"},
        {files.Bytes("g3.tif", odd::FaxTiff(3)), 3, 7, "Value 255", "32 x 8, 8 bits"},
        {files.Bytes("g4.tif", odd::FaxTiff(4)), 4, 7, "Value 0", "32 x 8, 8 bits"},
        {files.Bytes("plain.pgm", QByteArray("P5 2 1 255\n\x07\x50", 13)), 1, 0, "Value 80", "2 x 1, 8 bits"},
        {files.Bytes("deep.pgm", QByteArray("P5 2 1 65535\n\x12\x34\xFF\xFF", 17)), 0, 0, "Value 4660",
         "2 x 1, 16 bits"},
        {files.Bytes("web.webp", odd::Webp()), 5, 3, "RGB 10 20 30, ", "6 x 4, color"},
        {files.Bytes("planes.tif", odd::Raw(files::TiffOf(planes))), 1, 1, "RGB 255 128 0, ",
         "2 x 2, color"}};
    for (const auto& kind : kinds) {
        INFO(kind.Path.toStdString());
        Opened        at(kind.Path);
        const QString values = at.ValuesAt(kind.X, kind.Y);
        CHECK_MESSAGE(values.startsWith(kind.Values), values.toStdString());
        CHECK(at.Label("Size") == kind.Size);
    }
}

TEST_CASE("a photo stands upright, however the camera was held")
{
    const MadeFiles files;
    const struct {
        int    Orientation;
        QPoint White;    // of the picture as it is shown
    } turns[] = {{1, {3, 3}}, {3, {44, 20}}, {6, {20, 3}}, {8, {3, 44}}};
    for (const auto& turn : turns) {
        INFO("orientation " << turn.Orientation);
        Opened     at(files.Bytes("photo.jpg", odd::TurnedJpeg(turn.Orientation)));
        const bool lies = turn.Orientation < 5;
        CHECK(at.Label("Size") == (lies ? "48 x 24, 8 bits" : "24 x 48, 8 bits"));
        CHECK(at.ValuesAt(turn.White.x(), turn.White.y()) == "Value 255");
        CHECK(at.ValuesAt(12, 12) == "Value 0");
    }
}

TEST_CASE("all pages of a TIFF are there, behind a slider, a number and the title")
{
    const MadeFiles              files;
    std::vector<files::TiffPage> pages(3);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        pages[i].Width = pages[i].Height = 4;
        pages[i].Samples = 3;
        pages[i].Photometric = 2;
        pages[i].Blocks = {files::Bytes(48, static_cast<unsigned char>(40 * (i + 1)))};
    }
    Opened at(files.Bytes("pages.tif", odd::Raw(files::TiffOf(pages))));
    CHECK(at.Window.windowTitle().startsWith("pages.tif, page 1 of 3"));
    CHECK(at.ValuesAt(1, 1).startsWith("RGB 40 40 40"));
    QSpinBox* number = nullptr;
    for (QSpinBox* const one : at.Window.findChildren<QSpinBox*>())
        if (one->isVisible() && one->maximum() == 3)
            number = one;
    REQUIRE(number);
    number->setFocus();
    hand::Key("Up");
    CHECK(at.Window.windowTitle().startsWith("pages.tif, page 2 of 3"));
    CHECK(at.ValuesAt(1, 1).startsWith("RGB 80 80 80"));
}

TEST_CASE("what cannot be opened is refused with its own reason, and leaves no ghost behind")
{
    const MadeFiles files;
    ShownWindow     at{QStringList()};
    const QImage    before = at.View().grab().toImage();
    const auto      refused = [&](const QString& path) {
        at.OpenAll({path});
        const QString failure = hand::TakeFailure();
        CHECK_MESSAGE(failure.contains(path), failure.toStdString());
        CHECK(hand::IsEnglish(failure));
        CHECK_FALSE(at.View().Model().HasImage());
        CHECK_MESSAGE(at.View().grab().toImage() == before, failure.toStdString());
        return failure;
    };
    const QByteArray bmp = odd::Raw(files::Bmp(40, 30, 16, files::Bytes(2400, 9)));
    const QByteArray png = odd::Raw(files::Png(40, 30, 8, files::Gray, files::Bytes(1200, 9)));
    const QByteArray fax = odd::FaxTiff(4);
    CHECK(refused(files.Bytes("half.bmp", bmp.left(1200))).contains("BMP file that is cut short"));
    CHECK(refused(files.Bytes("half.png", png.left(600))).contains("PNG file that is cut short"));
    CHECK(refused(files.Bytes("half.jpg", odd::TurnedJpeg(1).left(300)))
              .contains("JPEG file that is cut short"));
    CHECK(refused(files.Bytes("half.tif", fax.left(fax.size() / 2))).contains("TIFF file that is"));
    CHECK(refused(files.Bytes("half.webp", odd::Webp().left(25))).contains("WebP file that is cut short"));
    CHECK(refused(files.Bytes("empty.tif", {})).contains("is empty"));
    CHECK(refused(files.Bytes("empty.raw", {})).contains("is empty"));
    CHECK(refused(files.Bytes("text.png", "No picture.")).contains("is no picture"));
    CHECK(refused(files.Bytes("sky.fits", "SIMPLE  =                    T")).contains("is a FITS file"));
    CHECK(refused(files.Bytes("scan.dcm", QByteArray(128, 0) + "DICM")).contains("is a DICOM file"));
    CHECK(refused(files.Path("none.png")).contains("does not exist"));
    CHECK(refused("/dev/zero").contains("a pipe or a device"));
}
