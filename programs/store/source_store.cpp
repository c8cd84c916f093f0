#include "source_store.h"

#include "adapters/sqlite/sqlite_files.h"

namespace orv {

SourceStore::SourceStore(const std::string& path) {
    if (!isEmbedded(path)) {
        store_ = openStore(path, StoreAccess::ReadOnly);
        return;
    }
    folder_.emplace(std::filesystem::temp_directory_path());
    snapshotSqliteFile(path, folder_->file());
    store_ = openStore(folder_->file(), StoreAccess::OwnCopy);
}

}  // namespace orv
