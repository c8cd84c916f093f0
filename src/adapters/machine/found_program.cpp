#include "adapters/machine/found_program.h"

#include <algorithm>

#include "platform/ascii.h"

namespace orv {
namespace {

constexpr std::size_t kLongestPath = 4096;

bool hasExtension(std::string_view name) {
    return name.substr(name.find_last_of("\\/:") + 1).find('.') != std::string_view::npos;
}

std::optional<std::string> programFile(std::string_view name, const FileLookup& lookUp) {
    if (name.empty()) {
        return std::nullopt;
    }
    const auto asWritten = lookUp(std::string(name));
    return asWritten || hasExtension(name) ? asWritten : lookUp(std::string(name) + ".EXE");
}

}  // namespace

std::optional<FoundProgram> findProgram(std::string_view commandLine, const FileLookup& lookUp) {
    const std::string_view line = trimmed(upToNul(commandLine), kBlanksAndTabs);
    if (line.starts_with('"')) {
        const std::size_t end = std::min(line.find('"', 1), line.size());
        const auto program = programFile(line.substr(1, end - 1), lookUp);
        return program ? std::optional(FoundProgram{*program, line.substr(std::min(end + 1, line.size()))})
                       : std::nullopt;
    }
    for (std::size_t end = 0; end < line.size() && end < kLongestPath;) {
        end = std::min(line.find_first_of(kBlanksAndTabs, end + 1), line.size());
        if (const auto program = programFile(line.substr(0, end), lookUp)) {
            return FoundProgram{*program, line.substr(end)};
        }
    }
    return std::nullopt;
}

}  // namespace orv
