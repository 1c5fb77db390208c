#include "documents/SaveDialog.h"

#include "documents/Document.h"
#include "documents/Mnemonics.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSpinBox>

#include <cmath>

namespace vostel::viewer {

namespace {

bool MayReplace(const QString& path, QWidget* parent)
{
    QMessageBox box(QMessageBox::Question, SaveDialog::tr("Save"),
                    SaveDialog::tr("\"%1\" exists already. Replace it?").arg(path),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setObjectName(QStringLiteral("Replace"));
    box.setTextFormat(Qt::PlainText);
    return box.exec() == QMessageBox::Yes;
}

}

SaveDialog::SaveDialog(const SaveKind& kind, const Document& document, QWidget* parent)
    : QFileDialog(parent), Kind(kind)
{
    setObjectName(QStringLiteral("Save"));
    setWindowTitle(TitleOf(QCoreApplication::translate("Saves", kind.Title)));
    setAcceptMode(AcceptSave);
    if (kind.HasScale)
        AddScale(document);
    setNameFilters(Saves::Filters(kind));
    const QFileInfo suggested(Saves::SuggestedPath(document, kind));
    setDirectory(suggested.absolutePath());
    selectFile(suggested.fileName());
    connect(this, &QFileDialog::filterSelected, this, &SaveDialog::TakeSuffix);
    TakeSuffix();
}

void SaveDialog::AddScale(const Document& document)
{
    setOption(DontUseNativeDialog);    // only the toolkit's own dialog has room for another row
    auto* const grid = qobject_cast<QGridLayout*>(layout());
    const auto  info = document.Model().Open().image_info();
    if (!grid || !info)
        return;
    Percent = new QSpinBox(this);
    Percent->setObjectName(QStringLiteral("SaveScale"));
    Percent->setRange(1, 1600);
    Percent->setValue(100);
    Percent->setSuffix(QStringLiteral(" %"));
    auto* const label = new QLabel(tr("Sc&ale:"), this);
    label->setBuddy(Percent);
    Percent->setAccessibleName(tr("Scale of the saved picture"));
    auto* const size = new QLabel(this);
    size->setObjectName(QStringLiteral("SaveSize"));
    const auto show = [this, size, width = info->width, height = info->height] {
        const auto side = [this](int px) { return std::max<qlonglong>(1, std::llround(px * Scale())); };
        size->setText(tr("%1 × %2 px").arg(side(width)).arg(side(height)));
    };
    connect(Percent, &QSpinBox::valueChanged, this, show);
    show();
    auto* const row = new QHBoxLayout;
    row->addWidget(Percent);
    row->addWidget(size, 1);
    const int last = grid->rowCount();
    grid->addWidget(label, last, 0);
    grid->addLayout(row, last, 1);
}

// The ending that the dialog gives to names without one; it asks about files that exist under the whole name.
void SaveDialog::TakeSuffix()
{
    const auto    index = std::max<qsizetype>(0, nameFilters().indexOf(selectedNameFilter()));
    const QString endings = QString::fromLatin1(Kind.Formats[static_cast<std::size_t>(index)].Ending);
    setDefaultSuffix(endings.section(QLatin1Char(' '), 0, 0));
}

double SaveDialog::Scale() const
{
    return Percent ? Percent->value() / 100.0 : 1.0;
}

Outcome Saves::Ask(const SaveKind& kind, Document& document, QWidget* parent)
{
    SaveDialog dialog(kind, document, parent);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return Cancelled();
    const QString chosen = dialog.selectedFiles().constFirst();
    const QString path = WholePath(kind, chosen, dialog.selectedNameFilter());
    if (path != chosen && QFileInfo::exists(path) && !MayReplace(path, parent))
        return Cancelled();
    return Run(kind, document, path, dialog.selectedNameFilter(), dialog.Scale());
}

}
