#pragma once

#include <string>

namespace orv {

/// The sample office among the sources.
extern const std::string kSampleFolder;

}  // namespace orv
