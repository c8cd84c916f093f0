#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orv {

/// The messages from the reading process about a Jet file. Each has a kind, a length and bytes.
enum class JetFrame : std::uint8_t {
    Version,  // 3 or 4, as one byte
    Table,    // its name; the following frames belong to it
    Rows,     // the table's own row count, in digits
    Column,   // its type, one byte, and its name
    Row,      // begins a row; its values follow in column order
    Null,
    Bytes,    // a value as stored in the file; one byte, 0 or 1, for a boolean
    Unread,   // a value that cannot be read
    Broken,   // a row or page that cannot be read
    Refusal,  // the reason for ending early
    End,
};

/// Reads these tables from the bytes of a file and writes the frames to the descriptor. The library trusts the file's
/// content, so use this only in a process that can crash. Opens nothing after `prepareJetReading`.
void sendJetTables(std::span<char> bytes, const std::vector<std::string>& tables, int descriptor);

/// Loads the code pages that the library will request from the C library.
void prepareJetReading();

}  // namespace orv
