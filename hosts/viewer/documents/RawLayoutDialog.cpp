#include "documents/RawLayoutDialog.h"

#include "dialogs/RawSizeGuess.h"
#include "documents/Mnemonics.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontMetrics>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <climits>

namespace vostel::viewer {

namespace {

struct TypeEntry {
    VostelPixel Type;
    const char* Text;
};

constexpr TypeEntry Types[] = {
    {VOSTEL_U16, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "16-bit unsigned")},
    {VOSTEL_F32, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "32-bit float")},
    {VOSTEL_I16, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "16-bit signed")},
    {VOSTEL_U8, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "8-bit unsigned")},
    {VOSTEL_RGB8, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "Color, red green blue, 8 bits each")},
    {VOSTEL_BGR8, QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "Color, blue green red, 8 bits each")},
    {VOSTEL_BGRA8,
     QT_TRANSLATE_NOOP("vostel::viewer::RawLayoutDialog", "Color, blue green red and a fourth byte")}};

int MostSide()
{
    VostelLimits limits = {};
    limits.size = sizeof limits;
    vostel_get_limits(&limits);
    return limits.max_side > 0 ? limits.max_side : 1;
}

QString SizeText(const widget::RawSize& size)
{
    const QString sides = QStringLiteral("%1 × %2").arg(size.Width).arg(size.Height);
    return size.HeaderBytes == 0 ? sides
                                 : RawLayoutDialog::tr("%1 after %2 bytes").arg(sides).arg(size.HeaderBytes);
}

}

RawLayoutDialog::RawLayoutDialog(const QString& path, QWidget* parent)
    : QDialog(parent), FileBytes(QFileInfo(path).size()), Type(new QComboBox), BigEndian(new QCheckBox),
      Sizes(new QComboBox), Verdict(new QLabel),
      Buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setObjectName(QStringLiteral("RawLayout"));
    setWindowTitle(tr("Layout of the raw data"));
    auto* const file =
        new QLabel(tr("%1, %2 bytes").arg(QFileInfo(path).fileName(), QLocale().toString(FileBytes)));
    file->setTextFormat(Qt::PlainText);
    file->setWordWrap(true);
    auto* const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("File:"), file);
    for (const TypeEntry& entry : Types)
        Type->addItem(tr(entry.Text), entry.Type);
    Type->setObjectName(QStringLiteral("RawType"));
    Type->setAccessibleName(tr("Type of the values"));
    Type->setToolTip(tr("Integers of 32 bits and floats of 64 bits cannot be shown."));
    form->addRow(tr("&Type:"), Type);
    BigEndian->setText(tr("&Big-endian: the higher byte first"));
    BigEndian->setObjectName(QStringLiteral("RawBigEndian"));
    form->addRow(QString(), BigEndian);
    Sizes->setObjectName(QStringLiteral("RawSizes"));
    Sizes->setAccessibleName(tr("Sizes that fit the file"));
    Sizes->setPlaceholderText(tr("choose"));
    form->addRow(tr("&Sizes that fit:"), Sizes);
    Width = AddNumber(*form, tr("&Width (px):"), "RawWidth", 1, MostSide());
    Height = AddNumber(*form, tr("&Height (px):"), "RawHeight", 1, MostSide());
    Offset = AddNumber(*form, tr("&Offset (bytes):"), "RawOffset", 0, INT_MAX);
    Slices = AddNumber(*form, tr("S&lices:"), "RawSlices", 1, INT_MAX);
    Gap = AddNumber(*form, tr("B&ytes between slices:"), "RawGap", 0, INT_MAX);
    Verdict->setObjectName(QStringLiteral("RawVerdict"));
    Verdict->setWordWrap(true);
    Verdict->setMinimumHeight(2 * fontMetrics().lineSpacing());
    Verdict->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(Verdict);
    column->addWidget(Buttons);
    column->setSizeConstraint(QLayout::SetMinimumSize);

    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(Sizes, &QComboBox::activated, this, &RawLayoutDialog::TakeSize);
    connect(Type, &QComboBox::currentIndexChanged, this, [this] {
        OfferSizes();
        CountSlices();
    });
    for (QSpinBox* const box : {Width, Height, Offset})
        connect(box, &QSpinBox::valueChanged, this, &RawLayoutDialog::CountSlices);
    for (QSpinBox* const box : {Slices, Gap})
        connect(box, &QSpinBox::valueChanged, this, &RawLayoutDialog::Check);
    Filling = true;
    Width->setValue(512);
    Height->setValue(512);
    Filling = false;
    OfferSizes();
    if (Sizes->count() > 0)
        TakeSize(0);
    CountSlices();
    Width->setFocus();
    Width->selectAll();
}

QSpinBox* RawLayoutDialog::AddNumber(QFormLayout& form, const QString& text, const char* name, int low,
                                     int high)
{
    auto* const box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(low, high);
    box->setAccelerated(true);
    form.addRow(text, box);
    box->setAccessibleName(TitleOf(text));
    return box;
}

void RawLayoutDialog::Begin(const RawVolume& last)
{
    if (last.Bytes() == FileBytes)
        Set(last);
}

void RawLayoutDialog::Set(const RawVolume& volume)
{
    Filling = true;
    Type->setCurrentIndex(Type->findData(volume.Layout.type));
    BigEndian->setChecked(volume.Layout.big_endian != 0);
    Width->setValue(volume.Layout.width);
    Height->setValue(volume.Layout.height);
    Offset->setValue(static_cast<int>(volume.Layout.offset));
    Gap->setValue(static_cast<int>(volume.Gap));
    Slices->setValue(volume.Slices);
    Filling = false;
    Check();
}

RawVolume RawLayoutDialog::Volume() const
{
    RawVolume volume;
    volume.Layout.type = Type->currentData().toInt();
    volume.Layout.width = Width->value();
    volume.Layout.height = Height->value();
    volume.Layout.offset = Offset->value();
    volume.Layout.big_endian = BigEndian->isChecked() && BigEndian->isEnabled() ? 1 : 0;
    volume.Slices = Slices->value();
    volume.Gap = Gap->value();
    return volume;
}

void RawLayoutDialog::OfferSizes()
{
    Sizes->clear();
    for (const widget::RawSize& size :
         widget::GuessSizes(FileBytes, BytesOfPixel(Type->currentData().toInt())))
        Sizes->addItem(SizeText(size), QVariantList{size.Width, size.Height, size.HeaderBytes});
    Sizes->setCurrentIndex(-1);
    Sizes->setEnabled(Sizes->count() > 0);
}

void RawLayoutDialog::TakeSize(int index)
{
    const QVariantList size = Sizes->itemData(index).toList();
    Filling = true;
    Width->setValue(size.value(0).toInt());
    Height->setValue(size.value(1).toInt());
    Offset->setValue(size.value(2).toInt());
    Gap->setValue(0);
    Filling = false;
    CountSlices();
}

void RawLayoutDialog::CountSlices()
{
    if (Filling)
        return;
    const RawVolume volume = Volume();
    const qint64    one = volume.SliceBytes() + volume.Gap;
    const qint64    all = FileBytes - volume.Layout.offset + volume.Gap;
    Slices->setValue(all > 0 && all % one == 0 ? static_cast<int>(qMin<qint64>(all / one, INT_MAX)) : 1);
    Check();
}

void RawLayoutDialog::Check()
{
    if (Filling)
        return;
    const RawVolume   volume = Volume();
    const VostelPixel type = volume.Layout.type;
    BigEndian->setEnabled(type == VOSTEL_U16 || type == VOSTEL_I16 || type == VOSTEL_F32);
    Gap->setEnabled(volume.Slices > 1);
    const qint64  more = FileBytes - volume.Bytes();
    const QString count = QLocale().toString(qAbs(more));
    if (more < 0)
        Verdict->setText(tr("The file is %1 bytes too short for this.").arg(count));
    else if (more > 0)
        Verdict->setText(tr("The file has %1 bytes more, which are not read.").arg(count));
    else if (volume.Slices > 1)
        Verdict->setText(tr("The file holds exactly %1 slices.").arg(volume.Slices));
    else
        Verdict->setText(tr("Fits the file exactly."));
    Buttons->button(QDialogButtonBox::Ok)->setEnabled(more >= 0);
}

}
