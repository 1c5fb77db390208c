#include "document/StepChanges.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace vostel {

namespace {

// What the changes of a step come to when they are taken together.
class Balance {
public:
    void operator()(const ObjectChange& change)
    {
        OthersChanged = OthersChanged || !Came.contains(change.Id);
    }
    void operator()(const PresenceChange& change)
    {
        OthersChanged = OthersChanged || (!change.Added && !Came.contains(change.Id));
        Came.insert(change.Id);
        Present += change.Added ? 1 : -1;
    }
    void operator()(const OrderChange& change) { Moves.push_back(&change); }
    void operator()(const ContrastChange& change)
    {
        FirstContrast = FirstContrast ? FirstContrast : &change;
        LastContrast = &change;
    }
    void operator()(const UnitsChange& change)
    {
        FirstUnits = FirstUnits ? FirstUnits : &change;
        LastUnits = &change;
    }

    bool IsNothing() const
    {
        return !OthersChanged && Present == 0 && MovesCancelOut() &&
               (!FirstContrast || FirstContrast->Before == LastContrast->After) &&
               (!FirstUnits || FirstUnits->Before == LastUnits->After);
    }

private:
    std::unordered_set<std::uint64_t> Came;
    int                               Present = 0;
    bool                              OthersChanged = false;    // objects that were there before
    std::vector<const OrderChange*>   Moves;
    const ContrastChange*             FirstContrast = nullptr;
    const ContrastChange*             LastContrast = nullptr;
    const UnitsChange*                FirstUnits = nullptr;
    const UnitsChange*                LastUnits = nullptr;

    bool MovesCancelOut() const
    {
        if (Moves.empty())
            return true;
        // An object that goes from below others moves their numbers.
        if (!Came.empty())
            return false;
        std::size_t count = 0;
        for (const OrderChange* const move : Moves)
            count = std::max({count, move->From + 1, move->To + 1});
        std::vector<std::size_t> places(count);
        std::iota(places.begin(), places.end(), std::size_t{0});
        for (const OrderChange* const move : Moves) {
            const auto from = places.begin() + static_cast<std::ptrdiff_t>(move->From);
            const auto to = places.begin() + static_cast<std::ptrdiff_t>(move->To);
            if (from < to)
                std::rotate(from, from + 1, to + 1);
            else
                std::rotate(to, from, from + 1);
        }
        return std::is_sorted(places.begin(), places.end());
    }
};

}

void Condense(std::vector<Change>& changes)
{
    std::unordered_map<std::uint64_t, std::size_t>
                      last;    // change of an object that came and went not since
    std::vector<bool> merged(changes.size());
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (const PresenceChange* const presence = std::get_if<PresenceChange>(&changes[i]))
            last.erase(presence->Id);
        ObjectChange* const change = std::get_if<ObjectChange>(&changes[i]);
        if (!change)
            continue;
        const auto [place, isFirst] = last.emplace(change->Id, i);
        if (isFirst)
            continue;
        std::get<ObjectChange>(changes[place->second]).After = std::move(change->After);
        merged[i] = true;
    }
    std::size_t kept = 0;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const ObjectChange* const change = std::get_if<ObjectChange>(&changes[i]);
        if (merged[i] || (change && change->Before == change->After))
            continue;
        if (kept != i)
            changes[kept] = std::move(changes[i]);
        ++kept;
    }
    changes.resize(kept);
}

bool ComeToNothing(const std::vector<Change>& changes)
{
    Balance balance;
    for (const Change& change : changes)
        std::visit(balance, change);
    return balance.IsNothing();
}

}
