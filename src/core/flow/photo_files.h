#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/record/company_record.h"

namespace orv {

/// One of the two photos of a company.
struct PhotoSlot {
    std::int16_t index;
    TextField file;
    std::string_view suffix;
};

inline constexpr std::array<PhotoSlot, 2> kPhotoSlots{{
    {0, &CompanyRecord::PHOTO_FILE1, "01.jpg"},
    {1, &CompanyRecord::PHOTO_FILE2, "02.jpg"},
}};

/// After the load: a stored photo gets a working copy, whose path the field becomes; a stored file that is gone empties
/// the field. Raises if the whole folder is missing. A field that is not a bare file name is emptied too, and logged.
void takeWorkingCopy(const PhotoSlot& slot);

/// During a save: each field that names a stored photo becomes the path of a fresh working copy.
void workingCopiesAgain();

/// The same on the way out of a save, for each photo by itself and without raising. One that cannot be copied is known
/// by the path of its stored file, which the next save keeps.
void pathsAgainWhateverHappens();

inline namespace bas_Main_Companydata {

/// Brings the chosen photos to their stored place and gives the fields the form of the column. False: the pair tells
/// why; a slot that was not yet placed keeps its path.
[[nodiscard]] bool PF_SaveCompanyDataOther();

}  // namespace bas_Main_Companydata

}  // namespace orv
