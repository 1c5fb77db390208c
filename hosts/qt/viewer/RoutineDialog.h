#pragma once

#include "commands/ViewerWindow.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace vostel::viewer {

// Asks for the parameters of a routine, and for the canvas of its second image where it takes two.
class RoutineDialog : public QDialog {
    Q_OBJECT

public:
    RoutineDialog(const RoutineQuestion& question, QWidget* parent);

    std::vector<double> Values() const;
    int                 SecondCanvas() const;    // -1 for routines of one image

private:
    QWidget* MakeField(const RoutineParameter& parameter, double value);
    void     Check();

    const Routine&        Asked;
    std::vector<QWidget*> Fields;
    QComboBox*            Second = nullptr;
    QLabel*               Verdict;
    QPushButton*          Run;
};

}
