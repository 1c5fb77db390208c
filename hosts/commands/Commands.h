#pragma once

// The one table of what a viewer offers. Each viewer builds its menus from it, so that they cannot drift
// apart, and carries out itself only what needs its windows.

#include "commands/Texts.h"

#include <VostelObj.h>

#include <span>
#include <string>

namespace vostel::viewer {

inline constexpr int         CanvasCount = 5;
inline constexpr const char* ViewerName = Words("Vostel Viewer");

enum class Menu : int { File, Edit, View, Draw, Process, Measure, Help };

// Numbers are the viewers' own and fit a menu's: they may change between versions.
enum class Command : int {
    // File
    Open = 1,
    RecentFiles,
    SaveSession,
    SaveSessionAs,
    SaveClient,
    SaveImageWithOverlays,
    SaveImageAsShown,
    Save8Bit,
    SaveFloat,
    SaveLabels,
    Quit,
    // Edit
    Undo,
    Redo,
    // View
    MouseFixed,
    MouseZoomCentre,
    MouseZoomCursor,
    FastDisplay,
    ContrastSlider,
    FitImage,
    OneCanvas,
    TileCanvases,
    Canvas1,    // the five stand together and in order
    Canvas2,
    Canvas3,
    Canvas4,
    Canvas5,
    SpeakEnglish,
    SpeakChinese,
    // Draw
    DrawRectangle,
    DrawRectangleByNumbers,
    DrawPolygon,
    DrawSpline,
    DrawFreeRegion,
    DrawFreeStroke,
    DrawTextBox,
    DrawTextLines,
    DeleteSelected,
    DeleteAll,
    KeysForAll,
    // Process: the image routines of Routines.h
    Convolve,
    ConvolveByForm,
    Gauss,
    Threshold,
    Resize,
    FourierTransform,
    RampFilter,
    Concatenate,
    MatrixProduct,
    LabelImage,
    FilledShape,
    GaussCurve,
    GaussKernel,
    RampKernel,
    CancelRoutine,
    UndoRoutine,
    // Measure
    LineProfile,
    InfoWindow,
    NeighbourValues,
    MeasureLength,
    MeasureAngle3,
    MeasureAngle4,
    MeasureScale,
    MeasureTable,
    // Help
    HelpGestures,
    About
};

enum class CommandKind : int {
    Action,     // happens once
    Toggle,     // on or off, as IsOn returns
    Choice,     // one of its Group is on, as IsOn returns
    Submenu,    // the viewer fills it
    Routine     // FindRoutine of Routines.h has it: parameters, then work on a thread
};

enum class ChoiceGroup : int { None, Mouse, Arrangement, Canvas, Language };

enum class Needs : int { Nothing, Image, FloatImage };    // what the canvas must show

struct CommandEntry {
    Command     Id;
    Menu        In;
    CommandKind Kind = CommandKind::Action;
    const char* Text;             // English, & before the mnemonic, "..." where a dialog follows
    const char* Hint;             // English, one sentence for the status bar
    const char* Shortcut = "";    // "Ctrl+Shift+S", "F5", "Del", "Esc"; "" for none. A viewer forwards no key
                                  // with Control to a canvas, which would take Ctrl+R for R.
    const char* Icon = "";        // a name in lower case; "" for none
    bool        SeparatorBefore = false;
    ChoiceGroup Group = ChoiceGroup::None;
    Needs       Need = Needs::Nothing;
    bool        ByViewer = false;    // needs a window: RunCommand leaves it to the viewer
};

std::span<const CommandEntry> AllCommands();    // in the order of the menus and within them
std::span<const Menu>         AllMenus();
const char*                   MenuTitle(Menu menu);    // English, & before the mnemonic
const CommandEntry*           FindCommand(Command id);

// What the canvas shows allows the command. Whether a routine is under way only the viewer knows.
bool IsAvailable(Command id, int canvas);

// The state of a toggle or a choice that RunCommand keeps; false for those of the viewer.
bool IsOn(Command id, int canvas);

// Carries out what needs no window: new objects, saves, deletion, view modes (a toggle changes over), undo.
// False when it is the viewer's to do, which includes all routines. The viewer then repaints; dialogs and
// messages come through the host services and the three parameter dialogs.
bool RunCommand(Command id, int canvas);

// Opens a file on a canvas; an image larger than its window is zoomed out until all of it shows, and a view
// that was zoomed out for another comes back to the image's own size. A clear English sentence, to be
// translated, when nothing came of it, and what the canvas showed stays; null when the canvas shows the file.
// Null also when the person cancelled the dialog of a raw file: by then the library has given up what was
// shown, so a viewer asks for the layout before and passes it on when the library asks.
const char* OpenFile(int canvas, const CString& path);

// Adds a box of text lines, which the person drags to its place; lines are split at line ends.
void AddTextLines(int canvas, const CString& text);

// The value under a client point inside the image, for a status bar: that of gCVSGetImaPixelValue, but a gray
// pixel counts as its gray, without the level that the formula for colors may take away.
float ValueUnder(int canvas, CPoint client);
// The same for an image point whose value the library has returned.
float GrayOr(float value, int canvas, double x, double y);

// The filter of a file dialog for OpenFile: "text|pattern|text|pattern||".
std::wstring OpenFilter(Language language);

// How the mouse and the keys work, as lines "gesture\tmeaning"; a line without tab is a heading.
std::span<const char* const> GestureHelp();

}
