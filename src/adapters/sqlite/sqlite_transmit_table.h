#pragma once

#include <chrono>

#include "platform/machine/file_system.h"
#include "platform/machine/transmit_table.h"

namespace orv {

/// The transmission profiles in an SQLite file of their own.
///
/// The password in the connect text is looked at for its form only: an embedded file has none, the rights on the file
/// are what protects it. "PrimaryKey" is the only index and "=" the only comparison. Whatever is used after it, or
/// what it came from, was closed is failure 91.
class SqliteTransmitEngine : public TransmitEngine {
public:
    static constexpr std::chrono::milliseconds kBusyWait{5000};

    /// `files` gives the place of the file on this machine, and must outlive the engine and what it made.
    explicit SqliteTransmitEngine(const FileSystem& files, std::chrono::milliseconds busyWait = kBusyWait)
        : files_(files), busyWait_(busyWait) {}

    /// Name, user and password are taken as they come; a `type` other than 2 is failure 5.
    std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                       const std::string& password, std::int32_t type) override;

private:
    const FileSystem& files_;
    std::chrono::milliseconds busyWait_;
};

}  // namespace orv
