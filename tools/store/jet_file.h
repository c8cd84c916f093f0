#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/value.h"

namespace orv {

/// A column's type by the number that the file has for it.
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
    JetType type;  // also one that has no name above
};

/// A value as the file holds it.
struct JetCell {
    enum class State : std::uint8_t { Null, Held, Unread } state;
    std::string bytes;
};

struct JetTable {
    std::string name;
    std::vector<JetColumn> columns;
    std::vector<std::vector<JetCell>> rows;
    std::size_t told = 0;    // the rows that the table itself says that it has; less than there are after a crash
    std::size_t broken = 0;  // values, rows and pages that can't be read
};

struct JetFile {
    int version = 0;  // 3: texts in the code page; 4: texts in Unicode
    std::vector<JetTable> tables;
};

/// Reads the tables of these names, those that there are, in a process of its own that can do nothing else, with a
/// limit of time and memory: a damaged or hostile file ends in a KeeperFailure, whatever it does to the library that
/// reads it. `longest`: the time by the clock on the wall, also when the process stands still.
JetFile readJetFile(const std::string& path, const std::vector<std::string>& tables,
                    std::chrono::milliseconds longest = std::chrono::minutes(3));

}  // namespace orv
