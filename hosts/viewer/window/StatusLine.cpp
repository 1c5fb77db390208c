#include "window/StatusLine.h"

#include "canvas/CanvasModel.h"
#include "documents/RawVolume.h"

#include <QLocale>
#include <QStatusBar>

#include <cmath>

namespace vostel::viewer {

namespace {

QString Number(double value, int digits = 7)
{
    return std::isnan(value) ? QStringLiteral("NaN") : QLocale::c().toString(value, 'g', digits);
}

const char* TypeName(VostelPixel type)
{
    switch (type) {
    case VOSTEL_U8:
        return QT_TRANSLATE_NOOP("vostel::viewer::StatusLine", "8 bits");
    case VOSTEL_U16:
        return QT_TRANSLATE_NOOP("vostel::viewer::StatusLine", "16 bits");
    case VOSTEL_I16:
        return QT_TRANSLATE_NOOP("vostel::viewer::StatusLine", "16 bits, signed");
    case VOSTEL_F32:
        return QT_TRANSLATE_NOOP("vostel::viewer::StatusLine", "float");
    default:
        return QT_TRANSLATE_NOOP("vostel::viewer::StatusLine", "color");
    }
}

}

void ShortLabel::SetWhole(const QString& text)
{
    Whole = text;
    setText(fontMetrics().elidedText(text, Qt::ElideRight, width()));
    setToolTip(text);
    setAccessibleName(text);
}

void ShortLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    setText(fontMetrics().elidedText(Whole, Qt::ElideRight, width()));
}

StatusLine::StatusLine(QStatusBar& bar)
    : QObject(&bar), Hint(new ShortLabel), Cursor(new QLabel), Values(new QLabel), Size(new QLabel),
      Zoom(new QLabel), Scale(new QLabel)
{
    const auto name = [](QLabel* label, const char* id) {
        label->setObjectName(QLatin1String(id));
        label->setTextFormat(Qt::PlainText);
    };
    name(Hint, "Hint");
    name(Cursor, "Cursor");
    name(Values, "Values");
    name(Size, "Size");
    name(Zoom, "Zoom");
    name(Scale, "Scale");
    Hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar.addWidget(Hint, 1);
    for (QLabel* const label : {Cursor, Values, Size, Zoom, Scale})
        bar.addPermanentWidget(label);
}

void StatusLine::ShowHint(const QString& hint)
{
    Hint->SetWhole(hint);
}

void StatusLine::ShowResult(const QString& text)
{
    Hint->SetWhole(text);
}

void StatusLine::ShowCursor(const CanvasModel& canvas, QPointF image)
{
    const Canvas&                    open = canvas.Open();
    const std::optional<VostelPlane> info = canvas.Image();
    const std::optional<double>      value = open.image_value(image.x(), image.y());
    if (!info || !value)
        return ShowNoCursor();
    const auto [units, unit] = open.scale();
    QString place = QStringLiteral("%1, %2").arg(image.x(), 0, 'f', 1).arg(image.y(), 0, 'f', 1);
    if (units != 1.0 || unit != "px")
        place += QStringLiteral("  (%1, %2 %3)")
                     .arg(Number(image.x() * units, 5), Number(image.y() * units, 5),
                          QString::fromStdString(unit));
    Cursor->setText(place);
    if (!IsColor(info->type)) {
        Values->setText(tr("Value %1").arg(Number(*value)));
        return;
    }
    QStringList channels;
    for (int channel = 1; channel <= 3; ++channel)
        channels << Number(open.image_value(image.x(), image.y(), channel).value_or(0.0));
    Values->setText(tr("RGB %1, gray %2").arg(channels.join(QStringLiteral(" ")), Number(*value, 4)));
}

void StatusLine::ShowNoCursor()
{
    Cursor->clear();
    Values->clear();
}

void StatusLine::ShowCanvas(const CanvasModel& canvas)
{
    const std::optional<VostelPlane> info = canvas.Image();
    if (!info) {
        for (QLabel* const label : {Size, Zoom, Scale})
            label->clear();
        return;
    }
    Size->setText(
        QStringLiteral("%1 x %2, %3").arg(info->width).arg(info->height).arg(tr(TypeName(info->type))));
    Zoom->setText(QStringLiteral("%1 %").arg(Number(canvas.Open().view_get().scale * 100.0, 4)));
    const auto [units, unit] = canvas.Open().scale();
    const QString name = QString::fromStdString(unit);
    Scale->setText(units == 1.0 && unit == "px" ? tr("not calibrated")
                                                : tr("1 px = %1 %2").arg(Number(units, 5), name));
}

}
