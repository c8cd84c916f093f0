#pragma once

// jpeglib.h needs this header before it.
#include <cstdio>

#include <jpeglib.h>

#include <QImage>
#include <vector>

#include "platform/machine/picture_library.h"
#include "support/native_files.h"
#include "support/temp_folder.h"

namespace orv::test {

using ByteVector = std::vector<std::uint8_t>;

/// The colours of the four quarters in every test picture, left to right and top to bottom.
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
    /// The Exif code; 0 writes no Exif.
    int orientation = 0;
    bool exifHighFirst = false;
};

ByteVector madeJpeg(const JpegRecipe& recipe);
QImage madeImage(int width, int height);
/// `format` is "png" or "bmp".
ByteVector madeByQt(const char* format, int width, int height);
/// Returns a GIF with one frame and a transparent colour that no pixel uses.
ByteVector madeGif(int width, int height);
/// Returns a BMP of 8 bits with run-length encoded rows.
ByteVector madeRunLengthBmp(int width, int height);

/// The colours at the middles of the four quarters, each named by the one that it is near to.
std::vector<std::string> quarters(const Pixels& pixels);
inline const std::vector<std::string> kAsMade{"red", "green", "blue", "white"};

/// The same file with other bytes at a place.
ByteVector changed(ByteVector bytes, std::size_t at, const ByteVector& to);
/// Returns the TIFF with the entry `tag` replaced by `newTag` and `value`.
ByteVector withTiffNumber(const ByteVector& tiff, std::uint8_t tag, std::uint8_t newTag, int value);

/// Returns the position of the frame header (its 0xFF) in a JPEG.
std::size_t frameHeader(const ByteVector& jpeg);
ByteVector withJpegSize(ByteVector jpeg, int width, int height);

/// A folder that uses the machine's own paths.
class PictureFolder : public NativeFiles {
public:
    std::string pathTo(const std::string& name) const { return folder_.file(name); }
    std::string keep(const std::string& name, const ByteVector& bytes) const {
        return folder_.write(name, {bytes.begin(), bytes.end()});
    }

private:
    TempFolder folder_;
};

}  // namespace orv::test
