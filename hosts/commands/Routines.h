#pragma once

// The image routines of the library, each with its parameters as a viewer asks for them.
//
// The viewer takes the images on its own thread (TakeInput), runs the routine on a worker, and shows the
// result on its own thread (ShowResult). Run touches no canvas and shows no message.

#include "commands/Commands.h"

#include <VostelObj.h>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace vostel::viewer {

using Image = ClassData2DIO<float>;    // top row first
using ImagePointer = std::shared_ptr<Image>;

enum class ParameterKind : int { Whole, Real, Choice };
enum class StartFrom : int { Number, ImageWidth, ImageHeight };    // what Default multiplies; Number: nothing

struct RoutineParameter {
    const char*                  Name;    // English, to be translated in the context "Commands"
    ParameterKind                Kind = ParameterKind::Whole;
    double                       Default = 0.0;    // of a choice: its index
    double                       Low = 0.0;        // inclusive
    double                       High = 0.0;       // inclusive
    std::span<const char* const> Choices = {};     // English, to be translated
    StartFrom                    From = StartFrom::Number;
};

enum class RoutineInput : int {
    None,      // makes an image out of nothing
    Image,     // the shown image
    Two,       // the shown image and the one of a second canvas that the person chooses
    Labels,    // the label image of the canvas's regions
};

// Called between steps, on the thread of Run, first with nothing done; false cancels.
using RoutineProgress = std::function<bool(int done, int total)>;

struct RoutineResult {
    ImagePointer Result;               // null when there is a problem or it was cancelled
    const char*  Problem = nullptr;    // a clear English sentence, to be translated
    bool         Cancelled = false;
};

struct Routine {
    Command                           Id;
    const char*                       Title;    // English, of the dialog
    RoutineInput                      Input;
    std::span<const RoutineParameter> Parameters;
    // Leaves the inputs as they are. As many values as parameters, each within its limits: RunRoutine checks.
    RoutineResult (*Run)(std::span<const ImagePointer> inputs, std::span<const double> values,
                         const RoutineProgress& progress);
};

std::span<const Routine> AllRoutines();
const Routine*           FindRoutine(Command id);    // null for other commands

int InputCount(const Routine& routine);    // how many images Run takes: 0, 1 or 2

// What a dialog starts with, for an image of this size, within the limits.
std::vector<double> DefaultValues(const Routine& routine, int width, int height);
// A clear English sentence about the first value that is wrong, whose index goes to wrong; else null.
const char* CheckValues(const Routine& routine, std::span<const double> values, std::size_t* wrong = nullptr);

// Run with all that can be wrong turned into a Problem: inputs that are missing or empty, values out of
// their limits, memory that runs out. Progress may be empty. For a worker thread.
RoutineResult RunRoutine(const Routine& routine, std::span<const ImagePointer> inputs,
                         std::span<const double> values, const RoutineProgress& progress);

// On the thread of the canvases. The image as data: float data as it came, the gray of a byte image; null
// without an image.
ImagePointer TakeImage(int canvas);
// The label image of all regions, top row first; null without an image.
ImagePointer TakeLabels(int canvas);
// The inputs of a routine; second is the canvas of its second image where it takes two.
std::vector<ImagePointer> TakeInputs(const Routine& routine, int canvas, int second);
// Shows a result and keeps what was there for UndoRoutine. Objects stay if the size stays.
void ShowResult(int canvas, const ImagePointer& image);

// The canvas's own progress bar. The viewer repaints.
void ShowRoutineProgress(int canvas, bool shown);
void SetRoutineProgress(int canvas, int done, int total);

}
