#pragma once

/// @file
/// Everything that a host can call.

/// @mainpage
///
/// VostelObj gives a host application five image canvases behind plain functions, and image routines beside
/// them. `#include <VostelObj.h>` brings all of it.
///
/// - Canvases: CanvasView.h, CanvasEvents.h, CanvasImages.h, CanvasElements.h, CanvasControls.h,
///   CanvasSurfaces.h, CanvasSaves.h, CanvasTypes.h
/// - Data: Containers.h, Geometry.h, Colour.h, DisplayMapping.h
/// - Filters: Convolution.h, GaussianKernels.h, AdaptiveThreshold.h, FourierTransform.h,
///   ReconstructionFilter.h
/// - Shape of images and regions: Resize.h, ImageConcatenation.h, RasterFills.h
/// - Files: BmpFiles.h, RawDataFiles.h, ParameterFiles.h, PathStrings.h, Directories.h
/// - Dialogs and services: Tessik.h, host.h, RunHelpers.h, version.h
/// - The desktop's vocabulary: platform.h, WindowsTypes.h, PortableGdi.h, FrameworkString.h,
///   FrameworkGeometry.h, FrameworkImage.h
///
/// ### What holds for every canvas call
///
/// - The canvas number is 0 to 4. Any other number reads as an empty canvas and changes nothing.
/// - Canvas calls belong on one thread, the one that owns the window. Image routines may run on any thread,
///   as long as no container is used by two of them at once.
/// - Nothing is thrown but the allocator's exception. What a person has to know is shown by ShowMessage of
///   VostelHostServices; a `bool` result says no more than its call states.
/// - Pointers and references that a call returns belong to the canvas.

#include "vostel/AdaptiveThreshold.h"
#include "vostel/BmpFiles.h"
#include "vostel/CanvasControls.h"
#include "vostel/CanvasElements.h"
#include "vostel/CanvasEvents.h"
#include "vostel/CanvasImages.h"
#include "vostel/CanvasSaves.h"
#include "vostel/CanvasSurfaces.h"
#include "vostel/CanvasTypes.h"
#include "vostel/CanvasView.h"
#include "vostel/Colour.h"
#include "vostel/Containers.h"
#include "vostel/Convolution.h"
#include "vostel/Directories.h"
#include "vostel/DisplayMapping.h"
#include "vostel/FourierTransform.h"
#include "vostel/GaussianKernels.h"
#include "vostel/Geometry.h"
#include "vostel/ImageConcatenation.h"
#include "vostel/ParameterFiles.h"
#include "vostel/PathStrings.h"
#include "vostel/RasterFills.h"
#include "vostel/RawDataFiles.h"
#include "vostel/ReconstructionFilter.h"
#include "vostel/Resize.h"
#include "vostel/RunHelpers.h"
#include "vostel/Tessik.h"
#include "vostel/export.h"
#include "vostel/host.h"
#include "vostel/platform.h"
#include "vostel/version.h"
