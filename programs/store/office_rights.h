#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace orv {

using FoundRight = std::function<void(const std::string& path, const std::string& what)>;

/// Reports each part of a store, and of the office that it is in, that more users can read or write than an office
/// needs. A user who can write the programs or the settings can do everything that the program can. For a store outside
/// an office only its own file is checked: who can read it, or who can change the text that names a server.
void reportOpenRights(const std::filesystem::path& store, bool isServerText, const FoundRight& found);

}  // namespace orv
