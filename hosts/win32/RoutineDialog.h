#pragma once

// Asks for the parameters of an image routine, and for the second canvas where it takes two images.

#include "FormDialog.h"
#include "commands/ViewerWindow.h"

namespace vostel::viewer {

class RoutineDialog : public FormDialog {
public:
    RoutineDialog(const RoutineQuestion& question, Language language);

    // What was entered, after a confirmed Ask.
    std::vector<double> Values;
    int                 Second;    // canvas

protected:
    bool Read() override;

private:
    const RoutineQuestion& Question;
    int                    SecondRow = -1;

    std::wstring LimitsOf(const RoutineParameter& parameter) const;
};

}
