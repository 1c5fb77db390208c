#include "GesturePage.h"

#include "Translations.h"
#include "commands/Commands.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vostel::viewer {

namespace {

QString Page()
{
    QString page = QStringLiteral("<table cellspacing='0' cellpadding='4'>");
    bool    first = true;
    for (const char* const line : GestureHelp()) {
        const QString text = CommandText(line);
        const QString left = text.section(u'\t', 0, 0).toHtmlEscaped();
        if (text.contains(u'\t'))
            page += QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;&nbsp;</td><td>%2</td></tr>")
                        .arg(left, text.section(u'\t', 1).toHtmlEscaped());
        else
            page += QStringLiteral("<tr><td colspan='2'>%1<span style='font-size: large; color: #2f7fd6'>%2"
                                   "</span></td></tr>")
                        .arg(first ? QString() : QStringLiteral("<br>"), left);
        first = false;
    }
    return page + QStringLiteral("</table>");
}

}

GesturePage::GesturePage(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Gestures and keys"));
    auto* const text = new QLabel(Page());
    text->setTextFormat(Qt::RichText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setMargin(12);
    text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* const scroll = new QScrollArea(this);
    scroll->setWidget(text);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(scroll);
    column->addWidget(buttons);
    // All of it without scrolling where the screen has the room.
    const QSize wanted = text->sizeHint() + QSize(60, 80);
    resize(wanted.boundedTo(QSize(1000, 760)));
}

}
