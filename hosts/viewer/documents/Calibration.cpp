#include "documents/Calibration.h"

#include "canvas/CanvasModel.h"
#include "documents/FirstContrast.h"
#include "documents/FolderSettings.h"

#include <QCoreApplication>

#include <cmath>

namespace vostel::viewer {

namespace {

const QString ScalePurpose = QStringLiteral("Scale");
const QString UnitsKey = QStringLiteral("UnitsPerPixel");
const QString UnitKey = QStringLiteral("Unit");

QString ScaleText(const char* english)
{
    return QCoreApplication::translate("Calibration", english);
}

bool IsPixels(const PixelScale& scale)
{
    return scale.UnitsPerPixel == 1.0 && scale.Unit == QStringLiteral("px");
}

// In px of the image; nothing of what has no length.
std::optional<double> PixelsOf(const CanvasModel& model, const Object& line)
{
    const Measures measures = line.measure();
    if ((measures.valid & VOSTEL_HAS_LENGTH) == 0)
        return std::nullopt;
    return measures.length / Calibration::Of(model).UnitsPerPixel;
}

}

PixelScale Calibration::Of(const CanvasModel& model)
{
    const auto scale = model.Open().scale();
    return {scale.first, QString::fromStdString(scale.second)};
}

bool Calibration::IsSet(const CanvasModel& model)
{
    return !IsPixels(Of(model));
}

Outcome Calibration::Set(CanvasModel& model, const PixelScale& scale)
{
    const QString unit = scale.Unit.trimmed();
    if (!std::isfinite(scale.UnitsPerPixel) || scale.UnitsPerPixel <= 0.0)
        return Failed(
            ScaleText(QT_TRANSLATE_NOOP("Calibration", "The length of a pixel has to be above zero.")));
    if (unit.isEmpty())
        return Failed(ScaleText(QT_TRANSLATE_NOOP("Calibration", "The unit is missing, such as mm or px.")));
    try {
        model.Open().set_scale(scale.UnitsPerPixel, unit.toStdString());
    } catch (const Error& error) {
        return Failed(QString::fromStdString(error.message()));
    }
    return Done(ScaleText(QT_TRANSLATE_NOOP("Calibration", "A pixel is %1 %2"))
                    .arg(scale.UnitsPerPixel, 0, 'g', 6)
                    .arg(unit));
}

Outcome Calibration::ByLength(CanvasModel& model, const Object& line, double trueLength, const QString& unit)
{
    try {
        const std::optional<double> pixels = PixelsOf(model, line);
        if (!pixels)
            return Failed(ScaleText(QT_TRANSLATE_NOOP(
                "Calibration",
                "The object has no length: choose a length, a polyline, a profile or an arrow.")));
        if (!(*pixels > 0.0))
            return Failed(
                ScaleText(QT_TRANSLATE_NOOP("Calibration", "The line has no length in the picture.")));
        if (!std::isfinite(trueLength) || trueLength <= 0.0)
            return Failed(
                ScaleText(QT_TRANSLATE_NOOP("Calibration", "The true length has to be above zero.")));
        return Set(model, {trueLength / *pixels, unit});
    } catch (const Error& error) {
        return Failed(QString::fromStdString(error.message()));
    }
}

std::optional<PixelScale> Calibration::OfFolder(const QString& folder)
{
    const QVariantMap kept = FolderSettings::Of(ScalePurpose, folder);
    const PixelScale  scale{kept.value(UnitsKey).toDouble(), kept.value(UnitKey).toString()};
    if (!std::isfinite(scale.UnitsPerPixel) || scale.UnitsPerPixel <= 0.0 || scale.Unit.isEmpty())
        return std::nullopt;
    return scale;
}

void Calibration::KeepForFolder(const QString& folder, const PixelScale& scale)
{
    if (IsPixels(scale))
        return ForgetFolder(folder);
    FolderSettings::Keep(ScalePurpose, folder, {{UnitsKey, scale.UnitsPerPixel}, {UnitKey, scale.Unit}});
}

void Calibration::ForgetFolder(const QString& folder)
{
    FolderSettings::Forget(ScalePurpose, folder);
}

void Calibration::Begin(CanvasModel& model, const QString& picture)
{
    const PixelScale scale = OfFolder(FolderOf(picture)).value_or(PixelScale());
    if (Of(model).UnitsPerPixel == scale.UnitsPerPixel && Of(model).Unit == scale.Unit)
        return;
    if (Set(model, scale).IsDone())
        ForgetHistory(model.Open());
}

}
