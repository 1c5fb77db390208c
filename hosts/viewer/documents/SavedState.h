#pragma once

#include <vostel.hpp>

namespace vostel::viewer {

// Whether a canvas is at the step of its history at which it was saved, told by the numbers of steps before
// and behind. Where those do not tell a step from a redo it counts as not saved.
class SavedState {
public:
    void Save(const HistoryInfo& now);    // this is the saved state
    void Lose();                          // no state is, until the next Save()
    void Hear(const HistoryInfo& now);    // the history has changed

    bool IsSaved() const { return Distance == 0 && Known; }

private:
    bool          Known = false;    // the saved state can be reached
    std::int64_t  Distance = 0;     // steps from it to the current one
    std::uint32_t Undos = 0, Redos = 0;
};

}
