#include "RoutineDialog.h"

#include "Translations.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace vostel::viewer {

RoutineDialog::RoutineDialog(const RoutineQuestion& question, QWidget* parent)
    : QDialog(parent), Asked(*question.Asked)
{
    setWindowTitle(CommandText(Asked.Title));
    auto* const form = new QFormLayout;
    form->setHorizontalSpacing(16);
    if (!question.Sources.empty()) {
        Second = new QComboBox(this);
        for (const RoutineQuestion::Source& source : question.Sources)
            Second->addItem(QString::fromStdWString(source.Name), source.Canvas);
        Second->setCurrentIndex(Second->findData(question.Second));
        form->addRow(tr("Second image:"), Second);
    }
    for (std::size_t i = 0; i < Asked.Parameters.size(); ++i) {
        Fields.push_back(MakeField(Asked.Parameters[i], question.Values[i]));
        form->addRow(tr("%1:").arg(CommandText(Asked.Parameters[i].Name)), Fields.back());
    }
    Verdict = new QLabel(this);
    Verdict->setStyleSheet(QStringLiteral("color: #b00020"));
    Verdict->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    Run = buttons->addButton(tr("&Run"), QDialogButtonBox::AcceptRole);
    Run->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addLayout(form);
    column->addWidget(Verdict);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    Check();
}

QWidget* RoutineDialog::MakeField(const RoutineParameter& parameter, double value)
{
    constexpr int FieldWidth = 150;
    switch (parameter.Kind) {
    case ParameterKind::Choice: {
        auto* const box = new QComboBox(this);
        for (const char* const choice : parameter.Choices)
            box->addItem(CommandText(choice));
        box->setCurrentIndex(qBound(0, static_cast<int>(value), box->count() - 1));
        box->setMinimumWidth(FieldWidth);
        return box;
    }
    case ParameterKind::Whole: {
        auto* const box = new QSpinBox(this);
        box->setRange(static_cast<int>(parameter.Low), static_cast<int>(parameter.High));
        box->setValue(static_cast<int>(value));
        box->setAccelerated(true);
        box->setMinimumWidth(FieldWidth);
        connect(box, &QSpinBox::valueChanged, this, &RoutineDialog::Check);
        return box;
    }
    case ParameterKind::Real:
        break;
    }
    auto* const box = new QDoubleSpinBox(this);
    box->setDecimals(3);
    box->setRange(parameter.Low, parameter.High);
    box->setValue(value);
    box->setSingleStep(0.1);
    box->setMinimumWidth(FieldWidth);
    connect(box, &QDoubleSpinBox::valueChanged, this, &RoutineDialog::Check);
    return box;
}

std::vector<double> RoutineDialog::Values() const
{
    std::vector<double> values;
    for (QWidget* const field : Fields) {
        if (const auto* const choice = qobject_cast<QComboBox*>(field))
            values.push_back(choice->currentIndex());
        else if (const auto* const whole = qobject_cast<QSpinBox*>(field))
            values.push_back(whole->value());
        else
            values.push_back(static_cast<QDoubleSpinBox*>(field)->value());
    }
    return values;
}

int RoutineDialog::SecondCanvas() const
{
    return Second ? Second->currentData().toInt() : -1;
}

void RoutineDialog::Check()
{
    const char* const problem = CheckValues(Asked, Values());
    Verdict->setText(problem ? CommandText(problem) : QString());
    Verdict->setVisible(problem != nullptr);
    Run->setEnabled(!problem);
}

}
