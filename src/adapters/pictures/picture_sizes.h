#pragma once

#include "adapters/pictures/picture_header.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Which part of its sides a picture must keep to be brought inside `within` later: twice what it will have then, so
/// that the filter has enough to work on. 1, all of it, when that is no less than it has, or when nothing is promised.
double keptShare(const PictureHeader& header, PictureSize within);

// What a caller must not ask for; each raises the failure of an invalid call.
void requireSides(PictureSize size);
void requireNoGrowth(PictureSize own, PictureSize asked);
void requireQuality(int quality);
/// A picture of which less was kept than it has can't be written.
void requireKeptWhole(PictureSize kept, PictureSize own);

/// Raises the failure for a kind that can't be written back.
void requireOwnKind(bool own);

}  // namespace orv
