#pragma once

/// @file
/// The vocabulary of the Windows desktop that the interface speaks. On Windows it is the real one; the value
/// classes come from the application framework where the compiler brings it. Elsewhere the library brings the
/// same names with the same bits and values.

#if defined(_WIN32)
#    if !defined(NOMINMAX)
#        define NOMINMAX
#    endif
#    include <windows.h>
#    if defined(_MSC_VER) && __has_include(<atlstr.h>)
#        include <atlimage.h>
#        include <atlstr.h>
#        include <atltypes.h>
#        define VOSTEL_HAS_FRAMEWORK_CLASSES 1
#    endif
#else
#    include "vostel/desktop/WindowsTypes.h"

#    include "vostel/desktop/PortableGdi.h"
#endif

#if !defined(VOSTEL_HAS_FRAMEWORK_CLASSES)
#    include "vostel/desktop/FrameworkGeometry.h"
#    include "vostel/desktop/FrameworkImage.h"
#    include "vostel/desktop/FrameworkString.h"
#endif
