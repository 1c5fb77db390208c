#pragma once

/// @file
/// What marks the names that the libraries show to hosts. The library that is being built defines
/// VOSTEL_BUILDING or TESSIK_BUILDING; a program that takes the code in without a shared library defines
/// VOSTEL_STATIC.

/// @def VOSTEL_API
/// Marks the names of VostelObj.

/// @def TESSIK_API
/// Marks the names of Tessik.

#if defined(VOSTEL_STATIC)
#    define VOSTEL_API
#    define TESSIK_API
#elif defined(_WIN32)
#    if defined(VOSTEL_BUILDING)
#        define VOSTEL_API __declspec(dllexport)
#    else
#        define VOSTEL_API __declspec(dllimport)
#    endif
#    if defined(TESSIK_BUILDING)
#        define TESSIK_API __declspec(dllexport)
#    else
#        define TESSIK_API __declspec(dllimport)
#    endif
#else
#    define VOSTEL_API __attribute__((visibility("default")))
#    define TESSIK_API __attribute__((visibility("default")))
#endif
