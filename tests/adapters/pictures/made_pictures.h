#pragma once

// jpeglib.h needs the streams before it.
#include <cstdio>

#include <jpeglib.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv::test {

using ByteVector = std::vector<std::uint8_t>;

/// The four quarters of every picture that the tests make, left to right and top to bottom.
inline constexpr std::uint32_t kRed = 0xFFE02020;
inline constexpr std::uint32_t kGreen = 0xFF20C020;
inline constexpr std::uint32_t kBlue = 0xFF2020E0;
inline constexpr std::uint32_t kWhite = 0xFFF0F0F0;

struct JpegRecipe {
    int width = 64;
    int height = 48;
    J_COLOR_SPACE input = JCS_RGB;
    J_COLOR_SPACE stored = JCS_YCbCr;
    bool adobe = true;
    bool progressive = false;
    /// Exif code; 0 writes no Exif.
    int orientation = 0;
    bool exifHighFirst = false;
};

ByteVector madeJpeg(const JpegRecipe& recipe);
/// `format`: "png" or "bmp".
ByteVector madeByQt(const char* format, int width, int height);
/// A GIF of one frame in the four colours, its codes written without compression.
ByteVector madeGif(int width, int height);
/// A BMP of 8 bits whose rows are run lengths.
ByteVector madeRunLengthBmp(int width, int height);

/// Where the frame header of a JPEG begins (its 0xFF).
std::size_t frameHeader(const ByteVector& jpeg);
/// The same file with another size in its frame header.
ByteVector withJpegSize(ByteVector jpeg, int width, int height);

/// A temporary folder whose paths are the machine's own. Nothing but the translation of paths is asked of it.
class PictureFolder : public FileSystem {
public:
    PictureFolder();
    ~PictureFolder() override;

    std::string pathOf(const std::string& name) const { return (folder_ / name).string(); }
    /// Writes the file and gives its path.
    std::string keep(const std::string& name, const ByteVector& bytes) const;

    std::string nativePath(const std::string& path) const override { return path; }
    bool exists(const std::string&) const override { return false; }
    std::uint64_t sizeOf(const std::string&) const override { return 0; }
    bool canOpen(const std::string&) const override { return false; }
    void copy(const std::string&, const std::string&) override {}
    void remove(const std::string&) override {}
    void rename(const std::string&, const std::string&) override {}
    void append(const std::string&, const std::string&) override {}
    std::string read(const std::string&, std::size_t) const override { return {}; }
    std::string programFolder() const override { return {}; }

private:
    std::filesystem::path folder_;
};

}  // namespace orv::test
