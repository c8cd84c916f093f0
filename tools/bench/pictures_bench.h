#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "adapters/pictures/picture_files.h"

namespace bench {

/// Uses the machine's own paths. Supports only the reading and writing of pictures.
class PlainPaths : public orv::FileSystem {
public:
    std::string nativePath(const std::string& path) const override { return path; }
    std::string systemPath(const std::string& path) const override { return path; }
    bool exists(const std::string&) const override { return false; }
    bool folderExists(const std::string&) const override { return false; }
    std::uint64_t sizeOf(const std::string&) const override { return 0; }
    bool canOpen(const std::string&) const override { return false; }
    orv::FileStream open(const std::string& path) const override {
        return orv::FileStream(std::fopen(path.c_str(), "rb"));
    }
    void write(const std::string& path, std::span<const std::uint8_t> bytes) override {
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    bool same(const std::string&, const std::string&) const override { return false; }
    void copy(const std::string&, const std::string&) override {}
    void publish(const std::string&, const std::string&) override {}
    void remove(const std::string&) override {}
    void rename(const std::string&, const std::string&) override {}
    void append(const std::string&, const std::string&) override {}
    std::string read(const std::string&, std::size_t) const override { return {}; }
    std::string programFolder() const override { return {}; }
    std::string privateFolder() override { return {}; }
};

/// Returns the pictures in the folder, sorted by name.
std::vector<std::filesystem::path> photosIn(const std::filesystem::path& folder);

/// Shrinks a JPEG file that is too large, like the program: fits it inside `within`, then searches for `limit` bytes
/// with ten saves. Returns the factor found.
int fitted(const std::string& source, const std::string& target, orv::PictureSize within, std::uintmax_t limit);

/// Returns the size of a picture after it has been fitted inside `within`.
orv::PictureSize fittedSize(int width, int height, orv::PictureSize within);

/// `program` fits one photo in its own process.
void fit(const std::filesystem::path& photos, const std::filesystem::path& work, const std::string& program);
void thumb(const std::filesystem::path& photos);
/// Prints for each photo how often, and at which factors, the file grew as the factor rose. A test checks on the same
/// photos that the search finds the best factor for every limit.
void factors(const std::filesystem::path& photos, const std::filesystem::path& work);

}  // namespace bench
