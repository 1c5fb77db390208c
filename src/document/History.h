#pragma once

#include "canvas/ElementCounts.h"
#include "document/KindRules.h"
#include "document/ObjectState.h"
#include "output/ContrastState.h"
#include "vostel/platform.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <variant>
#include <vector>

namespace vostel {

// An object before and after.
struct ObjectChange {
    std::uint64_t Id = 0;
    ObjectState   Before;
    ObjectState   After;
};

// An object that came or went.
struct PresenceChange {
    std::uint64_t Id = 0;
    bool          Added = false;    // else removed
    bool          Renumbering = false;
    std::size_t   Index = 0;
    ElementClass  Class = ElementClass::ReadOut;
    ObjectState   State;
    ElementCounts Before;
    ElementCounts After;
};

// An object that changed its place in the drawing order.
struct OrderChange {
    std::uint64_t Id = 0;
    std::size_t   From = 0;
    std::size_t   To = 0;
};

struct ContrastChange {
    ContrastState Before;
    ContrastState After;
};

// The scale of measures.
struct MeasureUnits {
    double  UnitsPerPixel = 1.0;
    CString Unit = L"px";
    double  DrawnScale = 1.0;    // of measures that a gesture of the canvas calls makes

    bool operator==(const MeasureUnits& other) const
    {
        return UnitsPerPixel == other.UnitsPerPixel && Unit == other.Unit && DrawnScale == other.DrawnScale;
    }
};

struct UnitsChange {
    MeasureUnits Before;
    MeasureUnits After;
};

using Change = std::variant<ObjectChange, PresenceChange, OrderChange, ContrastChange, UnitsChange>;

std::size_t BytesOf(const Change& change);

// What is taken back and brought again at once.
struct HistoryStep {
    std::string         Name;
    std::vector<Change> Changes;
    std::size_t         Bytes = 0;
};

// Steps that can be taken back and brought again, within a limit of bytes.
class History {
public:
    std::size_t Limit() const { return MostBytes; }
    void        SetLimit(std::size_t bytes);
    std::size_t Bytes() const { return HeldBytes; }
    std::size_t UndoCount() const { return Done.size(); }
    std::size_t RedoCount() const { return Undone.size(); }

    // Takes a step with changes. What was taken back before is given up, and beyond the limit the oldest.
    void Push(HistoryStep step);
    void Clear();

    // The step that comes next, null for none; and that it has been taken back or brought again.
    const HistoryStep* NextUndo() const { return Done.empty() ? nullptr : &Done.back(); }
    const HistoryStep* NextRedo() const { return Undone.empty() ? nullptr : &Undone.back(); }
    void               WasUndone();
    void               WasRedone();

private:
    std::deque<HistoryStep> Done;
    std::deque<HistoryStep> Undone;
    std::size_t             MostBytes = 0;
    std::size_t             HeldBytes = 0;

    void Trim();
};

}
