#pragma once

#include <vostel.hpp>

namespace vostel::viewer {

// The contrast of a picture that has just come. Bytes and colors show as they are, deep values by their
// range; where a few values lie far off all others, between the percentiles 0.1 and 99.9.
// @param forgets whether the history, which holds nothing else yet, is to be empty again
void SetFirstContrast(Canvas& canvas, bool forgets);

// Empties the history of a picture that has just come: what was set for it is no step of the person.
void ForgetHistory(Canvas& canvas);

}
