#pragma once

#include <string>
#include <vector>

#include "platform/machine/file_system.h"

namespace orv {

/// A heading and the names under which it is found: those of the controls that its section explains.
struct ManualSection {
    std::vector<std::string> names;
    std::string title;
};

/// A page of the manual.
struct ManualPage {
    std::string file;
    /// The Markdown without the lines that hold names.
    std::string markdown;
    /// In the order of the headings.
    std::vector<ManualSection> sections;
};

inline constexpr const char* kManualContents = "index.md";

/// Reads the contents page and every page that it links, in its order. `folder` ends in a separator. A page that is
/// missing is left out.
std::vector<ManualPage> readManual(const FileSystem& files, const std::string& folder);

}  // namespace orv
