#include "documents/SavedState.h"

namespace vostel::viewer {

void SavedState::Save(const HistoryInfo& now)
{
    Known = true;
    Distance = 0;
    Undos = now.undo_count;
    Redos = now.redo_count;
}

void SavedState::Lose()
{
    Known = false;
}

void SavedState::Hear(const HistoryInfo& now)
{
    const bool undone = now.undo_count + 1 == Undos && now.redo_count == Redos + 1;
    const bool redone = now.undo_count == Undos + 1 && now.redo_count + 1 == Redos && now.redo_count > 0;
    const bool stepped = now.undo_count == Undos + 1 && now.redo_count == 0;
    if (undone)
        --Distance;
    else if (redone)
        ++Distance;
    else if (stepped && Distance >= 0)
        ++Distance;
    else if (now.undo_count != Undos || now.redo_count != Redos || now.redo_count == 0)
        Known = false;    // a step in the place of the way to the saved one, or more than one at once
    Undos = now.undo_count;
    Redos = now.redo_count;
}

}
