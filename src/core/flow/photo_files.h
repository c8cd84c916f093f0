#pragma once

#include "core/record/company_record.h"

namespace orv {

/// Called after a load. Makes a working copy of a stored photo and puts its path in the field. Empties the field if the
/// file is gone, and also, with a log record, if the field is not a bare file name. Throws if the whole folder is
/// missing.
void makeWorkingCopy(const PhotoSlot& slot);

/// Called during a save. Replaces each stored name in a field with the path of a new working copy.
void renewWorkingCopies();

/// Like `renewWorkingCopies`, but handles each photo separately and never throws. Called at the end of every save. If a
/// photo cannot be copied, its field becomes the path of the stored file, which the next save keeps.
void restoreWorkingPaths();

inline namespace bas_Main_Companydata {

/// Moves the chosen photos to their stored place and puts the stored names in the fields. On false the pair holds the
/// failure, and a field whose photo was not yet moved keeps its path.
[[nodiscard]] bool PF_SaveCompanyDataOther();

}  // namespace bas_Main_Companydata

}  // namespace orv
