#pragma once

// jpeglib.h needs the streams before it.
#include <cstdio>

#include <jpeglib.h>

#include <QImage>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/machine/picture_library.h"
#include "support/native_files.h"
#include "support/temp_folder.h"

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
QImage madeImage(int width, int height);
/// `format`: "png" or "bmp".
ByteVector madeByQt(const char* format, int width, int height);
/// A GIF of one frame, which says before it which colour is transparent; no place has that one.
ByteVector madeGif(int width, int height);
/// A BMP of 8 bits whose rows are run lengths.
ByteVector madeRunLengthBmp(int width, int height);

/// The same file with other bytes at a place.
ByteVector changed(ByteVector bytes, std::size_t at, const ByteVector& to);
/// The same TIFF, its entry of the number `tag` now one of `newTag` and `value`.
ByteVector withTiffNumber(const ByteVector& tiff, std::uint8_t tag, std::uint8_t newTag, int value);

/// Where the frame header of a JPEG begins (its 0xFF).
std::size_t frameHeader(const ByteVector& jpeg);
/// The same file with another size in its frame header.
ByteVector withJpegSize(ByteVector jpeg, int width, int height);

/// A folder whose paths are the machine's own.
class PictureFolder : public NativeFiles {
public:
    std::string pathOf(const std::string& name) const { return folder_.file(name); }
    /// Writes the file and gives its path.
    std::string keep(const std::string& name, const ByteVector& bytes) const {
        return folder_.write(name, {bytes.begin(), bytes.end()});
    }

private:
    TempFolder folder_;
};

}  // namespace orv::test
