#pragma once

#include <string>

namespace orv {

/// The path of the sample office in the source tree.
extern const std::string kSampleFolder;

}  // namespace orv
