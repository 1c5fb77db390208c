#pragma once

// Asks for the parameters of an image routine, and for the second canvas where it takes two images.

#include "FormDialog.h"
#include "commands/Routines.h"

namespace vostel::viewer {

class RoutineDialog : public FormDialog {
public:
    // Values: what the fields start with. Seconds: the canvases that may be the second.
    RoutineDialog(const Routine& routine, const std::vector<double>& values, const std::vector<int>& seconds);

    std::vector<double> Values;         // the answer after a confirmed Ask
    int                 Second = -1;    // canvas

protected:
    bool Read() override;

private:
    const Routine&   Asked;
    std::vector<int> Seconds;
    int              SecondRow = -1;
};

}
