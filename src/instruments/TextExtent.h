#pragma once

#include "vostel/platform.h"

namespace vostel {

// What a text needs with the font that the context holds, at 0, 0. Nothing for an empty text, and nothing
// without a live context, where the measuring call of some systems leaves rubbish.
CRect TextExtent(HDC dc, const CString& text);

}
