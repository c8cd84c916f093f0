#pragma once

#include <filesystem>
#include <string>

namespace orv {

/// Returns the path with that text, which is UTF-8 on every system. The path's own constructor would read the text in
/// the code page of the machine.
inline std::filesystem::path filePath(const std::string& text) { return {std::u8string(text.begin(), text.end())}; }

/// The reverse.
inline std::string pathText(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace orv
