#pragma once

// The real store, files and settings, with failures that a test injects.

#include <functional>
#include <map>
#include <optional>
#include <set>

#include "adapters/system/system_adapters.h"
#include "platform/ascii.h"
#include "platform/machine/profile_reader.h"
#include "platform/run_time_error.h"
#include "platform/suite/db_service.h"

namespace orv {

/// Forwards to the real store and records the calls; the operations that a test names fail. A failed close or rollback
/// is carried out, so that the real store has no leftovers.
class FailingStore : public DbService {
public:
    enum class Call { Open, Select, Execute, Close, CloseRows, Begin, Rollback, Commit };

    explicit FailingStore(DbService& real) : real_(real) {}

    static FailureRecord failure() { return {"ストアの故障", "DB:77"}; }

    /// Makes the `nth` call of that kind fail whose statement contains `part`, and every later one if `again`.
    void fail(Call call, const std::string& part = "", int nth = 1, bool again = false) {
        faults_.push_back({call, part, nth, again});
    }
    void repair() {
        faults_.clear();
        raised.reset();
    }
    /// If set, a failing call throws this instead, which no store should.
    std::optional<Failure> raised;
    FailureRecord ofRollback = failure();

    std::function<void(const std::string& sql)> watch;

    /// All statements in order, including selects.
    std::vector<std::string> statements;
    int open = 0;

    FailureRecord DbError() const override { return injected_ ? reported_ : real_.DbError(); }
    void DbReset() override {
        injected_ = false;
        real_.DbReset();
    }
    void DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) override {
        unlessHit(Call::Open, path, ok, [&] { real_.DbOpen(connection, path, ok); });
        open += ok ? 1 : 0;
    }
    void DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) override {
        note(sql);
        unlessHit(Call::Select, sql, ok, [&] { real_.DbOpenRs(connection, recordset, sql, ok); });
    }
    void DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) override {
        note(sql);
        rows = -1;
        bool ok = false;
        unlessHit(Call::Execute, sql, ok, [&] {
            real_.DbExecute(connection, sql, rows);
            ok = rows >= 0;
        });
    }
    void DbClose(ConnectionPtr& connection, bool& ok) override {
        open -= connection ? 1 : 0;
        alsoWhenHit(Call::Close, ok, [&] { real_.DbClose(connection, ok); });
    }
    void DbCloseRs(RecordsetPtr& recordset, bool& ok) override {
        alsoWhenHit(Call::CloseRows, ok, [&] { real_.DbCloseRs(recordset, ok); });
    }
    void DbBeginTrans(ConnectionPtr& connection, bool& ok) override {
        unlessHit(Call::Begin, "", ok, [&] { real_.DbBeginTrans(connection, ok); });
    }
    void DbRollback(ConnectionPtr& connection, bool& ok) override {
        alsoWhenHit(Call::Rollback, ok, [&] { real_.DbRollback(connection, ok); });
        reported_ = ok ? reported_ : ofRollback;
    }
    void DbCommit(ConnectionPtr& connection, bool& ok) override {
        unlessHit(Call::Commit, "", ok, [&] { real_.DbCommit(connection, ok); });
    }

private:
    struct Fault {
        Call call;
        std::string part;
        int nth;
        bool again;
    };

    void note(const std::string& sql) {
        statements.push_back(sql);
        if (watch) watch(sql);
    }
    bool fails(Call call, const std::string& text) {
        bool failing = false;
        for (Fault& fault : faults_) {
            if (fault.call == call && text.find(fault.part) != std::string::npos) {
                --fault.nth;
                failing = failing || fault.nth == 0 || (fault.nth < 0 && fault.again);
            }
        }
        if (failing && raised) throw RunTimeError(*raised);
        injected_ = injected_ || failing;
        reported_ = failing ? failure() : reported_;
        return failing;
    }
    void unlessHit(Call call, const std::string& text, bool& ok, const std::function<void()>& real) {
        ok = !fails(call, text);
        if (ok) {
            real();
            injected_ = injected_ && ok;
        }
    }
    void alsoWhenHit(Call call, bool& ok, const std::function<void()>& real) {
        const bool failing = fails(call, "");
        real();
        ok = ok && !failing;
    }

    DbService& real_;
    std::vector<Fault> faults_;
    bool injected_ = false;
    FailureRecord reported_ = failure();
};

/// Real files. Paths that a test rejects cannot be copied to or removed, and hidden ones cannot be checked.
class WatchedFiles : public SystemFiles {
public:
    using SystemFiles::SystemFiles;

    void refuse(const std::string& path, Failure failure) { refused_.insert_or_assign(upperAscii(path), failure); }
    void hide(const std::string& path) { hidden_.insert(upperAscii(path)); }
    void allowAll() { refused_.clear(); }
    /// True if other users got a copy at that path.
    bool isPublished(const std::string& path) const { return published_.contains(upperAscii(path)); }

    bool exists(const std::string& path) const override {
        return hidden_.contains(upperAscii(path)) ? throw RunTimeError(Failure::DeviceIo) : SystemFiles::exists(path);
    }
    void copy(const std::string& from, const std::string& to) override { SystemFiles::copy(from, allowed(to)); }
    void publish(const std::string& from, const std::string& to) override {
        SystemFiles::publish(from, allowed(to));
        published_.insert(upperAscii(to));
    }
    void remove(const std::string& path) override { SystemFiles::remove(allowed(path)); }

private:
    const std::string& allowed(const std::string& path) const {
        if (const auto refusal = refused_.find(upperAscii(path)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
        return path;
    }

    std::map<std::string, Failure> refused_;
    std::set<std::string> hidden_;
    std::set<std::string> published_;
};

/// The settings of a real file, except those that a test sets, by section and key.
class OverriddenProfiles : public ProfileReader {
public:
    explicit OverriddenProfiles(const ProfileReader& real) : real_(real) {}

    mutable std::string lastFile;

    void set(const std::string& section, const std::string& key, std::string value) {
        values_[upperAscii(section + "=" + key)] = std::move(value);
    }
    void refuse(const std::string& section, const std::string& key) {
        values_[upperAscii(section + "=" + key)] = std::nullopt;
    }

    std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const override {
        lastFile = file;
        const auto value = values_.find(upperAscii(section + "=" + key));
        if (value == values_.end()) return real_.GetPrivateProfileString(section, key, file);
        return value->second ? *value->second : throw RunTimeError(Failure::DeviceIo);
    }

private:
    const ProfileReader& real_;
    std::map<std::string, std::optional<std::string>> values_;
};

}  // namespace orv
