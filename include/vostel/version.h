#pragma once

/// @file
/// The version of these headers: a new major number breaks hosts, a new minor number adds to the interface.
/// The build takes its own version from here.

#define VOSTEL_VERSION "1.1.0"    ///< the whole version
#define VOSTEL_VERSION_MAJOR 1    ///< major number
#define VOSTEL_VERSION_MINOR 1    ///< minor number
#define VOSTEL_VERSION_PATCH 0    ///< patch number
