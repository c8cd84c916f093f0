#include "adapters/store/transmit_tables.h"

#include <algorithm>
#include <string_view>

#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbeddedType = 2;
constexpr std::int32_t kTableType = 1;
constexpr std::string_view kPasswordSign = ";pwd=";

/// Shared by an open store and the objects created from it. Closing the store or its workspace empties it for all.
using SharedStore = std::shared_ptr<std::unique_ptr<StoreConnection>>;

void require(bool condition, Failure failure) {
    if (!condition) {
        throw RunTimeError(failure);
    }
}

StoreConnection& usable(const SharedStore& store) {
    require(store != nullptr && *store != nullptr, Failure::ObjectNotSet);
    return **store;
}

/// Checks a name that is used unquoted in a statement, because engines fold the case of quoted names differently.
const std::string& plainName(const std::string& name) {
    const auto isPlain = [](char c) { return c == '_' || isAsciiAlphanumeric(c); };
    require(!name.empty() && std::ranges::all_of(name, isPlain), Failure::InvalidCall);
    return name;
}

class Table : public TransmitRecordset {
public:
    Table(SharedStore store, const std::string& name)
        : store_(std::move(store)),
          select_("SELECT * FROM " + plainName(name)),
          keys_(usable(store_).keyColumns(name)),
          row_(usable(store_).select(select_ + " LIMIT 1", {})),
          isEmpty_(row_->Eof()) {}

    void Index(const std::string& name) override {
        usable(store_);
        require(name == "PrimaryKey" && !keys_.empty(), Failure::InvalidCall);
        hasIndex_ = true;
    }

    void Seek(const std::string& comparison, const Values& keys) override {
        usable(store_);
        require(hasIndex_ && comparison == "=" && keys.size() == keys_.size(), Failure::InvalidCall);
        row_ = usable(store_).select(select_ + whereKeysMatch(), keys);
        noMatch_ = row_->Eof();
    }

    bool Eof() const override {
        usable(store_);
        return isEmpty_;
    }

    bool NoMatch() const override {
        usable(store_);
        return noMatch_;
    }

    Value Fields(const std::string& name) const override {
        usable(store_);
        return row_->Fields(name);
    }

    void Close() override {
        usable(store_);
        store_.reset();
    }

private:
    std::string whereKeysMatch() const {
        std::string condition;
        for (int place = 1; const std::string& key : keys_) {
            condition += (place == 1 ? " WHERE " : " AND ") + plainName(key) + " = $" + std::to_string(place);
            ++place;
        }
        return condition;
    }

    SharedStore store_;
    std::string select_;
    std::vector<std::string> keys_;
    RecordsetPtr row_;  // the current row, or none
    bool isEmpty_;
    bool hasIndex_ = false;
    bool noMatch_ = false;
};

class Database : public TransmitDatabase {
public:
    explicit Database(SharedStore store) : store_(std::move(store)) {}
    ~Database() override { store_->reset(); }

    std::unique_ptr<TransmitRecordset> OpenRecordset(const std::string& table, std::int32_t type) override {
        usable(store_);
        require(type == kTableType, Failure::InvalidCall);
        return std::make_unique<Table>(store_, table);
    }

    void Close() override {
        usable(store_);
        store_->reset();
    }

private:
    SharedStore store_;
};

class Workspace : public TransmitWorkspace {
public:
    Workspace(const FileSystem& files, StoreOpener opener) : files_(files), opener_(std::move(opener)) {}
    ~Workspace() override { closeStores(); }

    std::unique_ptr<TransmitDatabase> OpenDatabase(const std::string& path, bool exclusive, bool readOnly,
                                                   const std::string& connect) override {
        require(isOpen_, Failure::ObjectNotSet);
        require(!exclusive && connect.starts_with(kPasswordSign), Failure::InvalidCall);
        auto store = std::make_shared<std::unique_ptr<StoreConnection>>(
            opener_(files_.nativePath(path), readOnly ? StoreAccess::ReadOnly : StoreAccess::ReadWrite));
        stores_.push_back(store);
        return std::make_unique<Database>(std::move(store));
    }

    void Close() override {
        require(isOpen_, Failure::ObjectNotSet);
        closeStores();
        isOpen_ = false;
    }

private:
    void closeStores() {
        for (const SharedStore& store : stores_) {
            store->reset();
        }
    }

    const FileSystem& files_;
    StoreOpener opener_;
    std::vector<SharedStore> stores_;
    bool isOpen_ = true;
};

}  // namespace

std::unique_ptr<TransmitWorkspace> TransmitTables::CreateWorkspace(const std::string&, const std::string&,
                                                                   const std::string&, std::int32_t type) {
    require(type == kEmbeddedType, Failure::InvalidCall);
    return std::make_unique<Workspace>(files_, opener_);
}

}  // namespace orv
