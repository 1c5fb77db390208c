#include "documents/CalibrationDialog.h"

#include "documents/Calibration.h"
#include "documents/Document.h"
#include "documents/FolderSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace vostel::viewer {

namespace {

// In px of the image; 0 of what has no length.
double PixelLength(const CanvasModel& model, const Object& object)
{
    const Measures measures = object.measure();
    return (measures.valid & VOSTEL_HAS_LENGTH) == 0 ? 0.0
                                                     : measures.length / Calibration::Of(model).UnitsPerPixel;
}

QString ShortNumber(double value)
{
    return QLocale().toString(value, 'g', 6);
}

}

CalibrationDialog::CalibrationDialog(Document& document, QWidget* parent)
    : QDialog(parent), Content(document), Number(new QLineEdit), Unit(new QComboBox),
      ForFolder(new QCheckBox), Verdict(new QLabel),
      Buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setObjectName(QStringLiteral("Calibration"));
    setWindowTitle(tr("Scale"));
    const CanvasModel& model = Content.Model();
    const PixelScale   now = Calibration::Of(model);
    Line = model.SelectedObject();
    if (Line && !(PixelLength(model, *Line) > 0.0))
        Line.reset();

    auto* const form = new QFormLayout;
    Number->setObjectName(QStringLiteral("CalibrationNumber"));
    if (Line) {
        form->addRow(tr("The selected line:"),
                     new QLabel(tr("%1 px long").arg(ShortNumber(PixelLength(model, *Line)))));
        form->addRow(tr("Its true &length:"), Number);
        Number->setAccessibleName(tr("True length of the selected line"));
        Number->setText(ShortNumber(PixelLength(model, *Line) * now.UnitsPerPixel));
    } else {
        form->addRow(tr("&Length of a pixel:"), Number);
        Number->setAccessibleName(tr("Length of a pixel"));
        Number->setText(ShortNumber(now.UnitsPerPixel));
    }
    Unit->setObjectName(QStringLiteral("CalibrationUnit"));
    Unit->setAccessibleName(tr("Unit"));
    Unit->setEditable(true);
    Unit->addItems({QStringLiteral("mm"), QStringLiteral("µm"), QStringLiteral("nm"), QStringLiteral("cm"),
                    QStringLiteral("m"), QStringLiteral("in"), QStringLiteral("px")});
    Unit->setCurrentText(Calibration::IsSet(model) || !Line ? now.Unit : QStringLiteral("mm"));
    form->addRow(tr("&Unit:"), Unit);
    ForFolder->setObjectName(QStringLiteral("CalibrationForFolder"));
    ForFolder->setText(tr("For all pictures of this &folder"));
    ForFolder->setEnabled(!Content.PicturePath().isEmpty());
    ForFolder->setChecked(ForFolder->isEnabled() &&
                          Calibration::OfFolder(FolderOf(Content.PicturePath())).has_value());
    form->addRow(QString(), ForFolder);
    Verdict->setObjectName(QStringLiteral("CalibrationVerdict"));
    Verdict->setWordWrap(true);
    if (!Line)
        form->addRow(new QLabel(tr("Select a line of known length to set the scale by it.")));
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(Verdict);
    column->addWidget(Buttons);

    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(Number, &QLineEdit::textChanged, this, &CalibrationDialog::Check);
    connect(Unit, &QComboBox::editTextChanged, this, &CalibrationDialog::Check);
    Check();
    Number->setFocus();
    Number->selectAll();
}

double CalibrationDialog::Length() const
{
    bool   read = false;
    double length = QLocale().toDouble(Number->text().trimmed(), &read);
    if (!read)
        length = QLocale::c().toDouble(Number->text().trimmed(), &read);
    return read && std::isfinite(length) && length > 0.0 ? length : 0.0;
}

void CalibrationDialog::Check()
{
    const QString unit = Unit->currentText().trimmed();
    const bool    fits = Length() > 0.0 && !unit.isEmpty();
    const double  pixel = Line ? Length() / PixelLength(Content.Model(), *Line) : Length();
    Verdict->setText(fits ? tr("A pixel is %1 %2.").arg(ShortNumber(pixel), unit)
                          : tr("A length above zero and a unit are needed."));
    Buttons->button(QDialogButtonBox::Ok)->setEnabled(fits);
}

Outcome CalibrationDialog::Apply()
{
    const QString unit = Unit->currentText().trimmed();
    const Outcome outcome = Line ? Calibration::ByLength(Content.Model(), *Line, Length(), unit)
                                 : Calibration::Set(Content.Model(), {Length(), unit});
    if (!outcome.IsDone() || !ForFolder->isEnabled())
        return outcome;
    const QString folder = FolderOf(Content.PicturePath());
    if (ForFolder->isChecked())
        Calibration::KeepForFolder(folder, Calibration::Of(Content.Model()));
    else
        Calibration::ForgetFolder(folder);
    return outcome;
}

Outcome AskCalibration(Document& document, QWidget* parent)
{
    CalibrationDialog dialog(document, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Apply() : Cancelled();
}

Outcome ForgetCalibration(Document& document)
{
    if (!document.PicturePath().isEmpty())
        Calibration::ForgetFolder(FolderOf(document.PicturePath()));
    return Calibration::Set(document.Model(), PixelScale());
}

}
