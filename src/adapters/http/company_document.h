#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

class Connection;
class DbService;

/// A column that is sent to the server. A flag contains a boolean.
struct SentColumn {
    std::string_view name;
    bool isFlag = false;
};

struct SentTable {
    std::string_view name;
    std::vector<SentColumn> columns;
};

/// Returns the rows of company `userId` as one JSON document in UTF-8: an object per table, a member per column, in the
/// given order. A database null is null, a flag a boolean, an integer a number, everything else a text. Throws a
/// RunTimeError with the store's text if a table does not have exactly one row of the company, or the store cannot be
/// read. Opens and closes `storePath` itself.
std::string companyDocument(DbService& db, std::span<const SentTable> tables, const std::string& storePath,
                            const std::string& userId);

/// Returns the number in the server's answer, {"id": "000005001"}, which can have other members. Returns nothing for
/// any other body. The id must be a text of 1 to 64 ASCII digits and letters, because it is used unchanged in
/// statements, file names and an argument string.
std::optional<std::string> idInAnswer(std::string_view body);

}  // namespace orv
