#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// `Chosen`: the photo fields hold paths chosen by the operator, which the save will replace.
enum class PhotoFields : std::uint8_t { Chosen, Stored };

/// False if a field contains an apostrophe or NUL, which would end its literal and make the rest part of the statement.
/// The pair names the field and the place to correct it (`SAVE0003`). Typed input never contains them, but other
/// programs, imports, the registry and settings can.
[[nodiscard]] bool valuesFitStatements(PhotoFields photos);

inline namespace bas_Main_Companydata {

/// Writes the record to its three tables, in one transaction on the open store. `targetId` is the key that the rows
/// will have. Rows are inserted only for the new-company key. On false nothing is written, the pair holds the failure,
/// and the log has the failure and the statement.
[[nodiscard]] bool PF_SetCompanyDataSave(const std::string& targetId);

}  // namespace bas_Main_Companydata

}  // namespace orv
