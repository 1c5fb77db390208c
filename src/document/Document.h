#pragma once

#include "canvas/CanvasObserver.h"
#include "canvas/view/ViewPlacing.h"
#include "document/DocumentContent.h"
#include "document/History.h"
#include "document/LabelNumbers.h"
#include "document/Listeners.h"
#include "document/ObjectState.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vostel {

class VostelImage;

// What a canvas keeps beside its objects: their identities, names and labels, the history and the listeners.
// It hears from the canvas what happens, from whatever interface, and notes at the end of the outermost call
// what has changed.
class Document final : public CanvasObserver {
public:
    // Attaches itself to the canvas, which outlives it. The objects that stand get their identities.
    Document(VostelImage& canvas, int number, bool created);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    History      Steps;
    MeasureUnits Units() const;
    UnreadParts  Unread;    // of the session that was opened here

    void Listen(std::int64_t token, std::uint32_t events, Listeners::Function function, void* user);
    bool Unlisten(std::int64_t token) { return Events.Remove(token); }
    void TellDestruction();

    // Null for an identity that is not on the canvas.
    VostelObj*         Find(std::uint64_t id) const;
    const VostelObj*   FindToRead(std::uint64_t id) const;        // leaves what is kept as drawn
    std::size_t        IndexOf(const VostelObj& object) const;    // of one on the canvas
    const ObjectNotes& NotesOf(const VostelObj& object) const { return Entries.at(object.Identity).Notes; }

    // Puts an object on top of all others, as the selected one. Fails by bad_alloc, before anything has
    // changed.
    VostelObj& Add(std::unique_ptr<VostelObj> object);
    // Puts settled objects on top, as part of the step of this name, all of them or by bad_alloc none. What
    // is selected stays so.
    void AddAll(std::vector<PlacedObject> objects, std::string step);
    // Objects that came when there was no memory for an identity get theirs.
    bool HasStrays = false;
    void AdoptStrays();

    // An object is about to change. Unlike WillChange it fails, by bad_alloc, before anything has.
    void Prepare(VostelObj& object);
    // To be changed after Prepare.
    ObjectNotes&               NotesToChange(VostelObj& object);
    void                       SetLabel(VostelObj& object, int label);
    void                       SetWindow(VostelObj& object, double low, double high);    // of contrast
    void                       Remove(VostelObj& object);
    void                       Reorder(VostelObj& object, std::size_t index);
    void                       SetUnits(const MeasureUnits& units);
    std::vector<std::uint64_t> SelectedNow() const;    // in drawing order
    void                       Select(const std::vector<VostelObj*>& objects);
    // Gives an object whose points have changed its place, without a paint.
    void Settle(VostelObj& object);

    // Puts the content, whose objects stand on the canvas's view, in the place of all objects, and begins the
    // history afresh. Clear takes the former ones away and is the last that may fail.
    void Replace(DocumentContent content, const std::function<void()>& clear);

    // Everything up to the end is one step.
    void BeginStep(std::string name);
    bool EndStep();    // false if none has begun
    bool IsStepOpen() const { return OpenSteps > 0; }
    // Names the step of this call; the first name stays.
    void NameStep(std::string_view name);
    // Take the next step back and bring it again; false if there is none.
    bool Undo();
    bool Redo();
    // Forgets the steps and tells it.
    void ForgetSteps();
    void SetStepLimit(std::size_t bytes);
    // Looks at what a linked canvas looks at. Where coordinates do not reach, the view stays.
    void Follow(const MiddleView& middle);

    void CallBegins() noexcept override;
    void CallEnds() noexcept override;
    void GestureBegins() noexcept override;
    void GestureEnds() noexcept override;
    void WillChange(VostelObj& object) noexcept override;
    void WasAdded(VostelObj& object, const ElementCounts& before) noexcept override;
    void WillRemove(std::size_t index) noexcept override;
    void WillRemoveAll() noexcept override;
    void WillChangeContrast() noexcept override;
    void ImageChanged() noexcept override;
    void PictureChanged() noexcept override { Stale = true; }

private:
    struct Entry {
        VostelObj*  Object = nullptr;
        ObjectNotes Notes;
    };
    // An object that this call or gesture may have changed.
    struct Touched {
        ObjectState Before;
        ObjectState Latest;
        bool        Added = false;    // in this step
    };
    struct ViewPlace {
        double Scale = 0.0;
        LONG   Left = 0;
        LONG   Top = 0;
        bool   operator==(const ViewPlace&) const = default;
    };

    VostelImage&                             Canvas;
    Listeners                                Events;
    int                                      Number;
    bool                                     Created;
    std::unordered_map<std::uint64_t, Entry> Entries;
    LabelNumbers                             Labels;

    std::map<std::uint64_t, Touched> Pending;           // in the order of making, which is that of events
    HistoryStep                      Current;           // changes of the step under way
    std::optional<ContrastState>     ContrastBefore;    // before a change of this call or gesture
    ContrastState                    ContrastLatest;
    ContrastState                    ContrastTold;    // to listeners
    int                              OpenSteps = 0;
    bool                             InGesture = false;
    bool                             Replaying = false;
    bool                             LostTrack = false;    // no memory to note a change
    bool                             Stale = false;
    bool                             ImageCame = false;
    bool                             AllWent = false;
    bool                             StartsAfresh = false;    // in this call
    bool                             SelectionMoved = false;
    bool                             RegionWindowsMoved = false;    // so the image is drawn anew
    bool                             RegionContrastChanged = false;
    std::vector<std::uint64_t>       Selection;    // as it was told last
    ViewPlace                        Place;
    std::optional<ViewPlace>         Followed;         // taken from a linked canvas and not told yet
    bool                             Leads = false;    // linked canvases are to follow

    bool                 IsWatching() const { return Steps.Limit() > 0 || Events.AreThere(); }
    static std::uint64_t NewIdentity();

    ObjectState StateOf(VostelObj& object);
    void        Adopt(VostelObj& object);
    void        Release(VostelObj& object);
    void        SettleIfItCan(VostelObj& object) noexcept;
    ViewPlace   PlaceNow() const;

    void RecordRemoval(VostelObj& object, std::size_t index, bool renumbering, const ElementCounts& after);
    void FillAdded(std::uint64_t id, const ObjectState& state);
    void FillAllAdded();
    void Record(Change change);
    void FindChanges();
    void FindContrastChange();
    void RecordChanges();
    void RecordContrast();
    void CloseStep();
    void RestoreCounts();
    void FinishGesture();
    void NoteWindow(const VostelObj& object);
    void RedrawWindows();
    void TellContrast();
    void TellRegionContrast();
    void TellSelection();
    void TellView();
    void LeadLinked() noexcept;

    void Replay(const HistoryStep& step, bool forwards);
    void Apply(const ObjectChange& change, bool forwards);
    void Apply(const PresenceChange& change, bool forwards);
    void Apply(const OrderChange& change, bool forwards);
    void Apply(const ContrastChange& change, bool forwards);
    void Apply(const UnitsChange& change, bool forwards);
    void RestoreState(VostelObj& object, const ObjectState& state);
    void PutBack(const PresenceChange& change);
    void TakeAway(const PresenceChange& change);
    void UseUnits(const MeasureUnits& units);
};

}
