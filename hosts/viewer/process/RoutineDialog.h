#pragma once

#include "process/Routine.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class QLabel;

namespace vostel::viewer {

class RoutineRun;

// A part of an image, and how its values are shown.
struct PreviewSource {
    std::shared_ptr<const Samples> Part;
    double                         Low = 0.0, High = 255.0;
};

// Asks for the parameters of a routine and shows what it makes of a part of the image, which a thread works
// out while the person goes on. What was chosen last is there again the next time.
class RoutineDialog : public QDialog {
    Q_OBJECT

public:
    RoutineDialog(const Routine& routine, PreviewSource source, QWidget* parent = nullptr);
    ~RoutineDialog() override;

    std::vector<double> Values() const;

    void accept() override;

private:
    QWidget* MakeField(const Parameter& parameter);
    void     BeginPreview();
    void     ShowPreview(const Samples& result);

    const Routine&                       Line;
    PreviewSource                        Source;
    std::vector<std::function<double()>> Fields;
    QLabel*                              Picture = nullptr;
    QTimer                               Rest;    // between a change and a preview
    std::unique_ptr<RoutineRun>          Run;     // of the preview
};

// A text of the table of routines in the language of the interface.
QString RoutineText(const char* english);

// The values that were chosen last, or the first ones.
std::vector<double> KeptValues(const Routine& routine);

}
