#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace orv {

/// A picture's file, open for reading: a regular file with something in it, of 500 MB at most. Opening never waits,
/// whatever stands at the path.
class OpenFile {
public:
    explicit OpenFile(const std::string& nativePath);

    std::int32_t size() const { return size_; }
    /// At the file's beginning.
    std::FILE* fromStart() const;
    /// The first bytes, fewer when the file is shorter.
    std::vector<std::uint8_t> firstBytes(std::size_t count) const;

private:
    struct Close {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    std::unique_ptr<std::FILE, Close> stream_;
    std::int32_t size_ = 0;
};

}  // namespace orv
