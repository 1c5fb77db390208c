#include "help/HelpWindow.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace vostel::viewer {

namespace {

constexpr int PathRole = Qt::UserRole;

// In the order in which somebody who begins reads them.
constexpr const char* Order[] = {"viewer.md",      "measuring.md", "contrast.md",
                                 "coordinates.md", "history.md",   "formats.md"};

// Without pictures, which the program does not carry along.
QString Content(const QString& path)
{
    static const QRegularExpression picture(QStringLiteral("^!\\[[^\\]]*\\]\\([^)]*\\)\\n\\n?"),
                                            QRegularExpression::MultilineOption);
    QFile                           file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).remove(picture);
}

QString Title(const QString& content)
{
    return content.section(QLatin1Char('\n'), 0, 0).mid(2);    // "# Title"
}

}

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent), Words(new QLineEdit), Pages(new QListWidget), Text(new QTextBrowser)
{
    setWindowTitle(tr("Help"));
    setObjectName(QStringLiteral("HelpWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    Words->setObjectName(QStringLiteral("Words"));
    Words->setPlaceholderText(tr("Search"));
    Words->setAccessibleName(tr("Words to look for in the pages"));
    Words->setClearButtonEnabled(true);
    Pages->setObjectName(QStringLiteral("Pages"));
    Pages->setAccessibleName(tr("Pages"));
    Text->setAccessibleName(tr("Text of the page"));
    Text->setObjectName(QStringLiteral("Text"));
    Text->setOpenLinks(false);

    auto* const left = new QWidget;
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(Words);
    column->addWidget(Pages);
    auto* const halves = new QSplitter;
    halves->addWidget(left);
    halves->addWidget(Text);
    halves->setStretchFactor(1, 1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(halves, 1);
    rows->addWidget(buttons);
    const int letter = fontMetrics().averageCharWidth();
    resize(letter * 120, fontMetrics().height() * 36);
    halves->setSizes({letter * 30, letter * 90});

    connect(Words, &QLineEdit::textChanged, this, &HelpWindow::Fill);
    connect(Pages, &QListWidget::currentItemChanged, this, &HelpWindow::ShowPage);
    connect(Text, &QTextBrowser::anchorClicked, this, &HelpWindow::Follow);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    Fill(QString());
}

QString HelpWindow::PathOf(const char* page)
{
    //: The folder of the help's pages in the language of the interface.
    const QString own = QStringLiteral(":/help/%1/%2").arg(tr("en"), QLatin1String(page));
    return QFile::exists(own) ? own : QStringLiteral(":/help/en/") + QLatin1String(page);
}

void HelpWindow::Fill(const QString& words)
{
    Pages->clear();
    for (const char* const name : Order) {
        const QString path = PathOf(name);
        const QString content = Content(path);
        if (!content.contains(words, Qt::CaseInsensitive))
            continue;
        auto* const item = new QListWidgetItem(Title(content), Pages);
        item->setData(PathRole, path);
    }
    Pages->setCurrentRow(0);
}

void HelpWindow::ShowPage()
{
    const QListWidgetItem* const item = Pages->currentItem();
    Text->setMarkdown(item ? Content(item->data(PathRole).toString()) : tr("No page has these words."));
    if (!Words->text().isEmpty())
        Text->find(Words->text());
}

void HelpWindow::Follow(const QUrl& link)
{
    if (link.scheme().startsWith(QStringLiteral("http"))) {
        QDesktopServices::openUrl(link);
        return;
    }
    const QString name = QFileInfo(link.path()).fileName();
    for (int i = 0; i < Pages->count(); ++i)
        if (QFileInfo(Pages->item(i)->data(PathRole).toString()).fileName() == name)
            return Pages->setCurrentRow(i);
    if (link.path().isEmpty() && link.hasFragment())
        Text->scrollToAnchor(link.fragment());
}

}
