#include "CanvasTile.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>

namespace vostel::viewer {

namespace {

constexpr int Frame = 2;    // px round a captioned canvas
const QColor  CurrentColor(0x2f, 0x7f, 0xd6);
const QColor  OtherColor(0x4a, 0x4d, 0x52);

}

CanvasTile::CanvasTile(int canvas, QWidget* parent)
    : QWidget(parent), Widget(new VostelWidget(canvas, this)), Caption(new QLabel(this)),
      Hint(new QLabel(Widget))
{
    Caption->setStyleSheet(QStringLiteral("color: white; padding-left: 6px; padding-right: 6px"));
    Caption->setTextFormat(Qt::PlainText);
    Hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    Hint->setAlignment(Qt::AlignCenter);
    Hint->setWordWrap(true);
    Hint->setStyleSheet(
        QStringLiteral("color: #e4e6ea; background: rgba(38, 41, 46, 215); border-radius: 8px;"
                       "padding: 12px"));
    connect(Widget, &VostelWidget::imageChanged, this, [this] {
        ShowTexts();
        PlaceParts();
    });
    ShowTexts();
    ShowCaption(false);
}

void CanvasTile::SetFile(const QString& path)
{
    FilePath = path;
    ShowTexts();
}

void CanvasTile::ShowTexts()
{
    const QString name = QFileInfo(FilePath).fileName();
    const QString number = QString::number(Widget->canvas() + 1);
    Caption->setText(!name.isEmpty()      ? QStringLiteral("%1   %2").arg(number, name)
                     : Widget->hasImage() ? QStringLiteral("%1   %2").arg(number, tr("result"))
                                          : number);
    Hint->setText(tr("Drop a picture or a raw file here, or choose File, Open."));
    Hint->setVisible(!Widget->hasImage());
}

void CanvasTile::ShowCaption(bool shown)
{
    Captioned = shown;
    Caption->setVisible(shown);
    PlaceParts();
}

void CanvasTile::SetCurrent(bool current)
{
    Current = current;
    update();
}

void CanvasTile::resizeEvent(QResizeEvent*)
{
    PlaceParts();
}

void CanvasTile::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ShowTexts();
    QWidget::changeEvent(event);
}

void CanvasTile::PlaceParts()
{
    QRect room = rect();
    if (Captioned) {
        const int height = Caption->fontMetrics().height() + 6;
        Caption->setGeometry(Frame, 0, width() - 2 * Frame, height);
        room.adjust(Frame, height, -Frame, -Frame);
    }
    const QSize before = Widget->size();
    Widget->setGeometry(room);
    const int hintWidth = qMin(360, room.width() - 24);
    if (hintWidth > 40) {
        const int hintHeight = qMin(Hint->heightForWidth(hintWidth), room.height());
        Hint->setGeometry((room.width() - hintWidth) / 2, (room.height() - hintHeight) / 2, hintWidth,
                          hintHeight);
    }
    if (isVisible() && room.size() != before && Widget->hasImage())
        Q_EMIT areaChanged();
}

void CanvasTile::paintEvent(QPaintEvent*)
{
    if (Captioned)
        QPainter(this).fillRect(rect(), Current ? CurrentColor : OtherColor);
}

}
