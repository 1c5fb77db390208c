#include "document/Document.h"

#include "canvas/VostelImage.h"
#include "document/KindRules.h"
#include "document/StepChanges.h"
#include "document/ViewLinks.h"
#include "vostel.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace vostel {

std::uint64_t Document::NewIdentity()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

Document::Document(VostelImage& canvas, int number, bool created)
    : Canvas(canvas), Number(number), Created(created), Place(PlaceNow())
{
    for (VostelObj* const object : Canvas.Elements) {
        Adopt(*object);
        if (object->Selected)
            Selection.push_back(object->Identity);
    }
    Canvas.Observer = this;
}

Document::~Document()
{
    Canvas.Observer = nullptr;
}

MeasureUnits Document::Units() const
{
    return {Canvas.View.Settings.UnitsPerPixel, Canvas.View.Settings.Unit, Canvas.MeasureScale};
}

VostelObj* Document::Find(std::uint64_t id) const
{
    const auto found = Entries.find(id);
    return found == Entries.end() ? nullptr : &Canvas.Elements.Wake(*found->second.Object);
}

const VostelObj* Document::FindToRead(std::uint64_t id) const
{
    const auto found = Entries.find(id);
    return found == Entries.end() ? nullptr : &Canvas.Elements.Settle(*found->second.Object);
}

std::size_t Document::IndexOf(const VostelObj& object) const
{
    return object.Entry.Place;
}

ObjectState Document::StateOf(VostelObj& object)
{
    return {SaveShape(object), NotesOf(object), object.SerialNo, object.TypeSerial};
}

void Document::Adopt(VostelObj& object)
{
    Entry entry{&object, {}};
    if (IsRegion(object.TypeCode)) {
        entry.Notes.Label = Labels.Lowest();
        Labels.Use(entry.Notes.Label);
    }
    const std::uint64_t identity = NewIdentity();
    try {
        Entries.emplace(identity, entry);
    } catch (...) {
        Labels.Release(entry.Notes.Label);
        throw;
    }
    object.Identity = identity;
    object.OpenMade = object.OpenMade || Created;
    if (object.OpenMade)
        Settle(object);
}

void Document::AdoptStrays()
{
    for (VostelObj* const object : Canvas.Elements.AsTheyLie()) {
        if (object->Identity == 0)
            Adopt(Canvas.Elements.Wake(*object));
    }
    HasStrays = false;
}

VostelObj& Document::Add(std::unique_ptr<VostelObj> object)
{
    Adopt(*object);
    try {
        return Canvas.Append(std::move(object));
    } catch (...) {
        Release(*object);
        throw;
    }
}

void Document::Release(VostelObj& object)
{
    if (object.Identity == 0)
        return;
    Labels.Release(NotesOf(object).Label);
    Entries.erase(object.Identity);
    object.Identity = 0;
}

void Document::Prepare(VostelObj& object)
{
    NoteWindow(object);
    if (Replaying || !IsWatching() || Pending.contains(object.Identity))
        return;
    ObjectState state = StateOf(object);
    Touched     touched{state, std::move(state), false};
    Pending.emplace(object.Identity, std::move(touched));
}

ObjectNotes& Document::NotesToChange(VostelObj& object)
{
    return Entries.at(object.Identity).Notes;
}

void Document::SetLabel(VostelObj& object, int label)
{
    ObjectNotes& notes = NotesToChange(object);
    Labels.Use(label);
    Labels.Release(notes.Label);
    notes.Label = label;
}

void Document::SetWindow(VostelObj& object, double low, double high)
{
    if (object.WindowLow == low && object.WindowHigh == high)
        return;
    Prepare(object);
    const double lowBefore = std::exchange(object.WindowLow, low);
    const double highBefore = std::exchange(object.WindowHigh, high);
    try {
        Canvas.RedrawRegions();
    } catch (...) {
        object.WindowLow = lowBefore;
        object.WindowHigh = highBefore;
        throw;
    }
    NameStep("Change contrast");
    RegionContrastChanged = true;
}

void Document::Reorder(VostelObj& object, std::size_t index)
{
    const std::size_t from = IndexOf(object);
    if (from == index)
        return;
    NameStep("Change order");
    Record(OrderChange{object.Identity, from, index});
    VostelObj* const selected = Canvas.SelectedElement();
    NoteWindow(object);
    Canvas.Insert(index, Canvas.Detach(from));
    if (selected)
        Canvas.SelIndex = static_cast<int>(IndexOf(*selected));
    Events.Tell(VOSTEL_OBJECT_CHANGED, object.Identity);
    Stale = true;
}

void Document::SetUnits(const MeasureUnits& units)
{
    const MeasureUnits before = Units();
    if (before == units)
        return;
    UnitsChange change{before, units};
    NameStep("Set scale");
    Current.Changes.reserve(Current.Changes.size() + 1);
    try {
        UseUnits(units);
    } catch (...) {
        UseUnits(before);
        throw;
    }
    Record(std::move(change));
}

void Document::UseUnits(const MeasureUnits& units)
{
    Canvas.View.Settings.UnitsPerPixel = units.UnitsPerPixel;
    Canvas.View.Settings.Unit = units.Unit;
    Canvas.MeasureScale = units.DrawnScale;
    for (VostelObj* const object : Canvas.Elements)
        object->DerivePainted();
    Stale = true;
}

void Document::Select(const std::vector<VostelObj*>& objects)
{
    Canvas.Elements.Deselect();
    Canvas.SelIndex = -1;
    for (VostelObj* const object : objects) {
        object->Selected = true;
        Canvas.SelIndex = std::max(Canvas.SelIndex, static_cast<int>(IndexOf(*object)));
    }
    SelectionMoved = true;
}

void Document::Remove(VostelObj& object)
{
    const std::size_t index = IndexOf(object);
    const int         selected = Canvas.SelIndex;
    Canvas.DeleteAt(index);
    if (selected == static_cast<int>(index))
        Canvas.SelIndex = -1;
    else if (selected > static_cast<int>(index))
        --Canvas.SelIndex;
}

// Where a region with a contrast window of its own was or is, the image is drawn anew at the end of the call.
void Document::NoteWindow(const VostelObj& object)
{
    RegionWindowsMoved = RegionWindowsMoved || object.WindowLow != object.WindowHigh;
}

void Document::RedrawWindows()
{
    if (RegionWindowsMoved)
        Canvas.RedrawRegions();
    RegionWindowsMoved = false;
}

void Document::Settle(VostelObj& object)
{
    object.SetCanvasView(&Canvas.View);
    object.Kit.Dc = Canvas.ClientMemDC;
    // Read-outs say at once what lies under the pointer, or under where it was last.
    if (object.OpenMade && (object.TypeCode == OverlayPanel || object.TypeCode == OverlayNeighbours))
        object.OnMouseMove(0, Canvas.PointerAt);
    object.DerivePainted();
}

void Document::NameStep(std::string_view name)
{
    if (Current.Name.empty())
        Current.Name = name;
}

void Document::Listen(std::int64_t token, std::uint32_t events, Listeners::Function function, void* user)
{
    if (!Events.AreThere()) {
        // What a listener hears of is different from what is there now.
        Selection = SelectedNow();
        Place = PlaceNow();
        ContrastTold = Canvas.Contrast();
    }
    Events.Add(token, events, function, user);
}

void Document::TellDestruction()
{
    UnlinkCanvas(Number);
    Events.Tell(VOSTEL_CANVAS_DESTROYED, 0);
}

std::vector<std::uint64_t> Document::SelectedNow() const
{
    std::vector<std::uint64_t> selected;
    for (const VostelObj* const object : Canvas.Elements.Selected())
        selected.push_back(object->Identity);
    return selected;
}

Document::ViewPlace Document::PlaceNow() const
{
    const CanvasView& view = Canvas.View;
    return {view.Scale, view.DisplayRect.left, view.DisplayRect.top};
}

void Document::CallBegins() noexcept {}

void Document::CallEnds() noexcept
{
    try {
        if (ImageCame || StartsAfresh) {
            // What a gesture changed of it before the image came is of its step; what came with the image is
            // of none.
            if (StartsAfresh)
                ContrastBefore.reset();
            RecordContrast();
            TellContrast();
            if (AllWent) {
                Pending.clear();
                Current = HistoryStep();
                ForgetSteps();
            }
        }
        FindChanges();
        RedrawWindows();
        FindContrastChange();
        TellRegionContrast();
        TellSelection();
        TellView();
        if (!InGesture) {
            RecordChanges();
            if (OpenSteps == 0)
                CloseStep();
        }
        if (LostTrack)
            ForgetSteps();
        if (Stale)
            Events.Tell(VOSTEL_FRAME_STALE, 0);
    } catch (...) {
        // Without memory to note this step none of the older ones leads here any more.
        Pending.clear();
        ContrastBefore.reset();
        Current = HistoryStep();
        Steps.Clear();
    }
    LostTrack = Stale = ImageCame = AllWent = StartsAfresh = SelectionMoved = false;
    RegionContrastChanged = false;
    LeadLinked();
    Events.Deliver(Number);
}

void Document::GestureBegins() noexcept
{
    InGesture = true;
    SelectionMoved = true;
}

void Document::GestureEnds() noexcept
{
    InGesture = false;
}

void Document::WillChange(VostelObj& object) noexcept
{
    try {
        Prepare(object);
    } catch (...) {
        LostTrack = true;
    }
}

void Document::WillChangeContrast() noexcept
{
    if (Replaying || !IsWatching() || ContrastBefore)
        return;
    try {
        ContrastBefore = Canvas.Contrast();
        ContrastLatest = *ContrastBefore;
    } catch (...) {
        LostTrack = true;
    }
}

void Document::ImageChanged() noexcept
{
    ImageCame = Stale = true;
    Unread.ImageMembers.clear();
    std::erase_if(Unread.Words, [](const UnreadParts::Word& word) { return word.OfImage; });
    if (AllWent)
        Unread = UnreadParts();
    Events.Tell(VOSTEL_IMAGE_CHANGED, 0);
}

void Document::WasAdded(VostelObj& object, const ElementCounts& before) noexcept
{
    SelectionMoved = Stale = true;
    try {
        if (object.Identity == 0) {
            HasStrays = true;
            Adopt(object);
            HasStrays = false;
        }
        if (!IsWatching())
            return;
        PresenceChange change;
        change.Id = object.Identity;
        change.Added = true;
        change.Index = Canvas.Elements.size() - 1;
        change.Class = ClassOf(object);
        change.Before = before;
        change.After = Canvas;
        NameStep(std::string("Add ") + KindName(object.TypeCode));
        Record(std::move(change));
        Pending[object.Identity].Added = true;
        Events.Tell(VOSTEL_OBJECT_ADDED, object.Identity);
    } catch (...) {
        LostTrack = true;
    }
}

void Document::WillRemove(std::size_t index) noexcept
{
    VostelObj&    object = *Canvas.Elements.AsTheyLie()[index];
    ElementCounts after = Canvas;
    if (int* const count = after.OfRegions(object.TypeCode))
        --*count;
    --after.RegionSerial;
    RecordRemoval(object, index, true, after);
}

void Document::WillRemoveAll() noexcept
{
    AllWent = true;
    for (std::size_t i = Canvas.Elements.size(); i-- > 0;)
        RecordRemoval(*Canvas.Elements.AsTheyLie()[i], i, false, ElementCounts());
}

void Document::RecordRemoval(VostelObj& object, std::size_t index, bool renumbering,
                             const ElementCounts& after)
{
    SelectionMoved = Stale = true;
    NoteWindow(object);
    try {
        if (!Replaying && IsWatching()) {
            PresenceChange change;
            change.Id = object.Identity;
            change.Renumbering = renumbering;
            change.Index = index;
            change.Class = ClassOf(object);
            change.Before = Canvas;
            change.After = after;
            const auto pending = Pending.find(object.Identity);
            const bool isNew = pending != Pending.end() && pending->second.Added;
            change.State = pending != Pending.end() && !isNew ? pending->second.Before : StateOf(object);
            if (isNew)
                FillAdded(object.Identity, change.State);
            if (pending != Pending.end())
                Pending.erase(pending);
            NameStep(std::string("Remove ") + KindName(object.TypeCode));
            Events.Tell(VOSTEL_OBJECT_REMOVED, object.Identity);
            Record(std::move(change));
        }
    } catch (...) {
        LostTrack = true;
    }
    Release(object);
}

void Document::Record(Change change)
{
    if (Steps.Limit() > 0)
        Current.Changes.push_back(std::move(change));
}

// Completes the note of an object that came in this step.
void Document::FillAdded(std::uint64_t id, const ObjectState& state)
{
    for (Change& change : Current.Changes) {
        PresenceChange* const presence = std::get_if<PresenceChange>(&change);
        if (presence && presence->Added && presence->Id == id)
            presence->State = state;
    }
}

// Completes the notes of all objects that came in this call, which stand at the end of the step.
void Document::FillAllAdded()
{
    auto missing =
        std::count_if(Pending.begin(), Pending.end(), [](const auto& entry) { return entry.second.Added; });
    for (auto change = Current.Changes.rbegin(); missing > 0 && change != Current.Changes.rend(); ++change) {
        PresenceChange* const presence = std::get_if<PresenceChange>(&*change);
        if (!presence || !presence->Added)
            continue;
        const auto found = Pending.find(presence->Id);
        if (found == Pending.end() || !found->second.Added)
            continue;
        presence->State = std::move(found->second.Latest);
        --missing;
    }
}

void Document::FindChanges()
{
    bool told = false;
    for (auto& [id, touched] : Pending) {
        VostelObj&  object = *Find(id);
        ObjectState now = StateOf(object);
        if (now == touched.Latest)
            continue;
        NoteWindow(object);
        touched.Latest = std::move(now);
        Stale = true;
        if (InGesture && !touched.Added && !told) {
            Events.Tell(VOSTEL_OBJECT_CHANGING, id);
            told = true;
        }
    }
}

void Document::FindContrastChange()
{
    if (!ContrastBefore)
        return;
    const ContrastState now = Canvas.Contrast();
    if (now == ContrastLatest)
        return;
    ContrastLatest = now;
    TellContrast();
}

void Document::TellContrast()
{
    if (!Events.AreThere())
        return;
    ContrastState now = Canvas.Contrast();
    if (now == ContrastTold)
        return;
    ContrastTold = std::move(now);
    Stale = true;
    Events.Tell(VOSTEL_CONTRAST_CHANGED, 0);
}

void Document::TellRegionContrast()
{
    if (!RegionContrastChanged)
        return;
    Stale = true;
    Events.Tell(VOSTEL_CONTRAST_CHANGED, 0);
}

void Document::RecordChanges()
{
    FillAllAdded();
    for (auto& [id, touched] : Pending) {
        if (!touched.Added && !(touched.Before == touched.Latest)) {
            NameStep(std::string("Change ") + KindName(Find(id)->TypeCode));
            Events.Tell(VOSTEL_OBJECT_CHANGED, id);
            Record(ObjectChange{id, std::move(touched.Before), std::move(touched.Latest)});
        }
    }
    Pending.clear();
    RecordContrast();
}

void Document::RecordContrast()
{
    if (ContrastBefore && !(*ContrastBefore == ContrastLatest)) {
        NameStep("Change contrast");
        Record(ContrastChange{*ContrastBefore, ContrastLatest});
    }
    ContrastBefore.reset();
}

// Objects that came and went are not counted either.
void Document::RestoreCounts()
{
    for (const Change& change : Current.Changes) {
        if (const PresenceChange* const first = std::get_if<PresenceChange>(&change)) {
            static_cast<ElementCounts&>(Canvas) = first->Before;
            return;
        }
    }
}

void Document::CloseStep()
{
    const bool several = Current.Changes.size() > 1;
    if (several)
        Condense(Current.Changes);
    if (Current.Changes.empty() || (several && ComeToNothing(Current.Changes))) {
        RestoreCounts();
    } else {
        Steps.Push(std::move(Current));
        Events.Tell(VOSTEL_HISTORY_CHANGED, 0);
    }
    Current = HistoryStep();
}

void Document::TellSelection()
{
    if (!SelectionMoved || !Events.AreThere())
        return;
    std::vector<std::uint64_t> now = SelectedNow();
    if (now == Selection)
        return;
    Selection = std::move(now);
    Stale = true;
    Events.Tell(VOSTEL_SELECTION_CHANGED, 0);
}

void Document::TellView()
{
    const ViewPlace now = PlaceNow();
    const bool      follows = Followed == now;
    Followed.reset();
    if (now == Place)
        return;
    Place = now;
    Stale = true;
    Events.Tell(VOSTEL_VIEW_CHANGED, 0);
    Leads = !follows;
}

// With nothing left to note: the listeners of the other canvases may call this one.
void Document::LeadLinked() noexcept
{
    if (!Leads)
        return;
    Leads = false;
    try {
        ShowOnLinked(Number, MiddleOf(Canvas.View));
    } catch (...) {
        return;    // without memory the others stay where they are
    }
}

void Document::Follow(const MiddleView& middle)
{
    const double scale = Canvas.View.Scale;
    const CPoint centre(Canvas.View.CentreX, Canvas.View.CentreY);
    if (!PlaceMiddle(Canvas.View, middle))
        return;
    try {
        Canvas.ViewMoved();
    } catch (...) {
        // Objects that have moved already find their places again with the next paint or move.
        Canvas.View.PlaceCentre(scale, centre.x, centre.y);
        throw;
    }
    Followed = PlaceNow();
}

}
