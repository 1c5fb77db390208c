#include "documents/Calibration.h"

#include "documents/CalibrationDialog.h"
#include "documents/Document.h"
#include "documents/FolderSettings.h"
#include "hosts/viewer/Hand.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace vostel::viewer;

TEST_CASE("a drawn length of 50 px that is 5 mm makes a pixel 0.1 mm, as one step, for all measures")
{
    Document document;
    REQUIRE(document.Open(QStringLiteral(VOSTEL_SAMPLES "/coins.png")).IsDone());
    vostel::Canvas&      canvas = document.Model().Open();
    const vostel::Object line = canvas.add_length({10, 10}, {40, 50});
    const vostel::Object other = canvas.add_length({0, 0}, {200, 0});
    const auto           steps = canvas.history_info().undo_count;
    CHECK_FALSE(Calibration::IsSet(document.Model()));
    const Outcome outcome = Calibration::ByLength(document.Model(), line, 5.0, QStringLiteral("mm"));
    CHECK(outcome.Text == QStringLiteral("A pixel is 0.1 mm"));
    CHECK(other.measure().length == doctest::Approx(20.0));
    CHECK(Calibration::IsSet(document.Model()));
    CHECK(canvas.history_info().undo_count == steps + 1);
    CHECK(document.IsModified());
    CHECK(Calibration::ByLength(document.Model(), other, 40.0, QStringLiteral("mm")).IsDone());    // anew
    CHECK(Calibration::Of(document.Model()).UnitsPerPixel == doctest::Approx(0.2));
    canvas.undo();
    canvas.undo();
    CHECK_FALSE(Calibration::IsSet(document.Model()));
}

TEST_CASE("what cannot be a scale is refused with a reason and changes nothing")
{
    Document        document;
    CanvasModel&    model = document.Model();
    vostel::Canvas& canvas = model.Open();
    const auto      refused = [](const Outcome& outcome) {
        return outcome.Result == Outcome::Kind::Failed && !outcome.Text.isEmpty();
    };
    const vostel::Object dot = canvas.add_length({3, 3}, {3, 3});
    const vostel::Object region = canvas.add_rectangle(1, 1, 5, 5);
    const vostel::Object line = canvas.add_length({0, 0}, {9, 0});
    const QString        mm = QStringLiteral("mm");
    CHECK(refused(Calibration::ByLength(model, dot, 1.0, mm)));
    CHECK(refused(Calibration::ByLength(model, region, 1.0, mm)));
    CHECK(refused(Calibration::ByLength(model, line, 0.0, mm)));
    CHECK(refused(Calibration::ByLength(model, line, std::nan(""), mm)));
    CHECK(refused(Calibration::ByLength(model, line, 1.0, QStringLiteral("  "))));
    CHECK(refused(Calibration::Set(model, {-1.0, mm})));
    canvas.object_remove(line);
    CHECK(refused(Calibration::ByLength(model, line, 1.0, mm)));
    CHECK_FALSE(Calibration::IsSet(model));
}

TEST_CASE("pictures of a folder come with its scale until it is forgotten, those of others in px")
{
    const MadeFiles files, others;
    Document        document;
    Calibration::KeepForFolder(FolderOf(files.Path("a.png")), {0.25, QStringLiteral("µm")});
    REQUIRE(document.Open(files.Deep("a.png", 8, 8)).IsDone());
    CHECK(Calibration::Of(document.Model()).UnitsPerPixel == 0.25);
    CHECK(Calibration::Of(document.Model()).Unit == QStringLiteral("µm"));
    CHECK_FALSE(document.IsModified());
    CHECK(document.Model().Open().history_info().undo_count == 0);
    REQUIRE(document.Open(others.Deep("b.png", 8, 8)).IsDone());
    CHECK_FALSE(Calibration::IsSet(document.Model()));
    CHECK_FALSE(document.IsModified());
    Calibration::ForgetFolder(files.Folder());
    REQUIRE(document.Open(files.Path("a.png")).IsDone());
    CHECK_FALSE(Calibration::IsSet(document.Model()));
}

TEST_CASE("a session keeps its own scale beside that of its folder")
{
    const MadeFiles files;
    Calibration::KeepForFolder(files.Folder(), {0.25, QStringLiteral("mm")});
    const QString session = files.Path("a.vostel.json");
    {
        Document document;
        REQUIRE(document.Open(files.Deep("a.png", 8, 8)).IsDone());
        REQUIRE(Calibration::Set(document.Model(), {3.0, QStringLiteral("cm")}).IsDone());
        REQUIRE(document.SaveSession(session).IsDone());
    }
    Document document;
    REQUIRE(document.Open(session).IsDone());
    CHECK(Calibration::Of(document.Model()).Unit == QStringLiteral("cm"));
}

TEST_CASE("in the dialog the true length of the selected line and Enter calibrate the picture and its folder")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(files.Deep("a.png", 60, 60)).IsDone());
    vostel::Canvas& canvas = document.Model().Open();
    canvas.select({canvas.add_length({10, 10}, {40, 50})});
    QTimer::singleShot(0, [] {
        REQUIRE(hand::Wait([] { return QApplication::activeModalWidget() != nullptr; }));
        QWidget& dialog = *QApplication::activeModalWidget();
        hand::Settle();
        CHECK(hand::Of<QLineEdit>(dialog, "CalibrationNumber").text() == QStringLiteral("50"));
        hand::Type("5");
        hand::Key("alt+f");
        CHECK(hand::Wait([&] { return hand::Of<QCheckBox>(dialog, "CalibrationForFolder").isChecked(); }));
        CHECK(hand::Of<QLabel>(dialog, "CalibrationVerdict").text() == QStringLiteral("A pixel is 0.1 mm."));
        hand::Keep(dialog, "calibration");
        hand::Key("Return");
    });
    CHECK(AskCalibration(document, nullptr).Text == QStringLiteral("A pixel is 0.1 mm"));
    CHECK(Calibration::OfFolder(files.Folder())->UnitsPerPixel == doctest::Approx(0.1));
    CHECK(ForgetCalibration(document).IsDone());
    CHECK_FALSE(Calibration::OfFolder(files.Folder()).has_value());
    CHECK_FALSE(Calibration::IsSet(document.Model()));
}

TEST_CASE("without a line the dialog takes the length of a pixel, and nothing that is no length")
{
    Document          document;
    CalibrationDialog dialog(document);
    auto&             number = hand::Of<QLineEdit>(dialog, "CalibrationNumber");
    const auto&       ok = *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    CHECK(number.text() == QStringLiteral("1"));
    CHECK(ok.isEnabled());
    for (const char* const wrong : {"", "0", "-3", "abc", "nan", "inf"}) {
        number.setText(QString::fromLatin1(wrong));
        CHECK_FALSE(ok.isEnabled());
    }
    number.setText(QStringLiteral("0.25"));
    CHECK(ok.isEnabled());
    CHECK(dialog.Apply().IsDone());
    CHECK(Calibration::Of(document.Model()).UnitsPerPixel == 0.25);
}
