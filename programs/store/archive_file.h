#pragma once

#include <fstream>
#include <memory>
#include <string>

struct archive;

namespace orv {

/// A compressed tar archive. Every failure is a KeeperFailure.
class ArchiveFile {
public:
    explicit ArchiveFile(const std::string& path);

    /// Adds a file that only its owner can read.
    void add(const std::string& name, const std::string& bytes);
    /// Completes the archive. Fails if the rest cannot be written.
    void finish();

private:
    struct Closer {
        void operator()(archive* open) const noexcept;
    };

    void require(int result) const;

    std::ofstream file_;
    std::unique_ptr<archive, Closer> archive_;
};

}  // namespace orv
