#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/value.h"

namespace orv {

/// The file's number for a column's type.
enum class JetType : std::uint8_t {
    Flag = 1,
    Byte = 2,
    Int = 3,
    Long = 4,
    Double = 7,
    Text = 10,
    Memo = 12,
};

struct JetColumn {
    std::string name;
    JetType type;  // can be a number without a name above
};

/// A value as stored in the file.
struct JetCell {
    enum class State : std::uint8_t { Null, Held, Unread } state;
    std::string bytes;
};

struct JetTable {
    std::string name;
    std::vector<JetColumn> columns;
    std::vector<std::vector<JetCell>> rows;
    std::size_t statedRows = 0;  // the table's own row count; too small after a crash
    std::size_t broken = 0;      // values, rows and pages that cannot be read
};

struct JetFile {
    int version = 0;  // 3: texts in the code page; 4: texts in Unicode
    std::vector<JetTable> tables;
};

/// Reads the existing tables among `tables` in a process that can do nothing else, with limits of time and memory. A
/// damaged or hostile file results in a KeeperFailure, whatever it does to the reading library. `longest` limits the
/// elapsed time, including time in which the process is stopped.
JetFile readJetFile(const std::string& path, const std::vector<std::string>& tables,
                    std::chrono::milliseconds longest = std::chrono::minutes(3));

}  // namespace orv
