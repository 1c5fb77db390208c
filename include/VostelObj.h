#pragma once

// Everything a host can call.

#include "vostel/BmpFiles.h"
#include "vostel/CanvasElements.h"
#include "vostel/CanvasEvents.h"
#include "vostel/CanvasImages.h"
#include "vostel/CanvasSaves.h"
#include "vostel/CanvasTypes.h"
#include "vostel/Colour.h"
#include "vostel/Containers.h"
#include "vostel/Directories.h"
#include "vostel/DisplayMapping.h"
#include "vostel/Geometry.h"
#include "vostel/PathStrings.h"
#include "vostel/RasterFills.h"
#include "vostel/RunHelpers.h"
#include "vostel/Tessik.h"
#include "vostel/export.h"
#include "vostel/host.h"
#include "vostel/platform.h"
