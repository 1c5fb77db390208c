#include "window/StyleDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSettings>

namespace vostel::viewer {

namespace {

constexpr double LeastWidth = 0.5, MostWidth = 20.0;    // layout px
constexpr double LeastText = 6.0, MostText = 96.0;      // layout px

QDoubleSpinBox* NumberField(double& value, double least, double most, const QString& name)
{
    auto* const field = new QDoubleSpinBox;
    field->setRange(least, most);
    field->setDecimals(1);
    field->setSuffix(QStringLiteral(" px"));
    field->setValue(value);
    field->setAccessibleName(name);
    QObject::connect(field, &QDoubleSpinBox::valueChanged, field,
                     [&value](double chosen) { value = chosen; });
    return field;
}

}

StyleDialog::StyleDialog(const DrawingStyle& style, QWidget* parent) : QDialog(parent), Style(style)
{
    setWindowTitle(tr("Look of drawn objects"));
    setObjectName(QStringLiteral("StyleDialog"));
    auto* const form = new QFormLayout(this);
    form->addRow(tr("Lines:"), ColorButton(tr("Color of lines"), &DrawingStyle::Line));
    form->addRow(tr("Selected:"), ColorButton(tr("Color of selected lines"), &DrawingStyle::Selected));
    form->addRow(tr("Width:"), NumberField(Style.Width, LeastWidth, MostWidth, tr("Width of lines")));
    form->addRow(tr("Text height:"),
                 NumberField(Style.TextHeight, LeastText, MostText, tr("Height of texts")));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QPushButton* StyleDialog::ColorButton(const QString& name, std::uint32_t DrawingStyle::*color)
{
    auto* const button = new QPushButton;
    button->setAccessibleName(name);
    ShowColor(*button, Style.*color);
    connect(button, &QPushButton::clicked, this, [this, button, name, color] {
        const QColor chosen = QColorDialog::getColor(QColor::fromRgb(Style.*color), this, name);
        if (!chosen.isValid())
            return;
        Style.*color = chosen.rgb() & 0xFFFFFF;
        ShowColor(*button, Style.*color);
    });
    return button;
}

void StyleDialog::ShowColor(QPushButton& button, std::uint32_t color)
{
    QPixmap patch(button.iconSize());
    patch.fill(QColor::fromRgb(color));
    button.setIcon(patch);
    button.setText(QColor::fromRgb(color).name());
}

DrawingStyle StyleDialog::Kept()
{
    const QSettings settings;
    DrawingStyle    style;
    style.Line = settings.value(QStringLiteral("Drawing/Line"), style.Line).toUInt() & 0xFFFFFF;
    style.Selected = settings.value(QStringLiteral("Drawing/Selected"), style.Selected).toUInt() & 0xFFFFFF;
    style.Width = std::clamp(settings.value(QStringLiteral("Drawing/Width"), style.Width).toDouble(),
                             LeastWidth, MostWidth);
    style.TextHeight =
        std::clamp(settings.value(QStringLiteral("Drawing/TextHeight"), style.TextHeight).toDouble(),
                   LeastText, MostText);
    return style;
}

void StyleDialog::Keep(const DrawingStyle& style)
{
    QSettings settings;
    settings.setValue(QStringLiteral("Drawing/Line"), style.Line);
    settings.setValue(QStringLiteral("Drawing/Selected"), style.Selected);
    settings.setValue(QStringLiteral("Drawing/Width"), style.Width);
    settings.setValue(QStringLiteral("Drawing/TextHeight"), style.TextHeight);
}

}
