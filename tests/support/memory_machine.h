#pragma once

// What the program asks of a computer, in memory.

#include <map>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/machine/profile_reader.h"
#include "platform/machine/registry.h"
#include "platform/run_time_error.h"

namespace orv {

/// A path, a section or a key as the fakes compare them: letters without regard to case, "x\.." folded away.
inline std::string folded(std::string name) {
    for (char& letter : name) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter + ('a' - 'A'));
        }
    }
    for (std::size_t up = name.find("\\..\\"); up != std::string::npos && up > 0; up = name.find("\\..\\")) {
        const std::size_t from = name.rfind('\\', up - 1);
        if (from == std::string::npos) {
            break;
        }
        name.erase(from, up + 3 - from);
    }
    return name;
}

/// Files in memory. Every folder exists; a path given to `refuse` is there as far as `exists` goes, and whatever else
/// touches it fails.
class MemoryFiles : public FileSystem {
public:
    void put(const std::string& path, std::string bytes) { files_[folded(path)] = std::move(bytes); }
    /// The bytes of a file, empty when there is none.
    std::string get(const std::string& path) const {
        const auto file = files_.find(folded(path));
        return file == files_.end() ? std::string() : file->second;
    }
    void refuse(const std::string& path, Failure failure) { refused_.insert_or_assign(folded(path), failure); }
    void setProgramFolder(std::string folder) { programFolder_ = std::move(folder); }
    std::size_t count() const { return files_.size(); }

    bool exists(const std::string& path) const override { return files_.contains(folded(path)); }
    std::uint64_t sizeOf(const std::string& path) const override { return at(path).size(); }
    bool canOpen(const std::string& path) const override { return exists(path) && !refused_.contains(folded(path)); }
    void copy(const std::string& from, const std::string& to) override {
        check(to);
        put(to, at(from));
    }
    void remove(const std::string& path) override {
        at(path);
        files_.erase(folded(path));
    }
    void rename(const std::string& from, const std::string& to) override {
        check(to);
        if (exists(to)) {
            throw RunTimeError(Failure::FileExists);
        }
        put(to, at(from));
        files_.erase(folded(from));
    }
    void append(const std::string& path, const std::string& bytes) override {
        check(path);
        files_[folded(path)] += bytes;
    }
    std::string read(const std::string& path, std::size_t limit) const override {
        if (at(path).size() > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        return at(path);
    }
    std::string programFolder() const override { return programFolder_; }
    std::string nativePath(const std::string& path) const override { return path; }
    std::string systemPath(const std::string& nativePath) const override { return nativePath; }

private:
    void check(const std::string& path) const {
        if (const auto refusal = refused_.find(folded(path)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
    }
    const std::string& at(const std::string& path) const {
        check(path);
        const auto file = files_.find(folded(path));
        if (file == files_.end()) {
            throw RunTimeError(Failure::FileNotFound);
        }
        return file->second;
    }

    std::map<std::string, std::string> files_;
    std::map<std::string, Failure> refused_;
    std::string programFolder_ = "C:\\ORV\\BIN";
};

/// For those who ask for the native place of a path only.
using NativePaths = MemoryFiles;

inline NativePaths& nativePaths() {
    static NativePaths paths;
    return paths;
}

/// INI files in memory, names without regard to case.
class MemoryProfiles : public ProfileReader {
public:
    void set(const std::string& file, const std::string& section, const std::string& key, std::string value) {
        values_[folded(file + "[" + section + "]" + key)] = std::move(value);
    }
    /// Every reading of that key, in whatever file, fails.
    void refuse(const std::string& section, const std::string& key, Failure failure) {
        refused_.insert_or_assign(folded(section + "=" + key), failure);
    }
    void clear() {
        values_.clear();
        refused_.clear();
    }
    int reads() const { return reads_; }

    std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const override {
        ++reads_;
        if (const auto refusal = refused_.find(folded(section + "=" + key)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
        const auto value = values_.find(folded(file + "[" + section + "]" + key));
        return value == values_.end() ? std::string() : value->second;
    }

private:
    std::map<std::string, std::string> values_;
    std::map<std::string, Failure> refused_;
    mutable int reads_ = 0;
};

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
