#include "dialogs/ValueDialog.h"

#include "dialogs/ParameterDialogs.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vostel::widget {

namespace {

const QString ValueKey = QStringLiteral("Value");
const QString TextSection = QStringLiteral("TextInfo");
const QString ScaleSection = QStringLiteral("MeasureScaleInfo");

// What the library asks under its own sections, in words; others show the section.
QString Question(const QString& section)
{
    if (section == TextSection)
        return ValueDialog::tr("&Text:");
    if (section == ScaleSection)
        return ValueDialog::tr("&Length of one image pixel, in the unit that lengths are to have:");
    return section + u':';
}

QString Title(const QString& section)
{
    if (section == TextSection)
        return ValueDialog::tr("Text on the image");
    if (section == ScaleSection)
        return ValueDialog::tr("Scale of the measures");
    return section;
}

}

ValueDialog::ValueDialog(const QString& section, const QString& file, QWidget* parent)
    : QDialog(parent), Section(section), File(file)
{
    setWindowTitle(Title(section));
    auto* const label = new QLabel(Question(section), this);
    label->setWordWrap(true);
    Edit = new QLineEdit(this);
    Edit->setMinimumWidth(340);
    label->setBuddy(Edit);
    QSettings last = AnswersIn(File);
    last.beginGroup(Section);
    Edit->setText(last.value(ValueKey).toString());
    Edit->selectAll();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto check = [this, ok = buttons->button(QDialogButtonBox::Ok)] { ok->setEnabled(IsAnswer()); };
    connect(Edit, &QLineEdit::textChanged, this, check);
    check();
    auto* const column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(label);
    column->addWidget(Edit);
    column->addWidget(buttons);
}

// A scale is read with a point, whatever the language writes.
QString ValueDialog::Value() const
{
    return IsScale() ? Edit->text().trimmed().replace(u',', u'.') : Edit->text();
}

bool ValueDialog::IsScale() const
{
    return Section == ScaleSection;
}

bool ValueDialog::IsAnswer() const
{
    bool         number = false;
    const double scale = Value().toDouble(&number);
    return !IsScale() || (number && scale > 0.0);
}

void ValueDialog::Remember() const
{
    QSettings last = AnswersIn(File);
    last.beginGroup(Section);
    last.setValue(ValueKey, Edit->text());
}

}
