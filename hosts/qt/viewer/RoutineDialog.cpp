#include "RoutineDialog.h"

#include "Translations.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace {

// Answers are kept by the names of the routine and the parameter, which outlive their numbers.
QString AnswerKey(const Routine& routine, const RoutineParameter& parameter)
{
    QString key =
        QStringLiteral("Routines/%1/%2").arg(QLatin1String(routine.Title), QLatin1String(parameter.Name));
    return key;
}

bool IsOfImage(const RoutineParameter& parameter)
{
    return parameter.From != StartFrom::Number;    // another image, another start
}

}

RoutineDialog::RoutineDialog(const Routine& routine, QSize image, const QStringList& names, int canvas,
                             QWidget* parent)
    : QDialog(parent), Asked(routine)
{
    setWindowTitle(CommandText(routine.Title));
    auto* const form = new QFormLayout;
    form->setHorizontalSpacing(16);
    if (routine.Input == RoutineInput::Two) {
        Second = new QComboBox(this);
        for (int number = 0; number < names.size(); ++number)
            if (!names[number].isEmpty())
                Second->addItem(names[number], number);
        // The likeliest second image is another one.
        for (int entry = Second->count() - 1; entry >= 0; --entry)
            if (Second->itemData(entry).toInt() != canvas)
                Second->setCurrentIndex(entry);
        form->addRow(tr("Second image:"), Second);
    }
    const std::vector<double> defaults = DefaultValues(routine, image.width(), image.height());
    const QSettings           settings;
    for (std::size_t i = 0; i < routine.Parameters.size(); ++i) {
        const RoutineParameter& parameter = routine.Parameters[i];
        double                  value = defaults[i];
        if (!IsOfImage(parameter))
            value = settings.value(AnswerKey(routine, parameter), value).toDouble();
        Fields.push_back(MakeField(parameter, value));
        form->addRow(tr("%1:").arg(CommandText(parameter.Name)), Fields.back());
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

bool RoutineDialog::Asks(const Routine& routine)
{
    return routine.Input == RoutineInput::Two || !routine.Parameters.empty();
}

QWidget* RoutineDialog::MakeField(const RoutineParameter& parameter, double value)
{
    constexpr int width = 150;
    switch (parameter.Kind) {
    case ParameterKind::Choice: {
        auto* const box = new QComboBox(this);
        for (const char* const choice : parameter.Choices)
            box->addItem(CommandText(choice));
        box->setCurrentIndex(qBound(0, static_cast<int>(value), box->count() - 1));
        box->setMinimumWidth(width);
        return box;
    }
    case ParameterKind::Whole: {
        auto* const box = new QSpinBox(this);
        box->setRange(static_cast<int>(parameter.Low), static_cast<int>(parameter.High));
        box->setValue(static_cast<int>(value));
        box->setAccelerated(true);
        box->setMinimumWidth(width);
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
    box->setMinimumWidth(width);
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

void RoutineDialog::Remember() const
{
    QSettings                 settings;
    const std::vector<double> values = Values();
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!IsOfImage(Asked.Parameters[i]))
            settings.setValue(AnswerKey(Asked, Asked.Parameters[i]), values[i]);
}

void RoutineDialog::Check()
{
    const char* const problem = CheckValues(Asked, Values());
    Verdict->setText(problem ? CommandText(problem) : QString());
    Verdict->setVisible(problem != nullptr);
    Run->setEnabled(!problem);
}
