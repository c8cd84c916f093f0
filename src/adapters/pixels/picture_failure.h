#pragma once

#include "platform/run_time_error.h"

namespace orv {

/// The faults of a picture file. The numbers appear in logs, so they never change their meaning.
enum class PictureFailure : int {
    NotAFile = 20101,
    Empty = 20102,
    UnknownFormat = 20103,
    Damaged = 20104,
    TooManyPixels = 20105,
    UnsupportedKind = 20106,
    FileTooLarge = 20107,
    NeedsTooMuchMemory = 20108,
    NotWritable = 20109,
};

/// Returns the exception for `failure`, with the operator's text.
RunTimeError pictureError(PictureFailure failure);

}  // namespace orv
