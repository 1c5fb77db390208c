#include "dialogs/RawLayoutDialog.h"

#include "dialogs/ParameterDialogs.h"
#include "dialogs/RawSizeGuess.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cfloat>
#include <climits>

namespace vostel::widget {

namespace {

constexpr int    LongestSide = 100000;
constexpr qint64 MaxPixels = qint64{1} << 28;    // more would take gigabytes of planes

const QString LayoutAnswersFile = QStringLiteral("RawLayout.ini");

QString SizeText(const RawSize& size)
{
    const QString sides = QStringLiteral("%1 × %2").arg(size.Width).arg(size.Height);
    return size.HeaderBytes == 0 ? sides
                                 : RawLayoutDialog::tr("%1, header %2").arg(sides).arg(size.HeaderBytes);
}

}

RawLayoutDialog::RawLayoutDialog(const QString& file, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Layout of the raw file"));
    const QFileInfo info(file);
    if (!file.isEmpty() && info.isFile())
        FileBytes = info.size();
    BuildFields(file);
    Recall();

    connect(TypeBox, &QComboBox::currentIndexChanged, this, [this] {
        OfferSizes();
        Check();
    });
    connect(Sizes, &QComboBox::activated, this, &RawLayoutDialog::TakeSize);
    for (QSpinBox* box : {WidthBox, HeightBox, HeaderBox})
        connect(box, &QSpinBox::valueChanged, this, &RawLayoutDialog::Check);
    Check();
    WidthBox->setFocus();
    WidthBox->selectAll();
}

void RawLayoutDialog::BuildFields(const QString& file)
{
    const auto number = [this](int low, int high) {
        auto* const box = new QSpinBox(this);
        box->setRange(low, high);
        box->setAccelerated(true);
        box->setMinimumWidth(120);
        return box;
    };
    auto* const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (FileBytes >= 0)
        form->addRow(tr("File:"), new QLabel(tr("%1, %2 bytes")
                                                 .arg(QFileInfo(file).fileName().toHtmlEscaped(),
                                                      QLocale().toString(FileBytes))));
    TypeBox = new QComboBox(this);
    TypeBox->addItems({tr("16-bit unsigned"), tr("32-bit float"), tr("16-bit signed"), tr("8-bit unsigned")});
    form->addRow(tr("&Type:"), TypeBox);
    Sizes = new QComboBox(this);
    form->addRow(tr("&Sizes that fit:"), Sizes);
    WidthBox = number(1, LongestSide);
    HeightBox = number(1, LongestSide);
    HeaderBox = number(0, INT_MAX);
    form->addRow(tr("&Width (px):"), WidthBox);
    form->addRow(tr("&Height (px):"), HeightBox);
    form->addRow(tr("Header (&bytes):"), HeaderBox);
    Verdict = new QLabel(this);
    Verdict->setWordWrap(true);
    Verdict->setMinimumHeight(2 * fontMetrics().lineSpacing() + 4);
    Verdict->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    form->addRow(Verdict);

    Mapping = new QGroupBox(tr("&Map to 8-bit gray"), this);
    Mapping->setCheckable(true);
    Mapping->setChecked(false);
    auto* const       grid = new QGridLayout(Mapping);
    const char* const names[] = {QT_TR_NOOP("Samples from"), QT_TR_NOOP("to"), QT_TR_NOOP("Gray from"),
                                 QT_TR_NOOP("to")};
    for (int i = 0; i < 4; ++i) {
        Limits[i] = new QDoubleSpinBox(this);
        Limits[i]->setDecimals(3);
        Limits[i]->setMinimumWidth(110);
        if (i < 2)
            Limits[i]->setRange(-1e9, 1e9);
        else
            Limits[i]->setRange(0.0, 255.0);
        grid->addWidget(new QLabel(tr(names[i])), i / 2, i % 2 * 2);
        grid->addWidget(Limits[i], i / 2, i % 2 * 2 + 1);
    }

    Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addLayout(form);
    column->addWidget(Mapping);
    column->addWidget(Buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void RawLayoutDialog::Recall()
{
    const QSettings last = AnswersIn(LayoutAnswersFile);
    TypeBox->setCurrentIndex(qBound(0, last.value(QStringLiteral("Type"), 0).toInt(), 3));
    WidthBox->setValue(last.value(QStringLiteral("Width"), 512).toInt());
    HeightBox->setValue(last.value(QStringLiteral("Height"), 512).toInt());
    HeaderBox->setValue(last.value(QStringLiteral("HeaderBytes"), 0).toInt());
    Mapping->setChecked(last.value(QStringLiteral("MapToByte"), false).toBool());
    const double fresh[] = {0.0, 65535.0, 0.0, 255.0};
    for (int i = 0; i < 4; ++i)
        Limits[i]->setValue(last.value(QStringLiteral("Limit%1").arg(i), fresh[i]).toDouble());
    OfferSizes();
    // A size of another file is worth nothing where this one has a likely size of its own.
    if (FileBytes >= 0 && BytesWanted() != FileBytes && Sizes->count() > 0)
        TakeSize(0);
}

void RawLayoutDialog::Remember() const
{
    QSettings last = AnswersIn(LayoutAnswersFile);
    last.setValue(QStringLiteral("Type"), DataType());
    last.setValue(QStringLiteral("Width"), WidthBox->value());
    last.setValue(QStringLiteral("Height"), HeightBox->value());
    last.setValue(QStringLiteral("HeaderBytes"), HeaderBox->value());
    last.setValue(QStringLiteral("MapToByte"), Mapping->isChecked());
    for (int i = 0; i < 4; ++i)
        last.setValue(QStringLiteral("Limit%1").arg(i), Limits[i]->value());
}

void RawLayoutDialog::OfferSizes()
{
    Sizes->clear();
    for (const RawSize& size : GuessRawSizes(FileBytes, DataType()))
        Sizes->addItem(SizeText(size), QVariantList{size.Width, size.Height, size.HeaderBytes});
    Sizes->setEnabled(Sizes->count() > 0);
    if (Sizes->count() == 0)
        Sizes->setPlaceholderText(tr("none"));
}

void RawLayoutDialog::TakeSize(int index)
{
    const QVariantList size = Sizes->itemData(index).toList();
    if (size.size() != 3)
        return;
    WidthBox->setValue(size[0].toInt());
    HeightBox->setValue(size[1].toInt());
    HeaderBox->setValue(size[2].toInt());
}

int RawLayoutDialog::DataType() const
{
    return TypeBox->currentIndex();    // the entries stand in the order of the numbers
}

qint64 RawLayoutDialog::BytesWanted() const
{
    // Data of 8 bits are read from the first byte of the file, whatever the header.
    const qint64 header = HeaderBox->isEnabled() ? HeaderBox->value() : 0;
    return header + qint64{WidthBox->value()} * HeightBox->value() * RawElementBytes(DataType());
}

void RawLayoutDialog::Check()
{
    HeaderBox->setEnabled(RawElementBytes(DataType()) != 1);
    int fitting = -1;
    for (int i = 0; i < Sizes->count(); ++i)
        if (Sizes->itemData(i).toList() ==
            QVariantList{WidthBox->value(), HeightBox->value(), qint64{HeaderBox->value()}})
            fitting = i;
    Sizes->setCurrentIndex(fitting);

    const qint64  pixels = qint64{WidthBox->value()} * HeightBox->value();
    const qint64  difference = FileBytes - BytesWanted();
    const QString count = QLocale().toString(qAbs(difference));
    QString       text;
    QString       colour = QStringLiteral("#9a5b00");
    if (pixels > MaxPixels) {
        text = tr("This is too large to be shown.");
        colour = QStringLiteral("#b00020");
    } else if (FileBytes < 0) {
        text = tr("The length of the file is not known.");
    } else if (difference == 0) {
        text = tr("Fits the file exactly.");
        colour = QStringLiteral("#1b7a34");
    } else if (difference < 0) {
        text = tr("The file is %1 bytes short: what is missing becomes 0.").arg(count);
    } else {
        text = tr("The file has %1 bytes more, which are not read.").arg(count);
    }
    Verdict->setText(text);
    Verdict->setStyleSheet(QStringLiteral("color: %1").arg(colour));
    Buttons->button(QDialogButtonBox::Ok)->setEnabled(pixels <= MaxPixels);
}

tagZEKImaLoadPara RawLayoutDialog::Layout() const
{
    tagZEKImaLoadPara layout;
    layout.Width = WidthBox->value();
    layout.Height = HeightBox->value();
    layout.DataType = DataType();
    layout.HeaderBytes = static_cast<std::uint32_t>(HeaderBox->value());
    layout.MapToByte = Mapping->isChecked() ? 1 : 0;
    layout.InLow = static_cast<float>(Limits[0]->value());
    layout.InHigh = static_cast<float>(Limits[1]->value());
    layout.OutLow = static_cast<float>(Limits[2]->value());
    layout.OutHigh = static_cast<float>(Limits[3]->value());
    return layout;
}

}
