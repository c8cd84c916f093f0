#pragma once

#include <string_view>

namespace orv {

// The suite's servers where "system.ini" names none. Whoever builds the program for an office puts the real hosts here.

inline constexpr std::string_view kImageHost = "image.orv-suite.invalid";
inline constexpr std::string_view kImageUploadUrl = "http://upload.orv-suite.invalid/rereceive46/davroot/";

}  // namespace orv
