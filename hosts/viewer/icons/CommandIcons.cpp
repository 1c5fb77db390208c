#include "icons/CommandIcons.h"

#include "icons/IconDrawings.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace vostel::viewer {

namespace {

class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(IconDrawing drawing) : Drawing(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        IconInks       inks;
        inks.Line = palette.color(QPalette::Active, QPalette::WindowText);
        inks.Fill = QColor(0x2f, 0x7f, 0xd6);
        inks.Warning = QColor(0xc6, 0x34, 0x2b);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.35);
        const double side = qMin(rect.width(), rect.height());
        painter->translate(QRectF(rect).center() - QPointF(side / 2, side / 2));
        painter->scale(side / IconSide, side / IconSide);
        painter->setPen(QPen(inks.Line, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        Drawing(*painter, inks);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new DrawnIcon(*this); }

private:
    IconDrawing Drawing;
};

}

QIcon CommandIcon(QLatin1String name)
{
    const IconDrawing drawing = FindIconDrawing(name);
    return drawing ? QIcon(new DrawnIcon(drawing)) : QIcon();
}

}
