// The package, the text and the numbers of the header tell the same version.
#include <VostelObj.h>

#include <string_view>

#define TEXT_OF(number) #number
#define JOINED(major, minor, patch) TEXT_OF(major) "." TEXT_OF(minor) "." TEXT_OF(patch)

static_assert(std::string_view(VOSTEL_VERSION) == PACKAGE_VERSION);
static_assert(std::string_view(VOSTEL_VERSION) ==
              JOINED(VOSTEL_VERSION_MAJOR, VOSTEL_VERSION_MINOR, VOSTEL_VERSION_PATCH));
