#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/scope.h"

namespace crash_test {

/// Reads a store with the engine's own library, without the program's code.
class StoreObserver : orv::NonCopyable {
public:
    virtual ~StoreObserver() = default;

    /// Returns columns separated by "|", without those that are measured at each load.
    virtual std::vector<std::string> rows(const std::string& sql) = 0;
    virtual void run(const std::string& sql) = 0;
    /// Returns the faults that the store finds in itself, or "".
    virtual std::string damage() = 0;
    /// Restores the rows to their state when this object was created.
    virtual void beginAgain() = 0;
    /// Makes the current rows the state that `comeBack` restores.
    virtual void keep() = 0;
    virtual void comeBack() = 0;
};

/// Reads a copy of the file and its journal, so that the next program finds the state that a crashed one left. The
/// caller copies the folder to restore it.
std::unique_ptr<StoreObserver> observerOfFile(const std::filesystem::path& file, const std::filesystem::path& copy);

/// Waits until the server has noticed the end of every other session.
std::unique_ptr<StoreObserver> observerOfServer(const std::string& text);

}  // namespace crash_test
