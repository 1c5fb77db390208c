#include "window/StackBar.h"

#include "documents/Document.h"
#include "documents/Stack.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

namespace vostel::viewer {

StackBar::StackBar(Document& document, QWidget* parent)
    : QWidget(parent), Content(document), Pages(new QSlider(Qt::Horizontal)), Number(new QSpinBox),
      Count(new QLabel)
{
    Pages->setObjectName(QStringLiteral("Pages"));
    Pages->setAccessibleName(tr("Page of the stack"));
    Number->setObjectName(QStringLiteral("PageNumber"));
    Number->setAccessibleName(Pages->accessibleName());
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(6, 1, 6, 1);
    row->addWidget(Pages, 1);
    row->addWidget(Number);
    row->addWidget(Count);
    connect(Pages, &QSlider::valueChanged, this, [this](int page) { Content.Pages().Go(page); });
    connect(Number, &QSpinBox::valueChanged, this, [this](int page) { Content.Pages().Go(page - 1); });
    connect(&document, &Document::stackChanged, this, &StackBar::ShowStack);
    ShowStack();
}

void StackBar::ShowStack()
{
    const Stack&         stack = Content.Pages();
    const QSignalBlocker quietPages(Pages), quietNumber(Number);
    Pages->setRange(0, stack.Count() - 1);
    Pages->setValue(stack.Index());
    Number->setRange(1, stack.Count());
    Number->setValue(stack.Index() + 1);
    Count->setText(tr("of %1").arg(stack.Count()));
    setVisible(stack.Count() > 1);
}

}
