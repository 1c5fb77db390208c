#pragma once

#include <QString>
#include <vostel.hpp>

#include <optional>
#include <vector>

namespace vostel::viewer {

// What a table of measures can show.
struct MeasureColumn {
    enum class Unit { None, Length, Area, Degrees, Pixels };

    const char*   Key = "";      // in settings, as the open interface names it
    const char*   Title = "";    // to be translated
    Unit          In = Unit::None;
    std::uint32_t Valid = 0;    // bit of VostelMeasures; 0: not measured
    std::optional<double> (*Value)(const Measures&) = nullptr;

    bool IsMeasured() const { return Value != nullptr; }
};

// The first four tell which object it is: number, name, kind, label.
enum IdentityColumn { ObjectNumber, ObjectName, ObjectKind, ObjectLabel };

const std::vector<MeasureColumn>& MeasureColumns();
int                               MeasureColumnOf(const QString& key);    // -1: unknown

// With its unit, such as "Area (mm²)".
QString TitleOf(const MeasureColumn& column, const QString& unit);

// Six digits that count, for reading; and all digits, for other programs.
QString ShownNumber(double value);
QString ExactNumber(double value);

}
