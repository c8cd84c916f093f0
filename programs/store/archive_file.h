#pragma once

#include <zlib.h>

#include <fstream>
#include <string>
#include <string_view>

namespace orv {

/// A compressed tar archive of small files. Every failure is a KeeperFailure.
class ArchiveFile {
public:
    explicit ArchiveFile(const std::string& path);
    ArchiveFile(const ArchiveFile&) = delete;
    ArchiveFile& operator=(const ArchiveFile&) = delete;
    ~ArchiveFile();

    /// Adds a file that only its owner can read. The name is in ASCII and has at most 99 characters.
    void add(const std::string& name, const std::string& bytes);
    /// Completes the archive. Fails if the rest cannot be written.
    void finish();

private:
    void write(std::string_view bytes, int flush);
    void fill(std::size_t bytes);

    std::ofstream file_;
    z_stream packer_{};
};

}  // namespace orv
