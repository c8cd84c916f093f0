#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/machine/file_system.h"

namespace orv {

/// A picture's file, open for reading: a regular file that is not empty and has at most 500 MB.
class OpenFile {
public:
    OpenFile(const FileSystem& files, const std::string& path);

    std::int32_t size() const { return size_; }
    /// Returns the stream, positioned at the file's beginning.
    std::FILE* fromStart() const;
    /// Returns the first bytes, or fewer if the file is shorter.
    std::vector<std::uint8_t> firstBytes(std::size_t count) const;

private:
    FileStream stream_;
    std::int32_t size_ = 0;
};

}  // namespace orv
