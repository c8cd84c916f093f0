#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "adapters/system/system_adapters.h"

namespace orv {

// The place of an office's files on this system. `root` is the native folder that a person names as the office.

/// The file by which the folder of an office is recognised.
extern const char* const kFileOfOffice;

SystemPaths officePaths(const std::string& root);

/// Returns the folder of the install in the form of the office's settings.
std::string installFolder(const std::string& root);

/// Returns the part of the registry that the program reads, in the form of registry.txt.
std::string registryText(const std::string& root);

/// Returns the name and the version of the system.
nlohmann::ordered_json systemVersions();

}  // namespace orv
