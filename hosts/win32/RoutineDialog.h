#pragma once

// Asks for the parameters of an image routine, and for the second canvas where it takes two images.

#include "FormDialog.h"
#include "commands/ViewerWindow.h"

namespace vostel::viewer {

class RoutineDialog : public FormDialog {
public:
    explicit RoutineDialog(const RoutineQuestion& question);

    // What was entered, after a confirmed Ask.
    std::vector<double> Values;
    int                 Second;    // canvas

protected:
    bool Read() override;

private:
    const RoutineQuestion& Question;
    int                    SecondRow = -1;
};

}
