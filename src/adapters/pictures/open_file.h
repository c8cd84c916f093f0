#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/machine/file_system.h"

namespace orv {

/// A picture's file, open for reading: a regular file with something in it, of 500 MB at most.
class OpenFile {
public:
    OpenFile(const FileSystem& files, const std::string& path);

    std::int32_t size() const { return size_; }
    /// At the file's beginning.
    std::FILE* fromStart() const;
    /// The first bytes, fewer when the file is shorter.
    std::vector<std::uint8_t> firstBytes(std::size_t count) const;

private:
    FileStream stream_;
    std::int32_t size_ = 0;
};

}  // namespace orv
