#include "commands/Commands.h"

#include <algorithm>
#include <iterator>

namespace {

using enum Command;
using enum CommandKind;

constexpr Menu Menus[] = {Menu::File, Menu::View, Menu::Draw, Menu::Process, Menu::Measure, Menu::Help};

constexpr bool Line = true;    // above the entry
constexpr bool ByViewer = true;
constexpr auto NoGroup = ChoiceGroup::None;

// A table is read by its columns.
// clang-format off
constexpr CommandEntry Commands[] = {
    {Open, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "&Open..."),
     QT_TRANSLATE_NOOP("Commands", "Open a picture or a raw file on the current canvas."),
     "Ctrl+O", "open", false, NoGroup, Needs::Nothing, ByViewer},
    {RecentFiles, Menu::File, Submenu, QT_TRANSLATE_NOOP("Commands", "&Recent files"),
     QT_TRANSLATE_NOOP("Commands", "Open a file that was open before."),
     "", "", false, NoGroup, Needs::Nothing, ByViewer},
    {SaveImageWithOverlays, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save image &with objects..."),
     QT_TRANSLATE_NOOP("Commands", "Save the image at its size on the screen, with all objects."),
     "Ctrl+S", "save", Line, NoGroup, Needs::Image},
    {SaveImageAsShown, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save image &as shown..."),
     QT_TRANSLATE_NOOP("Commands", "Save the image or its selected rectangle at its own resolution."),
     "Ctrl+Shift+S", "save", false, NoGroup, Needs::Image},
    {SaveClient, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save &canvas area..."),
     QT_TRANSLATE_NOOP("Commands", "Save the canvas, or the selected rectangle in it, as it is on the screen."),
     "", "save", false, NoGroup, Needs::Image},
    {Save8Bit, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save &8-bit gray..."),
     QT_TRANSLATE_NOOP("Commands", "Save the image as shown as an 8-bit gray bitmap."),
     "", "save", false, NoGroup, Needs::Image},
    {SaveFloat, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save &float data..."),
     QT_TRANSLATE_NOOP("Commands", "Save the data, stretched to 0..65535, as 32-bit floats without a header."),
     "", "save", false, NoGroup, Needs::FloatImage},
    {SaveLabels, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "Save &labels..."),
     QT_TRANSLATE_NOOP("Commands", "Save the numbers of the regions as 32-bit integers without a header."),
     "", "save", false, NoGroup, Needs::Image},
    {Quit, Menu::File, Action, QT_TRANSLATE_NOOP("Commands", "&Quit"),
     QT_TRANSLATE_NOOP("Commands", "Close the viewer."),
     "Ctrl+Q", "", Line, NoGroup, Needs::Nothing, ByViewer},

    {MouseFixed, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "&Fixed view"),
     QT_TRANSLATE_NOOP("Commands", "The mouse neither moves nor zooms the image."),
     "F2", "mouse-fixed", false, ChoiceGroup::Mouse},
    {MouseZoomCentre, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Zoom about the c&entre"),
     QT_TRANSLATE_NOOP("Commands", "Control and the wheel zoom about the centre of the image."),
     "F3", "mouse-centre", false, ChoiceGroup::Mouse},
    {MouseZoomCursor, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Zoom about the c&ursor"),
     QT_TRANSLATE_NOOP("Commands", "Control and the wheel zoom about the point under the cursor."),
     "F4", "mouse-cursor", false, ChoiceGroup::Mouse},
    {FastDisplay, Menu::View, Toggle, QT_TRANSLATE_NOOP("Commands", "&Nearest pixels (fast)"),
     QT_TRANSLATE_NOOP("Commands", "Show the nearest pixel of the image; switched off, the display is smoothed."),
     "F6", "fast", Line},
    {ContrastSlider, Menu::View, Toggle, QT_TRANSLATE_NOOP("Commands", "Contrast &slider"),
     QT_TRANSLATE_NOOP("Commands", "Show the slider that sets the darkest and the lightest value of float data."),
     "F7", "contrast"},
    {FitImage, Menu::View, Action, QT_TRANSLATE_NOOP("Commands", "&Whole image"),
     QT_TRANSLATE_NOOP("Commands", "Zoom and centre the image so that all of it shows."),
     "F5", "fit", false, NoGroup, Needs::Image},
    {OneCanvas, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "&One canvas"),
     QT_TRANSLATE_NOOP("Commands", "Show the current canvas alone."),
     "F8", "one", Line, ChoiceGroup::Arrangement, Needs::Nothing, ByViewer},
    {TileCanvases, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "&Tiled canvases"),
     QT_TRANSLATE_NOOP("Commands", "Show all five canvases side by side."),
     "F9", "tile", false, ChoiceGroup::Arrangement, Needs::Nothing, ByViewer},
    {Canvas1, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Canvas &1"),
     QT_TRANSLATE_NOOP("Commands", "Make this the current canvas."),
     "Ctrl+1", "", Line, ChoiceGroup::Canvas, Needs::Nothing, ByViewer},
    {Canvas2, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Canvas &2"),
     QT_TRANSLATE_NOOP("Commands", "Make this the current canvas."),
     "Ctrl+2", "", false, ChoiceGroup::Canvas, Needs::Nothing, ByViewer},
    {Canvas3, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Canvas &3"),
     QT_TRANSLATE_NOOP("Commands", "Make this the current canvas."),
     "Ctrl+3", "", false, ChoiceGroup::Canvas, Needs::Nothing, ByViewer},
    {Canvas4, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Canvas &4"),
     QT_TRANSLATE_NOOP("Commands", "Make this the current canvas."),
     "Ctrl+4", "", false, ChoiceGroup::Canvas, Needs::Nothing, ByViewer},
    {Canvas5, Menu::View, Choice, QT_TRANSLATE_NOOP("Commands", "Canvas &5"),
     QT_TRANSLATE_NOOP("Commands", "Make this the current canvas."),
     "Ctrl+5", "", false, ChoiceGroup::Canvas, Needs::Nothing, ByViewer},

    {DrawRectangle, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Rectangle"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and drag from corner to corner."),
     "Ctrl+R", "rectangle", false, NoGroup, Needs::Image},
    {DrawRectangleByNumbers, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "Rectangle by &numbers..."),
     QT_TRANSLATE_NOOP("Commands", "Give the edges of a rectangle in image pixels."),
     "Ctrl+Shift+R", "rectangle-numbers", false, NoGroup, Needs::Image},
    {DrawPolygon, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Polygon"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and click each corner."),
     "Ctrl+P", "polygon", false, NoGroup, Needs::Image},
    {DrawSpline, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Spline"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and click each point of the curve."),
     "Ctrl+B", "spline", false, NoGroup, Needs::Image},
    {DrawFreeRegion, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Free region"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and drag round the region."),
     "Ctrl+F", "free-region", false, NoGroup, Needs::Image},
    {DrawFreeStroke, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "Free stro&ke"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and drag; the keys A and D make the pen wider and narrower."),
     "Ctrl+K", "free-stroke", false, NoGroup, Needs::Image},
    {DrawTextBox, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Text..."),
     QT_TRANSLATE_NOOP("Commands", "Add a line of text that is tied to the image; drag it to its place."),
     "Ctrl+T", "text", Line, NoGroup, Needs::Image},
    {DrawTextLines, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "Text &lines..."),
     QT_TRANSLATE_NOOP("Commands", "Add a box of several lines; drag it to its place."),
     "Ctrl+Shift+T", "text-lines", false, NoGroup, Needs::Image, ByViewer},
    {DeleteSelected, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "&Delete selected"),
     QT_TRANSLATE_NOOP("Commands", "Delete the selected object."),
     "Del", "delete", Line, NoGroup, Needs::Image},
    {DeleteAll, Menu::Draw, Action, QT_TRANSLATE_NOOP("Commands", "Delete &all"),
     QT_TRANSLATE_NOOP("Commands", "Delete all objects of the current canvas."),
     "Ctrl+Del", "delete-all", false, NoGroup, Needs::Image},

    {Convolve, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Convolution..."),
     QT_TRANSLATE_NOOP("Commands", "Filter with a box, sharpening, Sobel or Laplace kernel."),
     "Ctrl+Shift+C", "convolution", false, NoGroup, Needs::Image},
    {ConvolveByForm, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "Convolution by for&m..."),
     QT_TRANSLATE_NOOP("Commands", "Filter by one of the routines that treat the border differently."),
     "", "convolution", false, NoGroup, Needs::Image},
    {Gauss, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Gaussian smoothing..."),
     QT_TRANSLATE_NOOP("Commands", "Smooth with a Gaussian kernel."),
     "Ctrl+G", "gauss", false, NoGroup, Needs::Image},
    {Threshold, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Threshold..."),
     QT_TRANSLATE_NOOP("Commands", "Mark the pixels that are brighter than the mean around them."),
     "Ctrl+H", "threshold", false, NoGroup, Needs::Image},
    {Command::Resize, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "Re&size..."),
     QT_TRANSLATE_NOOP("Commands", "Scale the image to another size."),
     "Ctrl+E", "resize", false, NoGroup, Needs::Image},
    {FourierTransform, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Fourier transform..."),
     QT_TRANSLATE_NOOP("Commands", "Show the spectrum of the rows, the columns or the whole image."),
     "Ctrl+Shift+F", "fourier", Line, NoGroup, Needs::Image},
    {RampFilter, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Ramp filter..."),
     QT_TRANSLATE_NOOP("Commands", "Filter the rows as filtered back-projection does."),
     "", "ramp", false, NoGroup, Needs::Image},
    {Concatenate, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Join two canvases..."),
     QT_TRANSLATE_NOOP("Commands", "Put the image of another canvas to the right of this one."),
     "Ctrl+J", "join", Line, NoGroup, Needs::Image},
    {MatrixProduct, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "Matrix &product..."),
     QT_TRANSLATE_NOOP("Commands", "Multiply this image with the one of another canvas, as matrices."),
     "", "matrix", false, NoGroup, Needs::Image},
    {LabelImage, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "&Label image"),
     QT_TRANSLATE_NOOP("Commands", "Show the numbers of the drawn regions as an image."),
     "", "labels", Line, NoGroup, Needs::Image},
    {FilledShape, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "F&illed shape..."),
     QT_TRANSLATE_NOOP("Commands", "Fill an ellipse, a polygon or a spline in an empty plane."),
     "", "fill", false, NoGroup, Needs::Nothing},
    {GaussCurve, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "Gaussian cur&ve..."),
     QT_TRANSLATE_NOOP("Commands", "Show the values of a Gaussian curve as an image."),
     "", "gauss-curve", Line, NoGroup, Needs::Nothing},
    {GaussKernel, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "Gaussian &kernel..."),
     QT_TRANSLATE_NOOP("Commands", "Show a Gaussian kernel as an image."),
     "", "gauss-kernel", false, NoGroup, Needs::Nothing},
    {RampKernel, Menu::Process, CommandKind::Routine, QT_TRANSLATE_NOOP("Commands", "R&amp kernel..."),
     QT_TRANSLATE_NOOP("Commands", "Show the taps of the ramp filter, or their spectrum, as an image."),
     "", "ramp-kernel", false, NoGroup, Needs::Nothing},
    {CancelRoutine, Menu::Process, Action, QT_TRANSLATE_NOOP("Commands", "Cancel the r&outine"),
     QT_TRANSLATE_NOOP("Commands", "Stop the routine that is under way; the image stays as it is."),
     "Esc", "cancel", Line, NoGroup, Needs::Nothing, ByViewer},
    {UndoRoutine, Menu::Process, Action, QT_TRANSLATE_NOOP("Commands", "&Undo the routine"),
     QT_TRANSLATE_NOOP("Commands", "Show the image again that the last routine worked on."),
     "Ctrl+Z", "undo", false, NoGroup, Needs::Nothing},

    {LineProfile, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "Line &profile"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and drag a line; its values are plotted while the mouse moves."),
     "Ctrl+Shift+P", "profile", false, NoGroup, Needs::Image},
    {InfoWindow, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "&Information window"),
     QT_TRANSLATE_NOOP("Commands", "Show the position and the value under the cursor on the canvas."),
     "Ctrl+I", "info", false, NoGroup, Needs::Image},
    {NeighbourValues, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "&Neighbour values"),
     QT_TRANSLATE_NOOP("Commands", "Show the five by five values round the cursor on the canvas."),
     "Ctrl+N", "neighbours", false, NoGroup, Needs::Image},
    {MeasureLength, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "&Length"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and drag from end to end."),
     "Ctrl+M", "length", Line, NoGroup, Needs::Image},
    {MeasureAngle3, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "&Angle of three points"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and click; then drag the three points to their places."),
     "Ctrl+A", "angle3", false, NoGroup, Needs::Image},
    {MeasureAngle4, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "Angle of &four points"),
     QT_TRANSLATE_NOOP("Commands", "Hold Shift and click; then drag the ends of the two lines to their places."),
     "Ctrl+Shift+A", "angle4", false, NoGroup, Needs::Image},
    {MeasureScale, Menu::Measure, Action, QT_TRANSLATE_NOOP("Commands", "&Scale..."),
     QT_TRANSLATE_NOOP("Commands", "Give the length of an image pixel for the measures that follow."),
     "Ctrl+Shift+M", "scale", Line, NoGroup, Needs::Nothing},

    {HelpGestures, Menu::Help, Action, QT_TRANSLATE_NOOP("Commands", "&Gestures and keys"),
     QT_TRANSLATE_NOOP("Commands", "How the mouse and the keys work."),
     "F1", "help", false, NoGroup, Needs::Nothing, ByViewer},
    {About, Menu::Help, Action, QT_TRANSLATE_NOOP("Commands", "&About"),
     QT_TRANSLATE_NOOP("Commands", "Name and version of the viewer."),
     "", "", false, NoGroup, Needs::Nothing, ByViewer},
};
// clang-format on

}

std::span<const CommandEntry> AllCommands()
{
    return Commands;
}

std::span<const Menu> AllMenus()
{
    return Menus;
}

const char* MenuTitle(Menu menu)
{
    switch (menu) {
    case Menu::File:
        return QT_TRANSLATE_NOOP("Commands", "&File");
    case Menu::View:
        return QT_TRANSLATE_NOOP("Commands", "&View");
    case Menu::Draw:
        return QT_TRANSLATE_NOOP("Commands", "&Draw");
    case Menu::Process:
        return QT_TRANSLATE_NOOP("Commands", "&Process");
    case Menu::Measure:
        return QT_TRANSLATE_NOOP("Commands", "&Measure");
    case Menu::Help:
        return QT_TRANSLATE_NOOP("Commands", "&Help");
    }
    return "";
}

const CommandEntry* FindCommand(Command id)
{
    const auto found = std::find_if(std::begin(Commands), std::end(Commands),
                                    [id](const CommandEntry& entry) { return entry.Id == id; });
    return found == std::end(Commands) ? nullptr : found;
}
