#include "canvas/VostelDC.h"

#include <algorithm>
#include <utility>

namespace vostel {

int* ElementCounts::OfRegions(int kind)
{
    switch (kind) {
    case OverlayRect:
        return &RectCount;
    case OverlayCustomRect:
        return &CustomRectCount;
    case OverlayPolygon:
        return &PolygonCount;
    case OverlaySpline:
        return &SplineCount;
    case OverlayOneStroke:
        return &OneStrokeCount;
    default:
        return nullptr;
    }
}

int* ElementCounts::OfKind(int kind)
{
    switch (kind) {
    case OverlayMStroke:
        return &MStrokeCount;
    case OverlayTextRect:
        return &TextCount;
    case OverlayMeasureLine:
        return &MeasureLineCount;
    case OverlayAngle3Pts:
        return &Angle3Count;
    case OverlayAngle4Pts:
        return &Angle4Count;
    default:
        return OfRegions(kind);
    }
}

ElementNumbers ElementCounts::Next(int kind)
{
    ElementNumbers numbers;
    numbers.SerialNo = OfRegions(kind) ? RegionSerial++ : ElementSerial;
    ++ElementSerial;
    if (int* const count = OfKind(kind))
        numbers.TypeSerial = (*count)++;
    return numbers;
}

VostelObj& VostelDC::Append(std::unique_ptr<VostelObj>&& object)
{
    const ElementCounts before = *this;
    Elements.push_back(object.get());
    VostelObj& added = *object.release();
    const auto [serial, typeSerial] = Next(added.TypeCode);
    added.SerialNo = serial;
    added.TypeSerial = typeSerial;
    SelIndex = static_cast<int>(Elements.size()) - 1;
    added.Selected = true;
    if (Observer)
        Observer->WasAdded(added, before);
    return added;
}

void VostelDC::ReserveDeletion()
{
    Removed.reserve(Removed.size() + Elements.size());
}

void VostelDC::DeleteAll()
{
    ReserveDeletion();
    if (Observer)
        Observer->WillRemoveAll();
    const std::vector<VostelObj*> taken = Elements.TakeAll();
    Removed.insert(Removed.end(), taken.begin(), taken.end());
    static_cast<ElementCounts&>(*this) = ElementCounts();
    DestroyPending = true;
    if (CallsUnderWay == 0)
        DestroyRemoved();
}

void VostelDC::DeleteUnlocked()
{
    const std::vector<VostelObj*>& all = Elements.AsTheyLie();
    if (std::none_of(all.begin(), all.end(), [](const VostelObj* object) { return object->Locked; })) {
        DeleteAll();
        return;
    }
    for (std::size_t i = Elements.size(); i-- > 0;) {
        if (!all[i]->Locked)
            DeleteAt(i);
    }
}

void VostelDC::DeleteSelected()
{
    if (!SelectedElement())
        return;
    DeleteAt(static_cast<std::size_t>(SelIndex));
    --SelIndex;    // selected by index only: the flag of the object that stands there now is not set
}

void VostelDC::DeleteAt(std::size_t index)
{
    Removed.reserve(Removed.size() + 1);
    VostelObj* const removed = Elements[index];
    if (Observer)
        Observer->WillRemove(index);
    Removed.push_back(removed);
    const int kind = removed->TypeCode;
    MoveNumbers(index + 1, kind, -1);
    if (int* const count = OfRegions(kind))
        --*count;
    --RegionSerial;    // for every kind: hosts rely on the resulting numbers
    Elements.TakeOut(index);
}

void VostelDC::MoveNumbers(std::size_t first, int kind, int step)
{
    for (std::size_t i = first; i < Elements.size(); ++i) {
        VostelObj& object = *Elements.AsTheyLie()[i];
        object.SerialNo += step;
        if (object.TypeCode == kind)
            object.TypeSerial += step;
    }
}

void VostelDC::ViewMoved()
{
    if (ShowContrastCtrl)
        ContrastCtrl.SetCanvasView(&View);
    if (ShowProgress)
        ProgressCtrl.SetCanvasView(&View);
    Elements.TakePaintedView();
}

void VostelDC::Insert(std::size_t index, VostelObj* owned)
{
    Elements.Insert(index, owned);
}

VostelObj* VostelDC::Detach(std::size_t index)
{
    Elements.Wake(*Elements.AsTheyLie()[index]);
    return Elements.TakeOut(index);
}

void VostelDC::Erase(std::size_t index)
{
    Removed.push_back(Elements[index]);
    Detach(index);
    DestroyPending = true;
}

}
