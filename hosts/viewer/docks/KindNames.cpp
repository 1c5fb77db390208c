#include "docks/KindNames.h"

#include <QCoreApplication>

namespace vostel::viewer {

QString KindName(VostelKind kind, std::uint32_t flags)
{
    switch (kind) {
    case VOSTEL_RECTANGLE:
    case VOSTEL_CUSTOM_RECTANGLE:
        return (flags & VOSTEL_ELLIPSE) != 0 ? QCoreApplication::translate("KindName", "Ellipse")
                                             : QCoreApplication::translate("KindName", "Rectangle");
    case VOSTEL_POLYGON:
        return QCoreApplication::translate("KindName", "Polygon");
    case VOSTEL_SPLINE:
        return QCoreApplication::translate("KindName", "Spline");
    case VOSTEL_FREE_REGION:
        return QCoreApplication::translate("KindName", "Free region");
    case VOSTEL_TEXT:
        return QCoreApplication::translate("KindName", "Text");
    case VOSTEL_FREE_STROKES:
        return QCoreApplication::translate("KindName", "Stroke");
    case VOSTEL_LENGTH:
        return QCoreApplication::translate("KindName", "Length");
    case VOSTEL_ANGLE:
        return QCoreApplication::translate("KindName", "Angle");
    case VOSTEL_ANGLE_LINES:
        return QCoreApplication::translate("KindName", "Angle of two lines");
    case VOSTEL_PANEL:
        return QCoreApplication::translate("KindName", "Information");
    case VOSTEL_NEIGHBOURS:
        return QCoreApplication::translate("KindName", "Neighbour values");
    case VOSTEL_PROFILE:
        return QCoreApplication::translate("KindName", "Profile");
    case VOSTEL_POINTS:
        return QCoreApplication::translate("KindName", "Points");
    case VOSTEL_POLYLINE:
        return QCoreApplication::translate("KindName", "Polyline");
    case VOSTEL_ARROW:
        return QCoreApplication::translate("KindName", "Arrow");
    default:
        return QCoreApplication::translate("KindName", "Object");
    }
}

bool IsRegion(VostelKind kind)
{
    return kind == VOSTEL_RECTANGLE || kind == VOSTEL_CUSTOM_RECTANGLE || kind == VOSTEL_POLYGON ||
           kind == VOSTEL_SPLINE || kind == VOSTEL_FREE_REGION;
}

QString NameOrNumber(const std::string& name, VostelObject object)
{
    return name.empty() ? QStringLiteral("#%1").arg(object) : QString::fromStdString(name);
}

}
