#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orv {

class Connection;
class DbService;

/// The rows of company `userId` as one JSON document: an object a table, a member a column, in UTF-8. A database null
/// is null, `SEND_FLAG` a boolean, a whole number a number, everything else a text. A table without exactly one row of
/// the company, or a store that can't be read, raises a RunTimeError with what the store says. Opens `storePath` for
/// itself and closes it.
std::string companyDocument(DbService& db, const std::string& storePath, const std::string& userId);

/// The number in the server's answer, {"id": "000005001"} with whatever else beside it. Nothing for a body of another
/// kind, and for an id that is no text, empty, longer than 64 bytes, or anything but ASCII digits and letters: it
/// becomes part of statements, of file names and of an argument string as it stands.
std::optional<std::string> idInAnswer(std::string_view body);

}  // namespace orv
