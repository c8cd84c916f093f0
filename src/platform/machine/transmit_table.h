#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/scope.h"
#include "platform/value.h"

namespace orv {

/// A table-type recordset. Rows are found by key through an index.
class TransmitRecordset : public Interface {
public:
    virtual void Index(const std::string& name) = 0;
    /// Moves to the row whose key matches `keys` under the comparison ("=").
    virtual void Seek(const std::string& comparison, const Values& keys) = 0;
    virtual bool Eof() const = 0;
    virtual bool NoMatch() const = 0;
    virtual Value Fields(const std::string& name) const = 0;
    virtual void Close() = 0;
};

class TransmitDatabase : public Interface {
public:
    /// `type` 1 is a table.
    virtual std::unique_ptr<TransmitRecordset> OpenRecordset(const std::string& table, std::int32_t type) = 0;
    virtual void Close() = 0;
};

class TransmitWorkspace : public Interface {
public:
    virtual std::unique_ptr<TransmitDatabase> OpenDatabase(const std::string& path, bool exclusive, bool readOnly,
                                                           const std::string& connect) = 0;
    virtual void Close() = 0;
};

/// The second database engine, used only for transmission profiles. Every failure is a RunTimeError. Destructors close
/// everything that is still open.
class TransmitEngine : public Interface {
public:
    virtual std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                               const std::string& password, std::int32_t type) = 0;
};

}  // namespace orv
