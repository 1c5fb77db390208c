#pragma once

#include "document/History.h"

#include <vector>

namespace vostel {

// Several changes of one object become one, and what changed nothing in the end goes.
void Condense(std::vector<Change>& changes);

// Whether condensed changes leave everything as it was: what came has gone again, and all else is back.
bool ComeToNothing(const std::vector<Change>& changes);

}
