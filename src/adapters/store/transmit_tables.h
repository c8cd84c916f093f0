#pragma once

#include <utility>

#include "adapters/store/store_connection.h"
#include "platform/machine/file_system.h"
#include "platform/machine/transmit_table.h"

namespace orv {

/// The transmission profiles in their own store of any kind.
///
/// Checks only the form of the password in the connect text, because an embedded file has none and a server gets it
/// elsewhere. "PrimaryKey" is the only index and "=" the only comparison. Using an object after it, or its parent, was
/// closed is failure 91.
class TransmitTables : public TransmitEngine {
public:
    /// `files` locates the file on this machine, and must outlive the engine and its objects.
    TransmitTables(const FileSystem& files, StoreOpener opener) : files_(files), opener_(std::move(opener)) {}

    /// Accepts any name, user and password; a `type` other than 2 is failure 5.
    std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                       const std::string& password, std::int32_t type) override;

private:
    const FileSystem& files_;
    StoreOpener opener_;
};

}  // namespace orv
