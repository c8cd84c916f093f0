#include "keeper.h"

#include <iostream>

#include "adapters/store/file_path.h"
#include "adapters/store/store_failure.h"
#include "adapters/store/store_file_check.h"
#include "app/office_store.h"
#include "private_folder.h"

namespace orv {
namespace fs = std::filesystem;

std::string errorCode(const std::exception& failure) {
    if (const auto* ofStore = dynamic_cast<const StoreFailure*>(&failure)) {
        return ofStore->code();
    }
    const auto* atRunTime = dynamic_cast<const RunTimeError*>(&failure);
    return atRunTime == nullptr ? "" : std::to_string(atRunTime->number());
}

std::unique_ptr<StoreConnection> openStore(const std::string& path, StoreAccess access) {
    return officeStore()(path, access);
}

bool isEmbedded(const std::string& path) { return detectStoreKind(path) == StoreKind::Embedded; }

bool storeExists(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(filePath(path), error).type() != fs::file_type::not_found;
}

std::int64_t count(StoreConnection& store, const std::string& table) {
    const RecordsetPtr rows = store.select("SELECT COUNT(*) FROM " + table, {});
    return std::stoll(toText(rows->Fields(0)));
}

void requireMayFill(const std::string& target, const Options& options) {
    const auto store = openStore(target);
    if (!options.replace && !store->columns("TBL_CUSTOMER_INFO").empty() && count(*store, "TBL_CUSTOMER_INFO") > 0) {
        throw KeeperFailure(target + ": contains companies; --replace deletes them");
    }
}

void makeWhole(const std::string& path, const std::string& rightsFrom,
               const std::function<void(const std::string& newFile)>& make) {
    if (storeExists(path)) {
        throw KeeperFailure(path + ": the file exists already");
    }
    const fs::path parent = fs::absolute(filePath(path)).parent_path();
    const PrivateFolder folder(parent);
    make(folder.file());
    folder.publish(path, rightsFrom.empty() ? parent : filePath(rightsFrom));
}

bool agreed(const Options& options, const std::string& question) {
    if (options.yes) {
        return true;
    }
    std::cerr << printable(question) << " [y/N] " << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) && (answer == "y" || answer == "Y" || answer == "yes");
}

void reportProgress(const Options& options, const std::string& line) {
    if (!options.json) {
        std::cerr << printable(line) << std::endl;
    }
}

}  // namespace orv
