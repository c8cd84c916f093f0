#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orv {

/// A command line, split after the program.
struct FoundProgram {
    /// In the machine's form.
    std::string program;
    /// The rest of the line, from the blank after the program.
    std::string_view arguments;
};

/// Returns the machine's form of a path if it names a file.
using FileLookup = std::function<std::optional<std::string>(const std::string& path)>;

/// Returns the program that a command line names. The name is in double quotes or ends at a blank. Without quotes, the
/// shortest beginning that names a file counts, because folder names can contain blanks. ".EXE" can be omitted.
std::optional<FoundProgram> findProgram(std::string_view commandLine, const FileLookup& lookUp);

}  // namespace orv
