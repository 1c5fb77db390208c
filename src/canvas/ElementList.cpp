#include "canvas/ElementList.h"

#include "base/Truncate.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <optional>

namespace vostel {

namespace {

constexpr double FarthestIndexed = 1e6;    // image px
constexpr int    LargestReach = 100;       // px of handles and pens
// Client px beside a point that is no whole one: of truncating it, of a spline's nodes before the curve is
// solved, which enlarges that, and of lines that end on the pixel behind.
constexpr double Rounding = 10.0;
// Client px that neither leave 32 bits nor the range in which every system draws lines where they are.
constexpr double FarthestClient = 1e8;

double FarthestOf(const Bounds& box)
{
    return std::max({std::fabs(box.Left), std::fabs(box.Top), std::fabs(box.Right), std::fabs(box.Bottom)});
}

bool IsSameBox(const Bounds& a, const Bounds& b)
{
    return a.Left == b.Left && a.Top == b.Top && a.Right == b.Right && a.Bottom == b.Bottom;
}

}

std::vector<VostelObj*> ElementList::Selected() const
{
    const auto selected = [](const VostelObj* object) { return object->Selected; };
    if (!SelectedRest)
        return NotResting(selected);
    std::vector<VostelObj*> objects;
    std::copy_if(All.begin(), All.end(), std::back_inserter(objects), selected);
    return objects;
}

void ElementList::reserve(std::size_t count)
{
    All.reserve(count);
    Restless.reserve(count);
    Awake.reserve(count);
}

void ElementList::Insert(std::size_t index, VostelObj* object)
{
    if (All.size() == std::min({All.capacity(), Restless.capacity(), Awake.capacity()}))
        reserve(std::max<std::size_t>(8, 2 * All.size()));
    const auto at = All.begin() + static_cast<std::ptrdiff_t>(index);
    if (Rests(*object)) {
        Awake.push_back(object);
    } else {
        const auto before = std::lower_bound(
            Restless.begin(), Restless.end(), index,
            [](const VostelObj* other, std::size_t place) { return other->Entry.Place < place; });
        Restless.insert(before, object);
    }
    All.insert(at, object);
    object->Entry = ElementEntry();
    object->Entry.Listed = true;
    ++RestStamp;
    object->Entry.WokenIn = Call;
    Renumber(index);
}

VostelObj* ElementList::TakeOut(std::size_t index)
{
    VostelObj* const object = All[index];
    ++RestStamp;
    if (IndexStamp != 0 && object->Entry.IndexStamp == IndexStamp) {
        try {
            Index.Remove({object->Entry.Box, object});
        } catch (const std::bad_alloc&) {
            DropIndex();
        }
    }
    // From the end: what goes has just been woken, or many go from the top.
    std::vector<VostelObj*>& holds = Rests(*object) ? Awake : Restless;
    const auto               found = std::find(holds.rbegin(), holds.rend(), object);
    if (found != holds.rend())
        holds.erase(std::next(found).base());
    All.erase(All.begin() + static_cast<std::ptrdiff_t>(index));
    object->Entry = ElementEntry();
    Renumber(index);
    return object;
}

std::vector<VostelObj*> ElementList::TakeAll()
{
    ++RestStamp;
    for (VostelObj* const object : All)
        object->Entry = ElementEntry();
    std::vector<VostelObj*>().swap(Restless);    // an assigned empty list would keep the storage
    std::vector<VostelObj*>().swap(Awake);
    std::vector<VostelObj*>().swap(Near);
    std::vector<VostelObj*>().swap(Sorted);
    DropIndex();
    std::vector<VostelObj*> taken;
    taken.swap(All);
    return taken;
}

void ElementList::Exchange(ElementList& other) noexcept
{
    ++RestStamp;
    ++other.RestStamp;
    All.swap(other.All);
    Restless.swap(other.Restless);
    Awake.swap(other.Awake);
    DropIndex();
    other.DropIndex();
}

VostelObj& ElementList::Wake(VostelObj& object)
{
    ElementEntry& entry = object.Entry;
    if (!entry.Listed)
        return object;
    if (entry.Resting) {
        Settle(object);
        Awake.push_back(&object);
        entry.Resting = false;
        ++RestStamp;
    }
    entry.ViewStamp = entry.PaintStamp = 0;
    entry.WokenIn = Call;
    return object;
}

VostelObj& ElementList::Settle(VostelObj& object) const
{
    if (object.Entry.Resting) {
        if (object.Entry.PaintStamp != PaintStamp)
            DeriveAsPainted(object);
        SettleForPaint(object);
    }
    return object;
}

void ElementList::DeriveAsPainted(VostelObj& object) const
{
    if (object.PlacedBy() == DerivedFrom::Paint) {
        object.Entry.ViewStamp = 0;
        object.View = &PaintedView;
        object.RefreshClientGeometry();
        object.DerivePainted();
    }
    object.Entry.PaintStamp = PaintStamp;
}

void ElementList::TakeView(bool refreshAgain)
{
    NoteView();
    for (std::size_t i = 0; i < Restless.size(); ++i) {
        VostelObj& object = *Restless[i];
        object.SetCanvasView(&View);
        if (refreshAgain)
            object.RefreshClientGeometry();
    }
    for (std::size_t i = 0; i < Awake.size(); ++i) {
        Awake[i]->SetCanvasView(&View);
        NoteDerived(Awake[i]->Entry);
    }
    MayRest = true;
}

void ElementList::TakePaintedView()
{
    NoteView();
    for (std::size_t i = 0; i < Restless.size(); ++i) {
        Restless[i]->SetCanvasView(&View);
        Restless[i]->DerivePainted();
    }
    for (std::size_t i = 0; i < Awake.size(); ++i) {
        Awake[i]->SetCanvasView(&View);
        Awake[i]->DerivePainted();
    }
    // From here on nothing fails: those that rest take the view with the others or not at all.
    NotePaintedView();
    for (VostelObj* const object : Awake) {
        NoteDerived(object->Entry);
        NotePaint(*object);
    }
    MayRest = true;
}

void ElementList::BeginPaint()
{
    NotePaintedView();
    MayRest = true;
}

VostelObj& ElementList::SettleForPaint(VostelObj& object) const
{
    if (object.Entry.Resting && object.Entry.ViewStamp != ViewStamp) {
        object.SetCanvasView(&View);
        object.Entry.ViewStamp = ViewStamp;
    }
    return object;
}

// What was drawn of an object that has changed since it was derived is not what the object gives now.
void ElementList::NotePaint(VostelObj& object) const
{
    if (object.Entry.ViewStamp == ViewStamp)
        object.Entry.PaintStamp = PaintStamp;
}

void ElementList::BeginCall()
{
    ++Call;
    if (!MayRest || Awake.size() <= MostAwake)
        return;
    MayRest = false;
    try {
        // Many new ones are packed faster than put in one by one.
        const std::ptrdiff_t unknown =
            std::count_if(Awake.begin(), Awake.end(),
                          [&](const VostelObj* object) { return object->Entry.IndexStamp != IndexStamp; });
        if (static_cast<std::size_t>(unknown) > All.size() / 8)
            DropIndex();
        const std::size_t before = Awake.size();
        std::erase_if(Awake, [&](VostelObj* object) { return PutToRest(*object); });
        if (IndexStamp == 0 && Awake.size() < before)
            BuildIndex();
    } catch (const std::bad_alloc&) {
        DropIndex();    // all objects are near then
    }
}

bool ElementList::PutToRest(VostelObj& object) noexcept
{
    try {
        if (!CanRest(object))
            return false;
        if (IndexStamp != 0)
            TakeIntoIndex(object);
    } catch (const std::bad_alloc&) {
        DropIndex();
        return false;
    }
    object.Entry.Resting = true;
    ++RestStamp;
    SelectedRest = SelectedRest || object.Selected;
    return true;
}

void ElementList::Deselect()
{
    if (SelectedRest) {
        ++RestStamp;
        for (VostelObj* const object : All)
            object->Selected = false;
        SelectedRest = false;
        return;
    }
    for (VostelObj* const object : Restless)
        object->Selected = false;
    for (VostelObj* const object : Awake)
        object->Selected = false;
}

ElementList::Placing ElementList::PlacingOf(const CanvasView& view)
{
    return {view.Scale, view.Settings.PixelRatio, view.DisplayRect.left, view.DisplayRect.top};
}

bool ElementList::CanRest(const VostelObj& object) const
{
    const ElementEntry& entry = object.Entry;
    if (entry.ViewStamp != ViewStamp ||
        (entry.PaintStamp != PaintStamp && object.PlacedBy() != DerivedFrom::View) || object.View != &View ||
        object.Hidden || object.WindowLow != object.WindowHigh || object.HandleRadius < 0 ||
        object.HandleRadius > LargestReach || !(object.LineWidth <= LargestReach))
        return false;
    const auto isNear = [](double v) { return std::fabs(v) <= FarthestIndexed; };    // false for no number
    if (!std::all_of(object.ImagePoints.begin(), object.ImagePoints.end(),
                     [&](ImagePoint point) { return isNear(point.x) && isNear(point.y); }))
        return false;
    const std::optional<Bounds> box = object.PlaceOnImage();
    return box && FarthestOf(*box) <= FarthestIndexed;
}

void ElementList::NoteView()
{
    const Placing now = PlacingOf(View);
    if (now == Derived)
        return;
    Derived = now;
    ++ViewStamp;
}

void ElementList::NotePaintedView()
{
    ++PaintStamp;
    PaintedView.Scale = View.Scale;
    PaintedView.DisplayRect = View.DisplayRect;
    PaintedView.Settings.PixelRatio = View.Settings.PixelRatio;
}

// Whoever took the object in this call may still change it.
void ElementList::NoteDerived(ElementEntry& entry) const
{
    if (entry.WokenIn != Call)
        entry.ViewStamp = ViewStamp;
}

void ElementList::Renumber(std::size_t from)
{
    for (std::size_t i = from; i < All.size(); ++i)
        All[i]->Entry.Place = i;
}

const std::vector<VostelObj*>& ElementList::NearPoint(CPoint point)
{
    const bool painted = !(PlacingOf(PaintedView) == PlacingOf(View));
    if (!IndexHolds(View) || (painted && !IndexHolds(PaintedView)))
        return All;
    try {
        Near.clear();
        const CRect box(point.x, point.y, point.x, point.y);
        FindResting(View, box);
        // Where the last paint has left what only a paint derives.
        if (painted)
            FindResting(PaintedView, box);
        return MergeNear();
    } catch (const std::bad_alloc&) {
        return All;
    }
}

const std::vector<VostelObj*>& ElementList::NearArea(int width, int height)
{
    if (!IndexHolds(View))
        return All;
    try {
        Near.clear();
        FindResting(View, CRect(0, 0, width, height));
        // Sorting them takes longer than drawing a few out of sight.
        return 4 * Near.size() > 3 * All.size() ? All : MergeNear();
    } catch (const std::bad_alloc&) {
        return All;
    }
}

const std::vector<VostelObj*>* ElementList::NearAreas(std::span<const CRect> areas)
{
    if (!IndexHolds(View))
        return nullptr;
    Near.clear();
    for (const CRect& area : areas)
        FindResting(View, area);
    return &MergeNear();
}

double ElementList::PxBeside(const CanvasView& view) const
{
    return (Reach + 1.0) * std::max(1.0, view.Settings.PixelRatio) + Rounding;
}

CRect ElementList::ClientBoxOf(const VostelObj& object) const
{
    const Bounds& box = object.Entry.Box;
    const double  reach = PxBeside(View);
    const auto    toClient = [&](double image, double beside, LONG origin) {
        return TruncToInt(std::floor(image * View.Scale + beside) + origin);
    };
    return CRect(
        toClient(box.Left, -reach, View.DisplayRect.left), toClient(box.Top, -reach, View.DisplayRect.top),
        toClient(box.Right, reach, View.DisplayRect.left), toClient(box.Bottom, reach, View.DisplayRect.top));
}

std::size_t ElementList::LowestMoving() const
{
    std::size_t lowest = Restless.empty() ? All.size() : Restless.front()->Entry.Place;
    for (const VostelObj* const object : Awake)
        lowest = std::min(lowest, object->Entry.Place);
    return lowest;
}

void ElementList::FindResting(const CanvasView& view, const CRect& clientBox)
{
    const double reach = PxBeside(view);
    const auto   toImage = [&](double client, LONG origin) { return (client - origin) / view.Scale; };
    Index.Find({toImage(clientBox.left - reach, view.DisplayRect.left),
                toImage(clientBox.top - reach, view.DisplayRect.top),
                toImage(clientBox.right + reach, view.DisplayRect.left),
                toImage(clientBox.bottom + reach, view.DisplayRect.top)},
               Near);
}

const std::vector<VostelObj*>& ElementList::MergeNear()
{
    std::erase_if(Near, [](const VostelObj* object) { return !object->Entry.Resting; });
    Near.insert(Near.end(), Awake.begin(), Awake.end());
    std::sort(Near.begin(), Near.end(), LiesBelow);
    Near.erase(std::unique(Near.begin(), Near.end()), Near.end());
    if (Restless.empty())
        return Near;
    Sorted.resize(Near.size() + Restless.size());
    std::merge(Near.begin(), Near.end(), Restless.begin(), Restless.end(), Sorted.begin(), LiesBelow);
    return Sorted;
}

bool ElementList::IndexHolds(const CanvasView& view) const
{
    const CRect& shown = view.DisplayRect;
    return IndexStamp != 0 && view.Scale > 0.0 &&
           Farthest * view.Scale + std::max(std::fabs(static_cast<double>(shown.left)),
                                            std::fabs(static_cast<double>(shown.top))) <
               FarthestClient &&
           Reach * view.Settings.PixelRatio < FarthestClient / 10.0;
}

// An object that has rested before and has not moved is there already.
void ElementList::TakeIntoIndex(VostelObj& object)
{
    ElementEntry& entry = object.Entry;
    const Bounds  box = *object.PlaceOnImage();
    Farthest = std::max(Farthest, FarthestOf(box));
    Reach = std::max({Reach, static_cast<double>(object.HandleRadius), object.LineWidth});
    if (entry.IndexStamp == IndexStamp) {
        if (IsSameBox(entry.Box, box))
            return;
        Index.Remove({entry.Box, &object});
        entry.IndexStamp = 0;
    }
    Index.Insert({box, &object});
    entry.Box = box;
    entry.IndexStamp = IndexStamp;
}

void ElementList::BuildIndex()
{
    std::vector<BoxIndex::Item> items;
    items.reserve(All.size());
    Farthest = Reach = 0.0;
    for (VostelObj* const object : All) {
        if (!object->Entry.Resting)
            continue;
        const Bounds box = *object->PlaceOnImage();
        Farthest = std::max(Farthest, FarthestOf(box));
        Reach = std::max({Reach, static_cast<double>(object->HandleRadius), object->LineWidth});
        items.push_back({box, object});
    }
    Index.Build(items);
    IndexStamp = ++LastIndexStamp;
    for (const BoxIndex::Item& item : items) {
        item.Object->Entry.Box = item.Box;
        item.Object->Entry.IndexStamp = IndexStamp;
    }
}

void ElementList::DropIndex() noexcept
{
    Index.Clear();
    IndexStamp = 0;
}

}
