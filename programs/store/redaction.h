#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace orv {

// Removes everything from texts for the support that could be a secret or data of a company. Only parts that are known
// to be neither are kept.

inline constexpr const char* kRemoved = "(removed)";

/// Keeps the sections and keys that the installed settings have, and their values without user, password and query.
/// Removes comments and command lines.
std::string redactedSettings(const std::string& text);

/// Keeps time and code of each record of the error log, and the name of the routine. The texts can contain statements
/// and values of companies.
std::string redactedLog(const std::string& text);

/// Keeps the numbers of companies, the names of computers, the paths in `office` and the findings' own texts. Of the
/// engine's texts only the code is kept.
nlohmann::ordered_json redactedCheck(const nlohmann::ordered_json& facts, const std::string& office);

}  // namespace orv
