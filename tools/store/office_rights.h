#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace orv {

/// Reports what of a store, and of the office that it is in, more people may read or write than an office needs:
/// whoever may write the programs or the settings can do what the program can. Of a store outside an office only its
/// own file: who may read it, or who may change the text that names a server.
void tellOpenRights(const std::filesystem::path& store, bool isServerText,
                    const std::function<void(const std::string& path, const std::string& what)>& found);

}  // namespace orv
