#pragma once

#include <QString>
#include <vostel.hpp>

namespace vostel::viewer {

// What a user calls a kind of objects.
QString KindName(VostelKind kind, std::uint32_t flags);

bool IsRegion(VostelKind kind);

// Its name, or for want of one its number.
QString NameOrNumber(const std::string& name, VostelObject object);

}
