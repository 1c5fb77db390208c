#pragma once

#include "commands/Routines.h"

#include <QDialog>
#include <QStringList>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

// Asks for the parameters of a routine, and for the canvas of its second image where it takes two. It starts
// with the last answer of the same routine.
class RoutineDialog : public QDialog {
    Q_OBJECT

public:
    // names: what the person knows the five canvases by; empty for a canvas without an image.
    RoutineDialog(const Routine& routine, QSize image, const QStringList& names, int canvas, QWidget* parent);

    // Whether there is anything to ask.
    static bool Asks(const Routine& routine);

    std::vector<double> Values() const;
    int                 SecondCanvas() const;    // -1 for routines of one image
    void                Remember() const;

private:
    QWidget* MakeField(const RoutineParameter& parameter, double value);
    void     Check();

    const Routine&        Asked;
    std::vector<QWidget*> Fields;
    QComboBox*            Second = nullptr;
    QLabel*               Verdict;
    QPushButton*          Run;
};
