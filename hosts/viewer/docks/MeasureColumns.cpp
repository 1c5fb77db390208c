#include "docks/MeasureColumns.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

template <auto Field>
std::optional<double> FieldOf(const Measures& measures)
{
    return static_cast<double>(measures.*Field);
}

}

const std::vector<MeasureColumn>& MeasureColumns()
{
    using U = MeasureColumn::Unit;
    using M = Measures;
    static const std::vector<MeasureColumn> columns = {
        {"object", QT_TRANSLATE_NOOP("Measures", "No."), U::None, 0, nullptr},
        {"name", QT_TRANSLATE_NOOP("Measures", "Name"), U::None, 0, nullptr},
        {"kind", QT_TRANSLATE_NOOP("Measures", "Kind"), U::None, 0, nullptr},
        {"label", QT_TRANSLATE_NOOP("Measures", "Label"), U::None, 0, nullptr},
        {"pixels", QT_TRANSLATE_NOOP("Measures", "Pixels"), U::None, VOSTEL_HAS_PIXELS, FieldOf<&M::pixels>},
        {"not_finite", QT_TRANSLATE_NOOP("Measures", "Not finite"), U::None, VOSTEL_HAS_PIXELS,
         FieldOf<&M::not_finite>},
        {"area", QT_TRANSLATE_NOOP("Measures", "Area"), U::Area, VOSTEL_HAS_AREA, FieldOf<&M::area>},
        {"perimeter", QT_TRANSLATE_NOOP("Measures", "Perimeter"), U::Length, VOSTEL_HAS_AREA,
         FieldOf<&M::perimeter>},
        {"length", QT_TRANSLATE_NOOP("Measures", "Length"), U::Length, VOSTEL_HAS_LENGTH,
         FieldOf<&M::length>},
        {"angle", QT_TRANSLATE_NOOP("Measures", "Angle"), U::Degrees, VOSTEL_HAS_ANGLE, FieldOf<&M::angle>},
        {"mean", QT_TRANSLATE_NOOP("Measures", "Mean"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::mean>},
        {"sd", QT_TRANSLATE_NOOP("Measures", "Deviation"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::sd>},
        {"min", QT_TRANSLATE_NOOP("Measures", "Minimum"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::min>},
        {"max", QT_TRANSLATE_NOOP("Measures", "Maximum"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::max>},
        {"sum", QT_TRANSLATE_NOOP("Measures", "Sum"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::sum>},
        {"median", QT_TRANSLATE_NOOP("Measures", "Median"), U::None, VOSTEL_HAS_VALUES, FieldOf<&M::median>},
        {"centroid_x", QT_TRANSLATE_NOOP("Measures", "Centroid x"), U::Pixels, VOSTEL_HAS_SHAPE,
         FieldOf<&M::centroid_x>},
        {"centroid_y", QT_TRANSLATE_NOOP("Measures", "Centroid y"), U::Pixels, VOSTEL_HAS_SHAPE,
         FieldOf<&M::centroid_y>},
        {"left", QT_TRANSLATE_NOOP("Measures", "Left"), U::Pixels, VOSTEL_HAS_SHAPE, FieldOf<&M::left>},
        {"top", QT_TRANSLATE_NOOP("Measures", "Top"), U::Pixels, VOSTEL_HAS_SHAPE, FieldOf<&M::top>},
        {"right", QT_TRANSLATE_NOOP("Measures", "Right"), U::Pixels, VOSTEL_HAS_SHAPE, FieldOf<&M::right>},
        {"bottom", QT_TRANSLATE_NOOP("Measures", "Bottom"), U::Pixels, VOSTEL_HAS_SHAPE, FieldOf<&M::bottom>},
        {"feret_max", QT_TRANSLATE_NOOP("Measures", "Feret max."), U::Length, VOSTEL_HAS_SHAPE,
         FieldOf<&M::feret_max>},
        {"feret_min", QT_TRANSLATE_NOOP("Measures", "Feret min."), U::Length, VOSTEL_HAS_SHAPE,
         FieldOf<&M::feret_min>},
        {"circularity", QT_TRANSLATE_NOOP("Measures", "Circularity"), U::None, VOSTEL_HAS_AREA,
         FieldOf<&M::circularity>},
    };
    return columns;
}

int MeasureColumnOf(const QString& key)
{
    const std::vector<MeasureColumn>& columns = MeasureColumns();
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const MeasureColumn& column) {
        return key == QLatin1String(column.Key);
    });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

QString TitleOf(const MeasureColumn& column, const QString& unit)
{
    const QString title = QCoreApplication::translate("Measures", column.Title);
    switch (column.In) {
    case MeasureColumn::Unit::Length:
        return QStringLiteral("%1 (%2)").arg(title, unit);
    case MeasureColumn::Unit::Area:
        return QStringLiteral("%1 (%2²)").arg(title, unit);
    case MeasureColumn::Unit::Degrees:
        return QStringLiteral("%1 (°)").arg(title);
    case MeasureColumn::Unit::Pixels:
        return QStringLiteral("%1 (px)").arg(title);
    default:
        return title;
    }
}

QString ShownNumber(double value)
{
    const double size = std::abs(value);
    if (!std::isfinite(value) || (size != 0.0 && (size < 1e-4 || size >= 1e12)))
        return QLocale::c().toString(value, 'g', 6);
    const int before = size < 1.0 ? 1 : static_cast<int>(std::floor(std::log10(size))) + 1;
    QString   text = QString::number(value, 'f', std::clamp(6 - before, 0, 5));
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString ExactNumber(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

}
