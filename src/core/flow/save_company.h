#pragma once

#include <string>

#include "pages/forms/page_form.h"

namespace orv {

inline namespace bas_Main_Companydata {

/// Saves the company. Steps: page to record, checks, photos, store, upload of images and company, and the store again
/// with the server's answer. `userId` receives the company that the page must show next. True if all succeeded, or if
/// the checks rejected the input and reported it. On false the pair holds the failure.
[[nodiscard]] bool PF_SndCos(PageForm& form, std::string& userId);

}  // namespace bas_Main_Companydata

}  // namespace orv
