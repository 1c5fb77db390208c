#include "docks/ColourMenu.h"

#include <QColorDialog>
#include <QPainter>
#include <QPixmap>
#include <QStyle>

namespace vostel::viewer {

QIcon SwatchOf(const QColor& color, int side)
{
    constexpr int Sharp = 3;    // for screens of up to three device px per px of layout
    QPixmap       square(side * Sharp, side * Sharp);
    square.fill(color.alpha() == 0 ? Qt::white : color);
    QPainter painter(&square);
    painter.setPen(QPen(Qt::gray, 2 * Sharp));
    painter.drawRect(square.rect());
    if (color.alpha() == 0) {
        painter.setPen(QPen(QColor(200, 0, 0), 2 * Sharp));
        painter.drawLine(square.rect().bottomLeft(), square.rect().topRight());
    }
    return QIcon(square);
}

ColourMenu::ColourMenu(const QString& title, Kind kind, QWidget* parent) : QMenu(title, parent), Colours(kind)
{
    const int                      side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const std::pair<QString, QRgb> presets[] = {
        {tr("Yellow"), 0xFFD21E},  {tr("Orange"), 0xFF8C1A}, {tr("Red"), 0xFF3B30},
        {tr("Magenta"), 0xFF4FD8}, {tr("Blue"), 0x2F80FF},   {tr("Cyan"), 0x19D3E6},
        {tr("Green"), 0x34D058},   {tr("White"), 0xFFFFFF},  {tr("Black"), 0x000000},
    };
    if (kind != Kind::Lines)
        addAction(SwatchOf(Qt::transparent, side), tr("None"), this,
                  [this] { Q_EMIT picked(Qt::transparent); });
    for (const auto& [name, rgb] : presets) {
        QColor color(rgb);
        if (kind == Kind::Fills)
            color.setAlpha(80);
        addAction(SwatchOf(QColor(rgb), side), name, this, [this, color] { Q_EMIT picked(color); });
    }
    addSeparator();
    addAction(tr("Other..."), this, [this] { AskForOther(); });
}

void ColourMenu::AskForOther()
{
    auto* const dialog = new QColorDialog(Current.isValid() ? Current : QColor(Qt::yellow), parentWidget());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title());
    if (Colours == Kind::Fills) {
        dialog->setOption(QColorDialog::ShowAlphaChannel);
        if (Current.alpha() == 0)
            dialog->setCurrentColor(QColor(255, 210, 30, 80));
    }
    connect(dialog, &QColorDialog::colorSelected, this, &ColourMenu::picked);
    dialog->open();
}

}
