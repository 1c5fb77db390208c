#pragma once

/// @file
/// The one include for a program that stands in for, or drives, the parameter dialogs alone.

#include "vostel/Tessik.h"
