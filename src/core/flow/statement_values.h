#pragma once

#include <cstdint>

namespace orv {

/// `Chosen`: the photo fields hold paths chosen by the operator, which the save will replace.
enum class PhotoFields : std::uint8_t { Chosen, Stored };

/// False if a field contains an apostrophe or NUL, which would end its literal and make the rest part of the statement.
/// The pair names the field and the place to correct it (`SAVE0003`). Typed input never contains them, but other
/// programs, imports, the registry and settings can.
[[nodiscard]] bool valuesFitStatements(PhotoFields photos);

}  // namespace orv
