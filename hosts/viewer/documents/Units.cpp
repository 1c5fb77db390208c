#include "documents/Units.h"

namespace vostel::viewer {

namespace {

struct LengthUnit {
    const char* Name;
    double      Centimetres;
};

constexpr LengthUnit LengthUnits[] = {{"nm", 1e-7}, {"um", 1e-4}, {"µm", 1e-4}, {"μm", 1e-4},  {"mm", 0.1},
                                      {"cm", 1.0},  {"m", 100.0}, {"in", 2.54}, {"inch", 2.54}};

}

double CentimetresOf(const QString& unit)
{
    for (const LengthUnit& one : LengthUnits)
        if (unit == QString::fromUtf8(one.Name))
            return one.Centimetres;
    return 0.0;
}

double PixelsPerCentimetre(double unitsPerPixel, const QString& unit)
{
    const double pixel = unitsPerPixel * CentimetresOf(unit);
    return pixel > 0.0 ? 1.0 / pixel : 0.0;
}

}
