#include "documents/Calibration.h"
#include "documents/CalibrationDialog.h"
#include "documents/Document.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/commands/CommandGroups.h"

namespace vostel::viewer {

namespace {

constexpr CommandText SetScale = {
    "measure.calibrate", QT_TRANSLATE_NOOP("Commands", "S&et scale..."), "Ctrl+U",
    QT_TRANSLATE_NOOP("Commands",
                      "By the true length of the selected line, or that of a pixel; all measures follow")};
constexpr CommandText NoScale = {
    "measure.calibrateNot", QT_TRANSLATE_NOOP("Commands", "For&get scale"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Measures are in px again, also of the next pictures of the folder")};

}

void AddCalibrationCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    commands.AddSeparator(Menu::Measure);
    commands.Add(
        Menu::Measure, SetScale, [&window] { window.Report(AskCalibration(window.Shown(), &window)); },
        [&window] { return window.Shown().Model().HasImage(); });
    commands.Add(
        Menu::Measure, NoScale, [&window] { window.Report(ForgetCalibration(window.Shown())); },
        [&window] { return Calibration::IsSet(window.Shown().Model()); });
}

}
