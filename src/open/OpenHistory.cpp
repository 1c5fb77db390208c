#include "open/OpenCall.h"

using namespace vostel;
using namespace vostel::open;

namespace {

void Step(Document& notes, bool (Document::*move)(), const char* nothing)
{
    if (notes.IsStepOpen())
        Fail(VOSTEL_INVALID_ARGUMENT, "a step has begun and not ended");
    if (!(notes.*move)())
        Fail(VOSTEL_NOT_FOUND, nothing);
}

}

VostelStatus vostel_history_limit(int32_t canvas, size_t bytes)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) { notes.SetStepLimit(bytes); });
}

VostelStatus vostel_history_info(int32_t canvas, VostelHistoryInfo* info)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const History& steps = notes.Steps;
        GiveRecord(info,
                   VostelHistoryInfo{0, static_cast<uint32_t>(steps.UndoCount()),
                                     static_cast<uint32_t>(steps.RedoCount()), steps.Bytes(), steps.Limit()},
                   "info");
    });
}

VostelStatus vostel_history_name(int32_t canvas, int32_t step, char* buffer, size_t capacity, size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        const HistoryStep* const named = step == -1  ? notes.Steps.NextUndo()
                                         : step == 1 ? notes.Steps.NextRedo()
                                                     : nullptr;
        if (!named)
            Fail(VOSTEL_NOT_FOUND, "there is no such step");
        GiveText(named->Name, buffer, capacity, length);
    });
}

VostelStatus vostel_undo(int32_t canvas)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        Step(notes, &Document::Undo, "there is nothing to undo");
    });
}

VostelStatus vostel_redo(int32_t canvas)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        Step(notes, &Document::Redo, "there is nothing to redo");
    });
}

VostelStatus vostel_history_begin(int32_t canvas, const char* name)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) { notes.BeginStep(TextFrom(name, "name")); });
}

VostelStatus vostel_history_end(int32_t canvas)
{
    return OnCanvas(canvas, [&](VostelImage&, Document& notes) {
        if (!notes.EndStep())
            Fail(VOSTEL_NOT_FOUND, "no step has begun");
    });
}
