#pragma once

#include <string_view>

namespace orv {

// Hosts of the suite's servers, used where "system.ini" names none. A build for an office replaces them with real
// hosts.

inline constexpr std::string_view kImageHost = "image.orv-suite.invalid";
inline constexpr std::string_view kImageUploadUrl = "http://upload.orv-suite.invalid/rereceive46/davroot/";

}  // namespace orv
