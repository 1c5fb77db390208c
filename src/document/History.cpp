#include "document/History.h"

#include <utility>

namespace vostel {

namespace {

struct Sizes {
    std::size_t operator()(const ObjectChange& change) const
    {
        return change.Before.Bytes() + change.After.Bytes();
    }
    std::size_t operator()(const PresenceChange& change) const { return change.State.Bytes(); }
    std::size_t operator()(const OrderChange&) const { return 0; }
    std::size_t operator()(const ContrastChange&) const { return 0; }
    std::size_t operator()(const UnitsChange&) const { return 0; }
};

}

std::size_t BytesOf(const Change& change)
{
    return sizeof change + std::visit(Sizes(), change);
}

void History::SetLimit(std::size_t bytes)
{
    MostBytes = bytes;
    Trim();
}

void History::Push(HistoryStep step)
{
    step.Bytes = sizeof step + step.Name.capacity();
    for (const Change& change : step.Changes)
        step.Bytes += BytesOf(change);
    for (const HistoryStep& undone : Undone)
        HeldBytes -= undone.Bytes;
    Undone.clear();
    HeldBytes += step.Bytes;
    Done.push_back(std::move(step));
    Trim();
}

void History::Clear()
{
    Done.clear();
    Undone.clear();
    HeldBytes = 0;
}

void History::WasUndone()
{
    Undone.push_back(std::move(Done.back()));
    Done.pop_back();
}

void History::WasRedone()
{
    Done.push_back(std::move(Undone.back()));
    Undone.pop_back();
}

// A step to be brought again is given up only when no older one is left, the farthest first.
void History::Trim()
{
    while (HeldBytes > MostBytes && !(Done.empty() && Undone.empty())) {
        std::deque<HistoryStep>& steps = Done.empty() ? Undone : Done;
        HeldBytes -= steps.front().Bytes;
        steps.pop_front();
    }
}

}
