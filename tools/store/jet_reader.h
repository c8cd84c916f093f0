#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orv {

/// What of a Jet file goes from the process that reads it to the one that asked: each a kind, a length and bytes.
enum class JetFrame : std::uint8_t {
    Version,  // 3 or 4, as one byte
    Table,    // its name, and what follows is of it
    Rows,     // how many the table itself says that it has, in digits
    Column,   // its type, one byte, and its name
    Row,      // begins one; its values follow, in the order of the columns
    Null,
    Bytes,    // a value as the file holds it; of a boolean one byte, 0 or 1
    Unread,   // a value that can't be read
    Broken,   // a row or a page that can't be read
    Refusal,  // a text: why nothing more comes
    End,
};

/// Reads the tables of these names out of the bytes of a file and writes the frames to the descriptor. The library
/// behind it trusts what the file says: only for a process that may crash. Opens nothing after `prepareJetReading`.
void sendJetTables(std::span<char> bytes, const std::vector<std::string>& tables, int descriptor);

/// Loads what the library will ask the C library for: the code pages.
void prepareJetReading();

}  // namespace orv
