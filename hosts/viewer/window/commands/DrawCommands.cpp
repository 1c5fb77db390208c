#include "canvas/CanvasView.h"
#include "canvas/ClassicTool.h"
#include "canvas/DrawTools.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/MainWindow.h"
#include "window/StyleDialog.h"
#include "window/ViewChoices.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <QSettings>

namespace vostel::viewer {

namespace {

struct ShapeCommand {
    Shape       What;
    CommandText Text;
};

constexpr ShapeCommand Regions[] = {
    {Shape::Rectangle, {"draw.rectangle", QT_TRANSLATE_NOOP("Commands", "&Rectangle"), "R", nullptr}},
    {Shape::Ellipse, {"draw.ellipse", QT_TRANSLATE_NOOP("Commands", "&Ellipse"), "E", nullptr}},
    {Shape::Polygon, {"draw.polygon", QT_TRANSLATE_NOOP("Commands", "&Polygon"), "P", nullptr}},
    {Shape::Spline, {"draw.spline", QT_TRANSLATE_NOOP("Commands", "&Spline"), "S", nullptr}},
    {Shape::FreeRegion, {"draw.freeRegion", QT_TRANSLATE_NOOP("Commands", "&Free region"), "F", nullptr}}};

constexpr ShapeCommand Marks[] = {
    {Shape::Polyline, {"draw.polyline", QT_TRANSLATE_NOOP("Commands", "Poly&line"), "I", nullptr}},
    {Shape::Arrow, {"draw.arrow", QT_TRANSLATE_NOOP("Commands", "&Arrow"), "W", nullptr}},
    {Shape::Strokes, {"draw.strokes", QT_TRANSLATE_NOOP("Commands", "Stro&ke"), "K", nullptr}},
    {Shape::Text, {"draw.text", QT_TRANSLATE_NOOP("Commands", "&Text"), "T", nullptr}}};

constexpr ShapeCommand Measures[] = {
    {Shape::Length, {"measure.length", QT_TRANSLATE_NOOP("Commands", "&Length"), "L", nullptr}},
    {Shape::Angle, {"measure.angle", QT_TRANSLATE_NOOP("Commands", "&Angle"), "A", nullptr}},
    {Shape::AngleOfLines,
     {"measure.angleOfLines", QT_TRANSLATE_NOOP("Commands", "Angle of &two lines"), "Shift+A", nullptr}},
    {Shape::Profile, {"measure.profile", QT_TRANSLATE_NOOP("Commands", "&Profile"), "O", nullptr}},
    {Shape::Points, {"measure.points", QT_TRANSLATE_NOOP("Commands", "&Count marks"), "C", nullptr}},
    {Shape::Panel, {"measure.panel", QT_TRANSLATE_NOOP("Commands", "&Information window"), nullptr, nullptr}},
    {Shape::Neighbours,
     {"measure.neighbours", QT_TRANSLATE_NOOP("Commands", "&Neighbour values"), nullptr, nullptr}}};

constexpr CommandText Select = {
    "draw.select", QT_TRANSLATE_NOOP("Commands", "Select and &move"), "V",
    QT_TRANSLATE_NOOP("Commands", "Puts the tool away: presses select, drags move")};
constexpr CommandText NoSnap = {"draw.snapNone", QT_TRANSLATE_NOOP("Commands", "&Nowhere"), nullptr, nullptr};
constexpr CommandText Centres = {"draw.snapCentres", QT_TRANSLATE_NOOP("Commands", "To pixel &centres"),
                                 nullptr, nullptr};
constexpr CommandText Edges = {"draw.snapEdges", QT_TRANSLATE_NOOP("Commands", "To pixel &edges"), nullptr,
                               nullptr};
constexpr CommandText Look = {
    "draw.style", QT_TRANSLATE_NOOP("Commands", "Look of &drawn objects..."), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Colors, width and text height, also given to the selected objects")};
constexpr CommandText Classic = {
    "draw.classic", QT_TRANSLATE_NOOP("Commands", "&Classic gestures"), nullptr,
    QT_TRANSLATE_NOOP("Commands", "Shift draws, Control pans and zooms, as the canvas itself has it")};

void Arm(CanvasView& view, Shape shape)
{
    if (view.IsClassic() && shape != Shape::Ellipse)
        static_cast<ClassicTool&>(view.Current()).DrawNext(KindOf(shape));
    else
        view.Arm(MakeDrawTool(view, shape));
}

void AskStyle(MainWindow& window)
{
    auto* const dialog = new StyleDialog(StyleDialog::Kept(), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, &window, [dialog, &window] {
        StyleDialog::Keep(dialog->Chosen());
        for (CanvasPane* const pane : window.Area().All())
            pane->View().SetDrawingStyle(dialog->Chosen());
        window.View().Model().Try([&window](Canvas& canvas) {
            const Step one = canvas.step("Change style");
            for (const Object& object : canvas.selection())
                window.View().Dress(object);
        });
    });
    dialog->open();
}

// The armed tool is the pressed one in bars and menus.
template <std::size_t Count>
void AddShapes(MainWindow& window, Menu menu, const ShapeCommand (&shapes)[Count])
{
    for (const ShapeCommand& shape : shapes)
        window.Commands().AddSwitch(
            menu, shape.Text, [&window, shape](bool) { Arm(window.View(), shape.What); },
            [&window, shape] {
                const Tool* const tool = window.View().IsArmed() ? &window.View().Current() : nullptr;
                return tool && tool->Draws() == shape.What;
            });
}

}

void AddDrawCommands(MainWindow& window)
{
    CommandList& commands = window.Commands();
    commands.AddSwitch(
        Menu::Draw, Select, [&window](bool) { window.View().Disarm(); },
        [&window] { return !window.View().IsArmed(); });
    commands.AddSeparator(Menu::Draw);
    AddShapes(window, Menu::Draw, Regions);
    commands.AddSeparator(Menu::Draw);
    AddShapes(window, Menu::Draw, Marks);
    commands.AddSeparator(Menu::Draw);
    commands.BeginSubmenu(Menu::Draw, QT_TRANSLATE_NOOP("Commands", "S&nap points"));
    const auto addSnap = [&](const CommandText& text, Snap snap) {
        commands.AddSwitch(
            Menu::Draw, text, [&window, snap](bool) { ViewChoices::SetSnap(window.Area(), snap); },
            [&window, snap] { return window.View().Snapped() == snap; });
    };
    addSnap(NoSnap, Snap::None);
    addSnap(Centres, Snap::PixelCentres);
    addSnap(Edges, Snap::PixelEdges);
    commands.EndSubmenu();
    commands.Add(Menu::Draw, Look, [&window] { AskStyle(window); });
    commands.AddSwitch(
        Menu::Draw, Classic,
        [&window](bool on) {
            QSettings().setValue(QStringLiteral("ClassicGestures"), on);
            for (CanvasPane* const pane : window.Area().All())
                pane->View().SetClassic(on);
        },
        [&window] { return window.View().IsClassic(); });
}

void AddMeasureCommands(MainWindow& window)
{
    AddShapes(window, Menu::Measure, Measures);
}

}
