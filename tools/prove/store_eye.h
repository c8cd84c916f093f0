#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace prove {

/// Sees a store past the program: by the engine's own library and by nothing of the program's.
class StoreEye {
public:
    StoreEye() = default;
    StoreEye(const StoreEye&) = delete;
    StoreEye& operator=(const StoreEye&) = delete;
    virtual ~StoreEye() = default;

    /// Columns parted by "|". What is measured anew at each load is left out.
    virtual std::vector<std::string> rows(const std::string& sql) = 0;
    virtual void run(const std::string& sql) = 0;
    /// What the store finds wrong with itself; empty: nothing.
    virtual std::string damage() = 0;
    /// The rows are as they were when the eye was opened.
    virtual void beginAgain() = 0;
    /// The rows as they are now are those to come back to.
    virtual void keep() = 0;
    virtual void comeBack() = 0;
};

/// Looks at a copy of the file and what lies beside it, so that what a dead program has left is there for the next one
/// to put right. Going back is left to who copies the folder.
std::unique_ptr<StoreEye> eyeOnFile(const std::filesystem::path& file, const std::filesystem::path& copy);

/// Waits until the server has seen the end of every other session.
std::unique_ptr<StoreEye> eyeOnServer(const std::string& text);

}  // namespace prove
