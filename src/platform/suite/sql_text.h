#pragma once

#include <string>
#include <string_view>

namespace orv {

/// Returns the value between apostrophes, unchanged. The statements on companies, locks and master lists are defined
/// in this form, and the log shows it. An apostrophe in the value ends the literal, so a save first rejects a record
/// that contains one.
inline std::string rawSqlText(std::string_view value) { return "'" + std::string(value) + "'"; }

/// Returns the value as a literal of a statement: between apostrophes, with its own ones doubled. Used for values that
/// can contain apostrophes, such as the name of a computer.
inline std::string sqlText(std::string_view value) {
    std::string doubled;
    for (const char c : value) {
        doubled.append(c == '\'' ? 2 : 1, c);
    }
    return rawSqlText(doubled);
}

}  // namespace orv
