#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orv {

class Connection;
class DbService;

/// Returns the rows of company `userId` as one JSON document in UTF-8: an object per table, a member per column. A
/// database null is null, `SEND_FLAG` a boolean, an integer a number, everything else a text. Throws a RunTimeError
/// with the store's text if a table does not have exactly one row of the company, or the store cannot be read. Opens
/// and closes `storePath` itself.
std::string companyDocument(DbService& db, const std::string& storePath, const std::string& userId);

/// Returns the number in the server's answer, {"id": "000005001"}, which can have other members. Returns nothing for
/// any other body. The id must be a text of 1 to 64 ASCII digits and letters, because it is used unchanged in
/// statements, file names and an argument string.
std::optional<std::string> idInAnswer(std::string_view body);

}  // namespace orv
