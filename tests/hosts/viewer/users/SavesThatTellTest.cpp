#include "documents/Saves.h"
#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/users/AtTheWindow.h"
#include "support/Privileges.h"

#include <QDir>
#include <QLineEdit>

#include <sys/stat.h>

using namespace vostel::viewer;

namespace {

QString PathFor(const MadeFiles& files, const SaveKind& kind)
{
    return files.Path(kind.Id) + QLatin1Char('.') +
           QString::fromLatin1(kind.Formats.front().Ending).section(QLatin1Char(' '), 0, 0);
}

// The coins with a region and a length.
struct Measured : ShownWindow {
    Measured()
    {
        hand::Key("r");
        Drag(60, 60, 160, 140);
        hand::Key("l");
        Drag(50, 200, 250, 200);
        hand::Key("Escape");
        hand::Key("Escape");
    }

    // By the command and the dialog that it opens.
    void SaveAs(const char* kind, const QString& path)
    {
        bool answered = false;
        hand::InDialog([&](QDialog& dialog) {
            REQUIRE(dialog.objectName() == "Save");
            auto& name = hand::Of<QLineEdit>(dialog, "fileNameEdit");
            name.setText(path);
            name.setFocus();
            hand::Key("Return");
            answered = hand::Wait([&] { return !dialog.isVisible(); });
        });
        Window.Commands().Of(kind).trigger();
        REQUIRE(hand::Wait([&] { return answered; }));
        hand::Settle();
    }
};

}

TEST_CASE("every save of the menu says what it saved")
{
    const MadeFiles files;
    Measured        at;
    for (const SaveKind& kind : Saves::All()) {
        const QString path = PathFor(files, kind);
        at.SaveAs(kind.Id, path);
        CHECK(hand::TakeFailure() == "");
        CHECK_MESSAGE(at.Label("Hint").startsWith("Saved " + QFileInfo(path).fileName()),
                      at.Label("Hint").toStdString());
        CHECK(QFileInfo(path).size() > 20);
    }
}

TEST_CASE("a save into a folder that takes no files says where and why, whatever is saved")
{
    const MadeFiles files;
    Measured        at;
    REQUIRE(chmod(files.Folder().toLocal8Bit().constData(), 0500) == 0);
    for (const SaveKind& kind : Saves::All()) {
        const QString path = PathFor(files, kind);
        QString       failure;
        {
            const WithoutPrivileges nobody;
            at.SaveAs(kind.Id, path);
            failure = hand::TakeFailure();
        }
        CAPTURE(kind.Id);
        CHECK_MESSAGE(failure.contains(path), failure.toStdString());
        CHECK(failure.size() > path.size() + 10);
        CHECK(hand::IsEnglish(failure));
    }
    chmod(files.Folder().toLocal8Bit().constData(), 0700);
    CHECK(QDir(files.Folder()).isEmpty());
}

TEST_CASE("data that were saved come back as they were, not stretched")
{
    const MadeFiles    files;
    std::vector<float> values(64 * 48);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = 29169.0f + 0.25f * static_cast<float>(i);
    for (const char* const name : {"slice.tif", "slice.raw"}) {
        Measured at;
        at.Open().image_show(VOSTEL_F32, values.data(), 64, 48);
        at.SaveAs("data", files.Path(name));
        CHECK(at.Label("Hint").startsWith("Saved slice"));
        ShownWindow again({files.Path(name)});
        CHECK(again.Open().image_copy<float>().values == values);
    }
}

TEST_CASE("labels lie over the picture that they were drawn on, and the viewer opens them")
{
    const MadeFiles files;
    Measured        at;
    at.SaveAs("labels", files.Path("coins.labels.png"));
    ShownWindow again({files.Path("coins.labels.png")});
    CHECK(again.Label("Size").startsWith("384 x 303"));
    for (const QPoint inside : {QPoint(62, 62), QPoint(158, 138)})
        CHECK(again.Open().image_value(inside.x(), inside.y()) == 1.0);
    for (const QPoint outside : {QPoint(57, 62), QPoint(62, 57), QPoint(62, 303 - 62)})
        CHECK(again.Open().image_value(outside.x(), outside.y()) == 0.0);
}

TEST_CASE("a picture with objects has the size of the picture, whatever the zoom")
{
    const MadeFiles files;
    for (const int steps : {-6, 6}) {
        Measured at;
        hand::Wheel(at.View(), at.View().rect().center(), steps);
        const QString path = files.Path(steps < 0 ? "small.png" : "large.png");
        at.SaveAs("picture", path);
        CHECK(QImage(path).size() == QSize(384, 303));
    }
}

TEST_CASE("a name with an ending that cannot be written gets one that can, and says so")
{
    const MadeFiles files;
    Measured        at;
    at.SaveAs("picture", files.Path("record.webp"));
    CHECK(at.Label("Hint") == "Saved record.webp.png");
    CHECK(QFileInfo::exists(files.Path("record.webp.png")));
}
