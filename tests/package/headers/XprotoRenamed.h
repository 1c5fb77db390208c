#pragma once

// Headers of the X protocol beside ours, before or after: they have a BOOL and a BYTE of one byte.

#include <X11/Xlib.h>
#define BOOL XBool
#define BYTE XByte
#include <X11/Xproto.h>
#undef BOOL
#undef BYTE
