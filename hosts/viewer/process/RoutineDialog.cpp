#include "process/RoutineDialog.h"

#include "documents/Mnemonics.h"
#include "process/RoutineRun.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QImage>
#include <QLabel>
#include <QSettings>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

QString KeyOf(const Routine& routine, const Parameter& parameter)
{
    return QStringLiteral("Process/%1/%2").arg(QLatin1String(routine.Id), QLatin1String(parameter.Id));
}

double KeptValue(const Routine& routine, const Parameter& parameter)
{
    bool         isNumber = false;
    const double value = QSettings().value(KeyOf(routine, parameter), parameter.First).toDouble(&isNumber);
    return isNumber && value >= parameter.Low && value <= parameter.High ? value : parameter.First;
}

}

QString RoutineText(const char* english)
{
    return QCoreApplication::translate("Routines", english);
}

std::vector<double> KeptValues(const Routine& routine)
{
    std::vector<double> values;
    for (const Parameter& parameter : routine.Parameters)
        values.push_back(KeptValue(routine, parameter));
    return values;
}

RoutineDialog::RoutineDialog(const Routine& routine, PreviewSource source, QWidget* parent)
    : QDialog(parent), Line(routine), Source(std::move(source))
{
    setObjectName(QStringLiteral("Routine"));
    setWindowTitle(TitleOf(RoutineText(routine.Title)));
    auto* const form = new QFormLayout;
    auto* const tip = new QLabel(RoutineText(routine.Tip));
    tip->setWordWrap(true);
    form->addRow(tip);
    for (const Parameter& parameter : routine.Parameters)
        form->addRow(RoutineText(parameter.Name) + QLatin1Char(':'), MakeField(parameter));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &RoutineDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    if (routine.HasPreview && Source.Part) {
        Picture = new QLabel;
        Picture->setObjectName(QStringLiteral("RoutinePreview"));
        Picture->setAccessibleName(tr("Preview of a part of the image"));
        Picture->setFixedSize(Source.Part->Width, Source.Part->Height);
        column->addWidget(Picture, 0, Qt::AlignHCenter);
    }
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    Rest.setSingleShot(true);
    Rest.setInterval(120);
    connect(&Rest, &QTimer::timeout, this, &RoutineDialog::BeginPreview);
    BeginPreview();
}

RoutineDialog::~RoutineDialog() = default;

QWidget* RoutineDialog::MakeField(const Parameter& parameter)
{
    QWidget* made = nullptr;
    if (!parameter.Choices.empty()) {
        auto* const box = new QComboBox;
        for (const char* const choice : parameter.Choices)
            box->addItem(RoutineText(choice));
        box->setCurrentIndex(static_cast<int>(KeptValue(Line, parameter)));
        connect(box, &QComboBox::currentIndexChanged, &Rest, qOverload<>(&QTimer::start));
        Fields.push_back([box] { return static_cast<double>(box->currentIndex()); });
        made = box;
    } else {
        auto* const box = new QDoubleSpinBox;
        box->setDecimals(parameter.Decimals);
        box->setRange(parameter.Low, parameter.High);
        box->setStepType(parameter.Decimals > 0 ? QAbstractSpinBox::AdaptiveDecimalStepType
                                                : QAbstractSpinBox::DefaultStepType);
        box->setValue(KeptValue(Line, parameter));
        connect(box, &QDoubleSpinBox::valueChanged, &Rest, qOverload<>(&QTimer::start));
        Fields.push_back([box] { return box->value(); });
        made = box;
    }
    made->setObjectName(QLatin1String(parameter.Id));
    made->setAccessibleName(RoutineText(parameter.Name));
    return made;
}

std::vector<double> RoutineDialog::Values() const
{
    std::vector<double> values;
    for (const auto& field : Fields)
        values.push_back(field());
    return values;
}

void RoutineDialog::accept()
{
    const std::vector<double> values = Values();
    QSettings                 settings;
    for (std::size_t i = 0; i < values.size(); ++i)
        settings.setValue(KeyOf(Line, Line.Parameters[i]), values[i]);
    QDialog::accept();
}

void RoutineDialog::BeginPreview()
{
    if (!Picture)
        return;
    Run = std::make_unique<RoutineRun>(Line, Source.Part, Values());
    connect(Run.get(), &RoutineRun::done, this, &RoutineDialog::ShowPreview);
    connect(Run.get(), &RoutineRun::failed, Picture, &QLabel::setText);
}

void RoutineDialog::ShowPreview(const Samples& result)
{
    const double low = Line.IsMask ? 0.0 : Source.Low;
    const double range = std::max((Line.IsMask ? 255.0 : Source.High) - low, 1e-30);
    QImage       shades(result.Width, result.Height, QImage::Format_Grayscale8);
    for (int y = 0; y < result.Height; ++y)
        for (int x = 0; x < result.Width; ++x) {
            const auto   at = static_cast<std::size_t>(y) * static_cast<std::size_t>(result.Width);
            const double value = static_cast<double>(result.Values[at + static_cast<std::size_t>(x)]);
            const double shade = std::isnan(value) ? 0.0 : (value - low) / range * 255.0;
            shades.scanLine(y)[x] = static_cast<uchar>(std::clamp(shade, 0.0, 255.0));
        }
    Picture->setPixmap(QPixmap::fromImage(shades));
}

}
