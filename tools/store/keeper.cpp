#include "keeper.h"

#include <iostream>

#include "adapters/office_store/office_store.h"
#include "adapters/store/store_file_check.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

/// Takes a half-made file, and what the engine keeps beside it, away again.
class Beside {
public:
    explicit Beside(const std::string& path) : path_(path + ".partial") { clear(); }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;
    ~Beside() { clear(); }

    const std::string& path() const { return path_; }

private:
    void clear() const {
        std::error_code ignored;
        fs::remove(path_, ignored);
        fs::remove(path_ + "-journal", ignored);
    }

    std::string path_;
};

}  // namespace

std::unique_ptr<StoreConnection> openStore(const std::string& path) {
    return officeStore()(path, StoreAccess::ReadWrite);
}

bool isEmbedded(const std::string& path) { return storeKindOf(path) == StoreKind::Embedded; }

bool stands(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

std::int64_t count(StoreConnection& store, const std::string& table) {
    const RecordsetPtr rows = store.select("SELECT COUNT(*) FROM " + table, {});
    return std::stoll(toText(rows->Fields(0)));
}

void requireMayFill(const std::string& target, const Options& options) {
    const auto store = openStore(target);
    if (!options.replace && !store->columns("TBL_CUSTOMER_INFO").empty() && count(*store, "TBL_CUSTOMER_INFO") > 0) {
        throw KeeperFailure(target + ": holds companies; --replace lets them go");
    }
}

void makeWhole(const std::string& path, const std::function<void(const std::string& beside)>& make) {
    if (stands(path)) {
        throw KeeperFailure(path + ": there is a file already");
    }
    const Beside beside(path);
    make(beside.path());
    std::error_code error;
    // A second name, unlike a rename, never takes the place of a file that has come there meanwhile.
    fs::create_hard_link(beside.path(), path, error);
    if (error == std::errc::operation_not_supported || error == std::errc::operation_not_permitted) {
        fs::rename(beside.path(), path, error);
    }
    if (error) {
        throw KeeperFailure(path + ": " + error.message());
    }
}

bool agreed(const Options& options, const std::string& question) {
    if (options.yes) {
        return true;
    }
    std::cerr << question << " [y/N] " << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) && (answer == "y" || answer == "Y" || answer == "yes");
}

void progress(const Options& options, const std::string& line) {
    if (!options.json) {
        std::cerr << line << std::endl;
    }
}

}  // namespace orv
