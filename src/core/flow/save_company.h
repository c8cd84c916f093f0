#pragma once

#include <string>

#include "pages/controls/page_form.h"

namespace orv {

inline namespace bas_Main_Companydata {

/// The whole of a save: the page into the record, the checks, the photos, the store, the images and the company to the
/// server, and the store once more with the server's answer. `userId` receives the company that the page must show
/// afterwards. True: nothing went wrong, or the checks refused the input and told so. False: the pair tells why.
[[nodiscard]] bool PF_SndCos(PageForm& form, std::string& userId);

}  // namespace bas_Main_Companydata

}  // namespace orv
