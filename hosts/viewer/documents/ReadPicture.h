#pragma once

#include "documents/Outcome.h"
#include "documents/Stack.h"

#include <memory>
#include <string>
#include <vector>

namespace vostel::viewer {

// A picture file read on a canvas of its own, by whatever thread makes this.
struct ReadPicture {
    // now: the canvas that the picture is for, whose area it is fitted to.
    ReadPicture(const QString& file, const CanvasInfo& now, const std::string& language);

    std::unique_ptr<Canvas> Made;    // null when it failed
    std::vector<PageSource> Sources;
    Outcome                 Ended;
};

}
