#pragma once

#include <string>

namespace orv {

/// What the machine says of itself.
class MachineFacts {
public:
    MachineFacts() = default;
    MachineFacts(const MachineFacts&) = delete;
    MachineFacts& operator=(const MachineFacts&) = delete;
    virtual ~MachineFacts() = default;

    /// Upper case and whole; empty when it can't be had. May be followed by NUL characters, as a buffer is.
    virtual std::string GetComputerName() const = 0;
    /// The Windows folder in the system's form; empty when it can't be had.
    virtual std::string GetWindowsDirectory() const = 0;
};

}  // namespace orv
