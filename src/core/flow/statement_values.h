#pragma once

#include <cstdint>

namespace orv {

/// `Chosen`: the photo fields hold paths of the operator's, which the save will replace.
enum class PhotoFields : std::uint8_t { Chosen, Stored };

/// False where a field holds an apostrophe or a NUL, which would end its literal in a statement and make the rest of
/// the value a part of it; the pair names the field and where to correct it (`SAVE0003`). What the operator types never
/// does, but other programs, an import, the registry and the settings can.
[[nodiscard]] bool valuesFitStatements(PhotoFields photos);

}  // namespace orv
