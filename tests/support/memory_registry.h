#pragma once

#include <map>
#include <string>

#include "platform/machine/registry.h"
#include "platform/run_time_error.h"
#include "support/system_path.h"

namespace orv {

/// A registry in memory. Any operation can be told to return a code or to fail; calls are counted, open keys known.
class MemoryRegistry : public Registry {
public:
    enum class Operation { Open, Query, Set, Create, Close };
    struct Written {
        std::string name;
        std::int32_t type = 0;
        std::string value;
        std::int32_t byteCount = 0;
    };

    void put(const std::string& subKey, const std::string& name, std::string value) {
        values_[folded(subKey)][folded(name)] = std::move(value);
    }
    void refuse(Operation operation, std::int32_t code) { codes_[operation] = code; }
    void fail(Operation operation, Failure failure) { failures_.insert_or_assign(operation, failure); }

    int calls() const { return calls_; }
    const std::map<Handle, std::string>& openKeys() const { return open_; }
    const Written& written() const { return written_; }
    Handle lastHive() const { return hive_; }
    std::int32_t lastAccess() const { return access_; }

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override {
        return opened(codeFor(Operation::Open, values_.contains(folded(subKey))), hive, subKey, access, key);
    }
    std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) override {
        const auto& names = values_[open_.at(key)];
        const auto found = names.find(folded(name));
        const bool there = found != names.end() && found->second.size() < static_cast<std::size_t>(size);
        const std::int32_t code = codeFor(Operation::Query, there);
        value = code == 0 ? found->second : value;
        return code;
    }
    std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                               std::int32_t byteCount) override {
        const std::int32_t code = codeFor(Operation::Set, open_.contains(key));
        if (code == 0) {
            written_ = {name, type, value, byteCount};
            values_[open_.at(key)][folded(name)] = value;
        }
        return code;
    }
    std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override {
        return opened(codeFor(Operation::Create), hive, subKey, access, key);
    }
    std::int32_t RegCloseKey(Handle key) override {
        open_.erase(key);
        return codeFor(Operation::Close);
    }

private:
    std::int32_t codeFor(Operation operation, bool there = true) {
        ++calls_;
        if (const auto failure = failures_.find(operation); failure != failures_.end()) {
            throw RunTimeError(failure->second);
        }
        return codes_[operation] != 0 ? codes_[operation] : there ? 0 : 2;
    }
    std::int32_t opened(std::int32_t code, Handle hive, const std::string& subKey, std::int32_t access, Handle& key) {
        if (code == 0) {
            hive_ = hive;
            access_ = access;
            key = ++handles_;
            open_[key] = folded(subKey);
        }
        return code;
    }

    std::map<std::string, std::map<std::string, std::string>> values_;
    std::map<Operation, std::int32_t> codes_;
    std::map<Operation, Failure> failures_;
    std::map<Handle, std::string> open_;
    Written written_;
    Handle hive_ = 0;
    std::int32_t access_ = 0;
    Handle handles_ = 0;
    int calls_ = 0;
};

}  // namespace orv
