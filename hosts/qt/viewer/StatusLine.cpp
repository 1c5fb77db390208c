#include "StatusLine.h"

#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>

#include <cmath>

namespace vostel::viewer {

namespace {

QLabel* AddLabel(QStatusBar* bar, const QString& widest)
{
    auto* const label = new QLabel(bar);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 12);
    label->setAlignment(Qt::AlignCenter);
    bar->addPermanentWidget(label);
    return label;
}

}

// The labels keep their widths, so that the line stands still while the mouse moves.
StatusLine::StatusLine(QStatusBar* bar)
    : QObject(bar), Position(AddLabel(bar, QStringLiteral("x 00000, y 00000"))),
      Value(AddLabel(bar, tr("value %1").arg(QStringLiteral("-00000.000")))),
      Zoom(AddLabel(bar, QStringLiteral("0000.0 %"))), Size(AddLabel(bar, QStringLiteral("00000 × 00000"))),
      File(AddLabel(bar, QStringLiteral("1  000000000000")))
{
}

void StatusLine::ShowCursor(QPointF image, float value)
{
    Position->setText(QStringLiteral("x %1, y %2").arg(std::floor(image.x())).arg(std::floor(image.y())));
    Value->setText(tr("value %1").arg(QString::number(static_cast<double>(value), 'g', 7)));
}

void StatusLine::ShowNoCursor()
{
    Position->clear();
    Value->clear();
}

void StatusLine::ShowZoom(double zoom)
{
    Zoom->setText(QStringLiteral("%1 %").arg(QString::number(zoom * 100.0, 'f', 1)));
}

void StatusLine::ShowSize(QSize size)
{
    Size->setText(size.isEmpty() ? tr("no image")
                                 : QStringLiteral("%1 × %2").arg(size.width()).arg(size.height()));
}

void StatusLine::ShowFile(const QString& path, int canvas)
{
    constexpr int Widest = 240;    // px
    const QString name = QStringLiteral("%1  %2").arg(canvas + 1).arg(QFileInfo(path).fileName());
    File->setText(File->fontMetrics().elidedText(name, Qt::ElideMiddle, Widest));
    File->setToolTip(path);
}

}
