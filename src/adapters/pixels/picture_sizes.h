#pragma once

#include "adapters/pixels/picture_header.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Returns the share of a picture's sides needed to fit it into `within` later: twice the final size, for the filter.
/// Returns 1 if that is not smaller than the picture, or if there is no promise.
double keptShare(const PictureHeader& header, PictureSize within);

// Checks for invalid calls. Each throws the failure for one.
void requireSides(PictureSize size);
void requireNoGrowth(PictureSize own, PictureSize asked);
void requireQuality(int quality);
/// A picture that was reduced while loading cannot be written.
void requireKeptWhole(PictureSize kept, PictureSize own);

/// Throws the failure for a kind of picture that cannot be written back.
void requireOwnKind(bool own);

}  // namespace orv
