#pragma once

#include <string>

namespace orv {

/// A path, a section or a key as the fakes compare them: letters without regard to case, "x\.." folded away.
inline std::string folded(std::string name) {
    for (char& letter : name) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter + ('a' - 'A'));
        }
    }
    for (std::size_t up = name.find("\\..\\"); up != std::string::npos && up > 0; up = name.find("\\..\\")) {
        const std::size_t from = name.rfind('\\', up - 1);
        if (from == std::string::npos) {
            break;
        }
        name.erase(from, up + 3 - from);
    }
    return name;
}

}  // namespace orv
