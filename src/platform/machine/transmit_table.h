#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/value.h"

namespace orv {

/// A table-type recordset. Rows are found by key through an index.
class TransmitRecordset {
public:
    TransmitRecordset() = default;
    TransmitRecordset(const TransmitRecordset&) = delete;
    TransmitRecordset& operator=(const TransmitRecordset&) = delete;
    virtual ~TransmitRecordset() = default;

    virtual void Index(const std::string& name) = 0;
    /// Moves to the row whose key matches `keys` under the comparison ("=").
    virtual void Seek(const std::string& comparison, const Values& keys) = 0;
    virtual bool Eof() const = 0;
    virtual bool NoMatch() const = 0;
    virtual Value Fields(const std::string& name) const = 0;
    virtual void Close() = 0;
};

class TransmitDatabase {
public:
    TransmitDatabase() = default;
    TransmitDatabase(const TransmitDatabase&) = delete;
    TransmitDatabase& operator=(const TransmitDatabase&) = delete;
    virtual ~TransmitDatabase() = default;

    /// `type` 1 is a table.
    virtual std::unique_ptr<TransmitRecordset> OpenRecordset(const std::string& table, std::int32_t type) = 0;
    virtual void Close() = 0;
};

class TransmitWorkspace {
public:
    TransmitWorkspace() = default;
    TransmitWorkspace(const TransmitWorkspace&) = delete;
    TransmitWorkspace& operator=(const TransmitWorkspace&) = delete;
    virtual ~TransmitWorkspace() = default;

    virtual std::unique_ptr<TransmitDatabase> OpenDatabase(const std::string& path, bool exclusive, bool readOnly,
                                                           const std::string& connect) = 0;
    virtual void Close() = 0;
};

/// The second database engine, used only for transmission profiles. Every failure is a RunTimeError. Destructors close
/// everything that is still open.
class TransmitEngine {
public:
    TransmitEngine() = default;
    TransmitEngine(const TransmitEngine&) = delete;
    TransmitEngine& operator=(const TransmitEngine&) = delete;
    virtual ~TransmitEngine() = default;

    virtual std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                               const std::string& password, std::int32_t type) = 0;
};

}  // namespace orv
