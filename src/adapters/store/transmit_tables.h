#pragma once

#include <utility>

#include "adapters/store/store_connection.h"
#include "platform/machine/file_system.h"
#include "platform/machine/transmit_table.h"

namespace orv {

/// The transmission profiles in a store of their own, of whatever kind.
///
/// The password in the connect text is looked at for its form only: an embedded file has none and a server is given it
/// elsewhere. "PrimaryKey" is the only index and "=" the only comparison. Whatever is used after it, or what it came
/// from, was closed is failure 91.
class TransmitTables : public TransmitEngine {
public:
    /// `files` gives the place of the file on this machine, and must outlive the engine and what it made.
    TransmitTables(const FileSystem& files, StoreOpener opener) : files_(files), opener_(std::move(opener)) {}

    /// Name, user and password are taken as they come; a `type` other than 2 is failure 5.
    std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                       const std::string& password, std::int32_t type) override;

private:
    const FileSystem& files_;
    StoreOpener opener_;
};

}  // namespace orv
