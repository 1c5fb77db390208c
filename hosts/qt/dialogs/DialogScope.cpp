#include "dialogs/DialogScope.h"

#include <QApplication>

namespace vostel::widget {

namespace {

DialogScope* Innermost = nullptr;

}

DialogScope::DialogScope(QWidget* parent, QSize image, const QString& file)
    : ParentWidget(parent), ImageSize(image), FilePath(file), Outer(Innermost)
{
    Innermost = this;
}

DialogScope::~DialogScope()
{
    Innermost = Outer;
}

DialogScope* DialogScope::Current()
{
    return Innermost;
}

QWidget* DialogScope::Parent()
{
    if (Innermost && Innermost->ParentWidget)
        return Innermost->ParentWidget->window();
    return QApplication::activeWindow();
}

QSize DialogScope::Image()
{
    return Innermost ? Innermost->ImageSize : QSize();
}

QString DialogScope::File()
{
    return Innermost ? Innermost->FilePath : QString();
}

}
