#pragma once

#include <memory>
#include <optional>
#include <string>

#include "keeper.h"
#include "private_folder.h"

namespace orv {

/// A store of either kind that is only read. Of an embedded store, a private copy is read: nothing is written next to
/// the store, and its terminals wait only while the copy is made.
class SourceStore {
public:
    explicit SourceStore(const std::string& path);

    StoreConnection& get() const { return *store_; }

private:
    std::optional<PrivateFolder> folder_;
    std::unique_ptr<StoreConnection> store_;
};

}  // namespace orv
