#pragma once

#include "documents/Outcome.h"

#include <QDialog>
#include <vostel.hpp>

#include <optional>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace vostel::viewer {

class CanvasModel;
class Document;

// Asks for the scale of a picture: the true length of the selected line, or that of a pixel where no line is
// selected; the unit; and whether all pictures of the folder have it.
class CalibrationDialog : public QDialog {
    Q_OBJECT

public:
    explicit CalibrationDialog(Document& document, QWidget* parent = nullptr);

    Outcome Apply();

private:
    void   Check();
    double Length() const;    // 0 for what is no number

    Document&             Content;
    std::optional<Object> Line;    // the selected one
    QLineEdit*            Number;
    QComboBox*            Unit;
    QCheckBox*            ForFolder;
    QLabel*               Verdict;
    QDialogButtonBox*     Buttons;
};

// The dialog, and what it sets.
Outcome AskCalibration(Document& document, QWidget* parent);

// Back to px, for this picture and those of its folder.
Outcome ForgetCalibration(Document& document);

}
