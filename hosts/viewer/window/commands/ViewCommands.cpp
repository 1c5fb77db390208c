#include "canvas/CanvasView.h"
#include "canvas/ZoomTool.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/Language.h"
#include "window/MainWindow.h"
#include "window/Theme.h"
#include "window/ViewChoices.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

namespace vostel::viewer {

namespace {

constexpr CommandText Fit = {
    "view.fit", QT_TRANSLATE_NOOP("Commands", "&Whole image"), "Ctrl+0",
    QT_TRANSLATE_NOOP("Commands", "Shows the whole image as large as the window lets it")};
constexpr CommandText Actual = {"view.actual", QT_TRANSLATE_NOOP("Commands", "&100 %"), "Ctrl+1",
                                QT_TRANSLATE_NOOP("Commands", "One pixel of the image on one of the screen")};
constexpr CommandText ToSelection = {
    "view.selection", QT_TRANSLATE_NOOP("Commands", "Zoom to &selection"), "Ctrl+2",
    QT_TRANSLATE_NOOP("Commands", "Fills the window with the selected objects")};
constexpr CommandText In = {"view.zoomIn", QT_TRANSLATE_NOOP("Commands", "Zoom &in"), "Ctrl++", nullptr};
constexpr CommandText Out = {"view.zoomOut", QT_TRANSLATE_NOOP("Commands", "Zoom &out"), "Ctrl+-", nullptr};
constexpr CommandText Box = {"view.zoomBox", QT_TRANSLATE_NOOP("Commands", "Zoom &box"), "Z",
                             QT_TRANSLATE_NOOP("Commands", "Fills the window with a box that is dragged")};
constexpr CommandText Smooth = {
    "view.smooth", QT_TRANSLATE_NOOP("Commands", "S&mooth pixels"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Averages and interpolates pixels when zoomed")};
constexpr CommandText Rulers = {"view.rulers", QT_TRANSLATE_NOOP("Commands", "&Rulers"), "Ctrl+R", nullptr};
constexpr CommandText Grid = {"view.grid", QT_TRANSLATE_NOOP("Commands", "&Grid"), "Ctrl+G",
                              QT_TRANSLATE_NOOP("Commands", "Lines along the edges of pixels")};
constexpr CommandText Bar = {"view.scaleBar", QT_TRANSLATE_NOOP("Commands", "Sc&ale bar"), "Ctrl+B", nullptr};
constexpr CommandText Full = {"view.fullScreen", QT_TRANSLATE_NOOP("Commands", "&Full screen"), "F11",
                              nullptr};

constexpr CommandText SystemTheme = {"view.themeSystem", QT_TRANSLATE_NOOP("Commands", "As the &system"),
                                     nullptr, nullptr};
constexpr CommandText LightTheme = {"view.themeLight", QT_TRANSLATE_NOOP("Commands", "&Light"), nullptr,
                                    nullptr};
constexpr CommandText DarkTheme = {"view.themeDark", QT_TRANSLATE_NOOP("Commands", "&Dark"), nullptr,
                                   nullptr};
constexpr CommandText LargerText = {"view.textLarger", QT_TRANSLATE_NOOP("Commands", "Lar&ger text"),
                                    "Ctrl+Alt+=", nullptr};
constexpr CommandText SmallerText = {"view.textSmaller", QT_TRANSLATE_NOOP("Commands", "S&maller text"),
                                     "Ctrl+Alt+-", nullptr};

constexpr CommandText SystemLanguage = {"view.languageSystem",
                                        QT_TRANSLATE_NOOP("Commands", "As the &system"), nullptr, nullptr};
constexpr CommandText English = {"view.english", QT_TRANSLATE_NOOP("Commands", "&English"), nullptr, nullptr};
constexpr CommandText Chinese = {"view.chinese", QT_TRANSLATE_NOOP("Commands", "&Chinese"), nullptr, nullptr};

constexpr double ZoomFactor = 1.25;

}

void AddViewCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    const auto   hasImage = [&window] { return window.View().Model().HasImage(); };

    commands.Add(
        Menu::View, Fit, [&window] { window.View().Fit(); }, hasImage);
    commands.Add(
        Menu::View, Actual, [&window] { window.View().ShowActual(); }, hasImage);
    commands.Add(
        Menu::View, ToSelection, [&window] { window.View().ShowSelection(); },
        [&window] { return !window.View().Open().selection().empty(); });
    QAction& in = commands.Add(
        Menu::View, In, [&window] { window.View().Zoom(ZoomFactor); }, hasImage);
    if (in.shortcut() == commands.FirstKey(in))    // on many keyboards plus is Shift and equals
        in.setShortcuts({in.shortcut(), QKeySequence(QStringLiteral("Ctrl+="))});
    commands.Add(
        Menu::View, Out, [&window] { window.View().Zoom(1.0 / ZoomFactor); }, hasImage);
    commands.Add(
        Menu::View, Box, [&window] { window.View().Arm(std::make_unique<ZoomTool>(window.View())); },
        hasImage);
    commands.AddSeparator(Menu::View);
    commands.AddSwitch(
        Menu::View, Smooth, [&window](bool on) { window.View().Open().view_set_smooth(on); },
        [&window] { return window.View().Open().info().smooth != 0; });
    commands.AddSwitch(
        Menu::View, Rulers, [&window](bool on) { ViewChoices::SetRulers(window.Area(), on); },
        [&window] { return window.Area().HasRulers(); });
    commands.AddSwitch(
        Menu::View, Grid, [&window](bool on) { ViewChoices::SetGrid(window.Area(), on); },
        [&window] { return window.View().HasGrid(); });
    commands.AddSwitch(
        Menu::View, Bar, [&window](bool on) { ViewChoices::SetScaleBar(window.Area(), on); },
        [&window] { return window.View().HasScaleBar(); });
    commands.AddSeparator(Menu::View);
    commands.AddSwitch(
        Menu::View, Full, [&window](bool on) { on ? window.showFullScreen() : window.showNormal(); },
        [&window] { return window.isFullScreen(); });

    commands.BeginSubmenu(Menu::View, QT_TRANSLATE_NOOP("Commands", "&Colors and text"));
    ThemeKeeper& themes = window.Themes();
    const auto   addTheme = [&](const CommandText& text, Theme theme) {
        commands.AddSwitch(
              Menu::View, text, [&themes, theme](bool) { themes.Choose(theme); },
              [&themes, theme] { return themes.Chosen() == theme; });
    };
    addTheme(SystemTheme, Theme::System);
    addTheme(LightTheme, Theme::Light);
    addTheme(DarkTheme, Theme::Dark);
    commands.AddSeparator(Menu::View);
    commands.Add(Menu::View, LargerText, [&themes] { themes.SetTextStep(themes.TextStep() + 1); });
    commands.Add(Menu::View, SmallerText, [&themes] { themes.SetTextStep(themes.TextStep() - 1); });
    commands.EndSubmenu();

    commands.BeginSubmenu(Menu::View, QT_TRANSLATE_NOOP("Commands", "&Language"));
    const auto addLanguage = [&](const CommandText& text, const QString& language) {
        commands.AddSwitch(
            Menu::View, text,
            [&window, language](bool) {
                KeepLanguage(language);
                window.Report(Done(CommandList::tr("The language changes at the next start.")));
            },
            [language] { return KeptLanguage() == language; });
    };
    addLanguage(SystemLanguage, QString());
    addLanguage(English, QStringLiteral("en"));
    addLanguage(Chinese, QStringLiteral("zh_CN"));
    commands.EndSubmenu();
}

}
