#pragma once

#include <string>

namespace orv {
inline namespace bas_FromCommon {

/// The display name of a field by its control's name, from the file of field names. One old name stands for another;
/// the replacement is written back into the argument.
std::string P_ChgControl(std::string& control);

}  // namespace bas_FromCommon
}  // namespace orv
