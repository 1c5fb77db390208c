#include "canvas/VostelImage.h"
#include "document/Document.h"
#include "vostel.h"

#include <algorithm>
#include <utility>

namespace vostel {

void Document::BeginStep(std::string name)
{
    if (OpenSteps == 0) {
        FinishGesture();
        Current.Name = std::move(name);
    }
    ++OpenSteps;
}

bool Document::EndStep()
{
    if (OpenSteps == 0)
        return false;
    --OpenSteps;
    return true;
}

void Document::SetStepLimit(std::size_t bytes)
{
    const std::size_t undos = Steps.UndoCount();
    const std::size_t redos = Steps.RedoCount();
    Steps.SetLimit(bytes);
    if (undos != Steps.UndoCount() || redos != Steps.RedoCount())
        Events.Tell(VOSTEL_HISTORY_CHANGED, 0);
}

void Document::ForgetSteps()
{
    if (Steps.UndoCount() == 0 && Steps.RedoCount() == 0)
        return;
    Steps.Clear();
    Events.Tell(VOSTEL_HISTORY_CHANGED, 0);
}

// What is being dragged becomes a step as it is.
void Document::FinishGesture()
{
    if (!InGesture)
        return;
    InGesture = false;
    FindChanges();
    FindContrastChange();
    RecordChanges();
    if (OpenSteps == 0)
        CloseStep();
}

bool Document::Undo()
{
    FinishGesture();
    const HistoryStep* const step = Steps.NextUndo();
    if (!step)
        return false;
    Replay(*step, false);
    Steps.WasUndone();
    Events.Tell(VOSTEL_HISTORY_CHANGED, 0);
    return true;
}

bool Document::Redo()
{
    FinishGesture();
    const HistoryStep* const step = Steps.NextRedo();
    if (!step)
        return false;
    Replay(*step, true);
    Steps.WasRedone();
    Events.Tell(VOSTEL_HISTORY_CHANGED, 0);
    return true;
}

// All of a step or nothing: what fails half way is taken back.
void Document::Replay(const HistoryStep& step, bool forwards)
{
    const std::size_t count = step.Changes.size();
    const auto        apply = [&](std::size_t i, bool direction) {
        std::visit([&](const auto& change) { Apply(change, direction); },
                   step.Changes[direction ? i : count - 1 - i]);
    };
    VostelObj* const selected = Canvas.SelectedElement();
    Replaying = true;
    std::size_t applied = 0;
    try {
        for (; applied < count; ++applied)
            apply(applied, forwards);
    } catch (...) {
        while (applied-- > 0)
            apply(count - 1 - applied, !forwards);
        Replaying = false;
        throw;
    }
    Replaying = false;
    const auto& list = Canvas.Elements.AsTheyLie();
    const auto  place = std::find(list.begin(), list.end(), selected);
    Canvas.SelIndex = selected && place != list.end() ? static_cast<int>(place - list.begin()) : -1;
    SelectionMoved = Stale = true;
    RedrawWindows();
}

void Document::Apply(const ObjectChange& change, bool forwards)
{
    RestoreState(*Find(change.Id), forwards ? change.After : change.Before);
    Events.Tell(VOSTEL_OBJECT_CHANGED, change.Id);
}

void Document::Apply(const PresenceChange& change, bool forwards)
{
    if (change.Added == forwards)
        PutBack(change);
    else
        TakeAway(change);
    static_cast<ElementCounts&>(Canvas) = forwards ? change.After : change.Before;
    Events.Tell(change.Added == forwards ? VOSTEL_OBJECT_ADDED : VOSTEL_OBJECT_REMOVED, change.Id);
}

void Document::Apply(const OrderChange& change, bool forwards)
{
    const std::size_t from = forwards ? change.From : change.To;
    const std::size_t to = forwards ? change.To : change.From;
    NoteWindow(*Find(change.Id));
    Canvas.Insert(to, Canvas.Detach(from));
    Events.Tell(VOSTEL_OBJECT_CHANGED, change.Id);
}

void Document::Apply(const ContrastChange& change, bool forwards)
{
    Canvas.ApplyContrast(forwards ? change.After : change.Before);
    TellContrast();
}

void Document::Apply(const UnitsChange& change, bool forwards)
{
    UseUnits(forwards ? change.After : change.Before);
}

void Document::RestoreState(VostelObj& object, const ObjectState& state)
{
    ObjectNotes notes = state.Notes;
    NoteWindow(object);
    const double                     low = object.WindowLow, high = object.WindowHigh;
    const std::vector<unsigned char> before = SaveShape(object);
    try {
        LoadShape(object, state.Shape);
        Settle(object);
        SetLabel(object, notes.Label);
    } catch (...) {
        LoadShape(object, before);
        Settle(object);
        throw;
    }
    NoteWindow(object);
    if (object.WindowLow != low || object.WindowHigh != high)
        RegionContrastChanged = true;
    NotesToChange(object) = std::move(notes);
}

// An object comes back under its own identity. Whatever can fail comes first.
void Document::PutBack(const PresenceChange& change)
{
    std::unique_ptr<VostelObj> made = MakeObject(change.Class);
    made->Identity = change.Id;
    made->SerialNo = change.State.SerialNo;
    made->TypeSerial = change.State.TypeSerial;
    made->SetOwnerImage(&Canvas);
    made->SetCanvasView(&Canvas.View);
    made->Kit.Dc = Canvas.ClientMemDC;
    LoadShape(*made, change.State.Shape);
    Settle(*made);
    Entry entry{made.get(), change.State.Notes};
    Canvas.Elements.reserve(Canvas.Elements.size() + 1);
    Labels.Use(entry.Notes.Label);
    try {
        Entries.emplace(change.Id, entry);
    } catch (...) {
        Labels.Release(entry.Notes.Label);
        throw;
    }
    Canvas.Insert(change.Index, made.get());
    const VostelObj& object = *made.release();
    if (change.Renumbering)
        Canvas.MoveNumbers(change.Index + 1, object.TypeCode, 1);
    NoteWindow(object);
}

void Document::TakeAway(const PresenceChange& change)
{
    VostelObj&        object = *Find(change.Id);
    const std::size_t index = IndexOf(object);
    Canvas.Erase(index);
    NoteWindow(object);
    if (change.Renumbering)
        Canvas.MoveNumbers(index, object.TypeCode, -1);
    Release(object);
}

}
