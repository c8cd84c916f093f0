#pragma once

#include <string>

namespace orv {
inline namespace bas_FromCommon {

/// Returns the display name of a field from the file of field names. `control` is the control's name; one outdated name
/// is replaced, also in the argument.
std::string P_ChgControl(std::string& control);

}  // namespace bas_FromCommon
}  // namespace orv
