#include "dialogs/RegionDialog.h"

#include "dialogs/ParameterDialogs.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace vostel::widget {

namespace {

const QString RegionAnswersFile = QStringLiteral("Region.ini");

}

RegionDialog::RegionDialog(QSize image, QWidget* parent) : QDialog(parent)
{
    constexpr int Anywhere = 100000;
    setWindowTitle(tr("Rectangle in image pixels"));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    const auto add = [&](const QString& name, int row, int column, int most) {
        auto* const box = new QSpinBox(this);
        box->setRange(0, most);
        box->setAccelerated(true);
        box->setMinimumWidth(100);
        auto* const label = new QLabel(name, this);
        label->setBuddy(box);
        grid->addWidget(label, row, column);
        grid->addWidget(box, row, column + 1);
        connect(box, &QSpinBox::valueChanged, this, &RegionDialog::Check);
        return box;
    };
    const int right = image.isEmpty() ? Anywhere : image.width() - 1;
    const int bottom = image.isEmpty() ? Anywhere : image.height() - 1;
    Left = add(tr("&Left:"), 0, 0, right);
    Right = add(tr("&Right:"), 0, 2, right);
    Top = add(tr("&Top:"), 1, 0, bottom);
    Bottom = add(tr("&Bottom:"), 1, 2, bottom);

    Size = new QLabel(this);
    Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(12);
    if (!image.isEmpty())
        column->addWidget(
            new QLabel(tr("The image has %1 × %2 pixels.").arg(image.width()).arg(image.height())));
    column->addLayout(grid);
    column->addWidget(Size);
    column->addWidget(Buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    Recall(image);
    Check();
    Left->selectAll();
}

void RegionDialog::Recall(QSize image)
{
    const QSettings last = AnswersIn(RegionAnswersFile);
    const auto      value = [&](const char* name) { return last.value(QLatin1String(name), -1).toInt(); };
    const int  left = value("Left"), right = value("Right"), top = value("Top"), bottom = value("Bottom");
    const bool fits = left >= 0 && top >= 0 && right > left && bottom > top &&
                      (image.isEmpty() || (right < image.width() && bottom < image.height()));
    Left->setValue(fits ? left : image.width() / 4);
    Right->setValue(fits ? right : image.width() * 3 / 4);
    Top->setValue(fits ? top : image.height() / 4);
    Bottom->setValue(fits ? bottom : image.height() * 3 / 4);
}

void RegionDialog::Remember() const
{
    QSettings last = AnswersIn(RegionAnswersFile);
    last.setValue(QStringLiteral("Left"), Left->value());
    last.setValue(QStringLiteral("Right"), Right->value());
    last.setValue(QStringLiteral("Top"), Top->value());
    last.setValue(QStringLiteral("Bottom"), Bottom->value());
}

void RegionDialog::Check()
{
    const int  width = Right->value() - Left->value() + 1, height = Bottom->value() - Top->value() + 1;
    const bool whole = width > 1 && height > 1;
    Size->setText(whole ? tr("%1 × %2 pixels").arg(width).arg(height)
                        : tr("Right must be beyond left, and bottom below top."));
    Buttons->button(QDialogButtonBox::Ok)->setEnabled(whole);
}

tagZEKImaROIRectPara RegionDialog::Region() const
{
    tagZEKImaROIRectPara region;
    region.RoiLeft = Left->value();
    region.RoiRight = Right->value();
    region.RoiTop = Top->value();
    region.RoiBottom = Bottom->value();
    return region;
}

}
