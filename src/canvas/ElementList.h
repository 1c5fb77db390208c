#pragma once

#include "canvas/BoxIndex.h"
#include "canvas/view/CanvasView.h"
#include "overlay/VostelObj.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <vector>

namespace vostel {

// The objects of a canvas in paint order. Regions that nobody has in hand rest: a new view costs them
// nothing, and their client geometry is derived when somebody looks. Whoever takes an object from a list that
// may be changed wakes it, for he may change it; from a constant list he gets it as an event before would
// have left it.
//
// Awake regions and the kinds that never rest are derived at each event, as objects are that stand on no
// list.
class ElementList {
public:
    // Regions that stay awake however long nobody has asked for them: few cost less than their bookkeeping.
    static constexpr std::size_t FewAwake = 4;
    std::size_t                  MostAwake = FewAwake;

    explicit ElementList(CanvasView& view) : View(view) {}
    ElementList(const ElementList&) = delete;
    ElementList& operator=(const ElementList&) = delete;

    template <typename List>
    class Iterator {
    public:
        // NOLINTBEGIN(readability-identifier-naming): the names are the standard library's
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = VostelObj*;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = VostelObj*;
        // NOLINTEND(readability-identifier-naming)

        Iterator(List& list, std::size_t at) : Of(&list), At(at) {}
        VostelObj* operator*() const { return (*Of)[At]; }
        Iterator&  operator++()
        {
            ++At;
            return *this;
        }
        Iterator& operator--()
        {
            --At;
            return *this;
        }
        bool operator==(const Iterator& other) const { return At == other.At; }

    private:
        List*       Of;
        std::size_t At;
    };

    VostelObj* operator[](std::size_t i) { return &Wake(*All[i]); }
    VostelObj* operator[](std::size_t i) const { return &Settle(*All[i]); }
    VostelObj* back() { return (*this)[size() - 1]; }
    VostelObj* back() const { return (*this)[size() - 1]; }

    Iterator<ElementList>       begin() { return {*this, 0}; }
    Iterator<ElementList>       end() { return {*this, size()}; }
    Iterator<const ElementList> begin() const { return {*this, 0}; }
    Iterator<const ElementList> end() const { return {*this, size()}; }

    std::size_t size() const { return All.size(); }
    bool        empty() const { return All.empty(); }
    std::size_t capacity() const { return All.capacity(); }

    // The objects as they lie there, for what no view changes.
    const std::vector<VostelObj*>& AsTheyLie() const { return All; }
    // Those that do not rest, in paint order. All that are hidden or have a contrast window of their own are
    // among them.
    template <typename Wanted>
    std::vector<VostelObj*> NotResting(Wanted wanted) const
    {
        std::vector<VostelObj*> objects;
        std::copy_if(Restless.begin(), Restless.end(), std::back_inserter(objects), wanted);
        std::copy_if(Awake.begin(), Awake.end(), std::back_inserter(objects), wanted);
        std::sort(objects.begin(), objects.end(), LiesBelow);
        return objects;
    }
    std::vector<VostelObj*> NotResting() const
    {
        return NotResting([](const VostelObj*) { return true; });
    }
    // In paint order.
    std::vector<VostelObj*> Selected() const;
    // The kinds that never rest, in paint order.
    const std::vector<VostelObj*>& NeverResting() const { return Restless; }

    void reserve(std::size_t count);    // what is put there then fails no more
    void push_back(VostelObj* object) { Insert(size(), object); }
    void Insert(std::size_t index, VostelObj* object);
    // Of one that is awake.
    VostelObj* TakeOut(std::size_t index);
    // All of them, with no storage left.
    std::vector<VostelObj*> TakeAll();
    // For all objects and the storage of another list on the same view.
    void Exchange(ElementList& other) noexcept;

    // Wakes an object that somebody may change until the outermost call on the canvas returns. It stays awake
    // till a later one has derived it. An object on no list is left alone.
    VostelObj& Wake(VostelObj& object);
    // Derives what a resting object owes.
    VostelObj& Settle(VostelObj& object) const;

    // Every object gets the view as it is now, resting ones when somebody looks. With refreshAgain that is
    // done twice: an object may have placed itself after its own refresh.
    void TakeView(bool refreshAgain);
    // The same with all that a paint derives.
    void TakePaintedView();
    // A paint: of each object that is drawn, what its drawing goes by and, afterwards, that it was drawn.
    void       BeginPaint();
    VostelObj& SettleForPaint(VostelObj& object) const;
    void       NotePaint(VostelObj& object) const;
    // The objects that may be hit at a client point, and those that may show in a client area, in paint
    // order: all that do not rest, and of those that do the ones that lie near. The next such call ends the
    // list.
    const std::vector<VostelObj*>& NearPoint(CPoint point);
    const std::vector<VostelObj*>& NearArea(int width, int height);
    // The objects that may show in any of the areas, all that do not rest among them; null if that is
    // unknown.
    const std::vector<VostelObj*>* NearAreas(std::span<const CRect> areas);
    // Of a resting object the px of the client area that it draws on at most.
    CRect       ClientBoxOf(const VostelObj& object) const;
    std::size_t RestingCount() const { return All.size() - Awake.size() - Restless.size(); }
    // The place of the lowest object that does not rest, size() if all do.
    std::size_t LowestMoving() const;
    // Another one whenever, in the same view, the resting objects may be others or look otherwise.
    std::uint64_t RestingStamp() const { return RestStamp; }
    // For whoever is about to tell resting objects whether they are hit: they note it.
    void NoteRestChanges() { ++RestStamp; }
    // At the beginning of an outermost call, when nobody has an object in hand: those rest that can.
    void BeginCall();
    void Deselect();

private:
    // What client geometry is derived from, but for the size of handles.
    struct Placing {
        double Scale = 0.0;
        double PixelRatio = 0.0;
        LONG   Left = 0;
        LONG   Top = 0;

        bool operator==(const Placing&) const = default;
    };

    CanvasView&             View;
    std::vector<VostelObj*> All;
    std::vector<VostelObj*> Restless;
    std::vector<VostelObj*> Awake;          // of kinds that rest; in no order
    mutable CanvasView      PaintedView;    // of the last paint, as far as objects are derived from it
    Placing                 Derived;        // of ViewStamp
    std::uint64_t           ViewStamp = 1;
    std::uint64_t           PaintStamp = 1;
    std::uint64_t           Call = 1;
    std::uint64_t           RestStamp = 1;
    BoxIndex                Index;             // of objects that rest, and of some that have rested
    std::uint64_t           IndexStamp = 0;    // 0: there is none
    std::uint64_t           LastIndexStamp = 0;
    double                  Farthest = 0.0;    // image px; of the index's coordinates
    double                  Reach = 0.0;       // px; of handles and pens
    std::vector<VostelObj*> Near;
    std::vector<VostelObj*> Sorted;                  // scratch of it
    bool                    MayRest = false;         // something was derived since the last attempt
    bool                    SelectedRest = false;    // there may be selected ones that rest

    static bool LiesBelow(const VostelObj* a, const VostelObj* b) { return a->Entry.Place < b->Entry.Place; }
    static bool Rests(const VostelObj& object) { return object.PlacedBy() != DerivedFrom::Client; }

    static Placing PlacingOf(const CanvasView& view);
    bool           PutToRest(VostelObj& object) noexcept;    // if it can
    bool           CanRest(const VostelObj& object) const;
    void           NoteView();
    void           NotePaintedView();
    void           NoteDerived(ElementEntry& entry) const;
    void           DeriveAsPainted(VostelObj& object) const;
    void           Renumber(std::size_t from);
    void           TakeIntoIndex(VostelObj& object);
    void           BuildIndex();
    void           DropIndex() noexcept;
    // Whether the index answers for objects that were derived from the view.
    bool   IndexHolds(const CanvasView& view) const;
    double PxBeside(const CanvasView& view) const;    // a box, that drawing and hits may take
    // Appends what rests and lies about the client box.
    void                           FindResting(const CanvasView& view, const CRect& clientBox);
    const std::vector<VostelObj*>& MergeNear();
};

}
