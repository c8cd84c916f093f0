#include "adapters/pictures/picture_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_header.h"
#include "adapters/pictures/quarters.h"
#include "platform/run_time_error.h"

namespace orv::test {
namespace {

using testing::ElementsAre;

class PictureFilesTest : public testing::Test {
protected:
    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

struct FormatCase {
    std::string name;
    ByteVector bytes;
    int bits;
    PictureFormat format;
};

std::vector<FormatCase> everyFormat(int width, int height) {
    return {
        {"jpeg", madeJpeg({.width = width, .height = height}), 24, PictureFormat::Jpeg},
        {"progressive", madeJpeg({.width = width, .height = height, .progressive = true}), 24, PictureFormat::Jpeg},
        {"png", madeByQt("png", width, height), 24, PictureFormat::Png},
        {"bmp", madeByQt("bmp", width, height), 24, PictureFormat::Bmp},
        {"run length", madeRunLengthBmp(width, height), 8, PictureFormat::Bmp},
        {"gif", madeGif(width, height), 2, PictureFormat::Gif},
    };
}

TEST_F(PictureFilesTest, ReadsEachFormatByItsContent) {
    for (const FormatCase& one : everyFormat(64, 48)) {
        SCOPED_TRACE(one.name);
        const std::string path = folder_.keep("photo.jpg", one.bytes);
        const PictureInfo info = pictures_.info(path);
        EXPECT_EQ(info.sizeDisk, static_cast<std::int32_t>(one.bytes.size()));
        EXPECT_EQ(info.width, 64);
        EXPECT_EQ(info.height, 48);
        EXPECT_EQ(info.bits, one.bits);
        EXPECT_EQ(info.format, static_cast<std::int32_t>(one.format));
        const auto picture = pictures_.load(path);
        EXPECT_EQ(picture->width(), 64);
        EXPECT_EQ(picture->height(), 48);
        EXPECT_EQ(quarters(picture->scaled(64, 48)), kAsMade);
        const Pixels small = picture->scaled(13, 8);
        EXPECT_EQ(small.width, 13);
        EXPECT_EQ(small.height, 8);
        EXPECT_EQ(small.argb.size(), 13U * 8U);
        EXPECT_EQ(quarters(small), kAsMade);
    }
}

TEST_F(PictureFilesTest, TakesJpegColoursAsTheyAreMeant) {
    const std::vector<std::string> grey{"dark", "other", "dark", "white"};
    const struct {
        std::string name;
        JpegRecipe recipe;
        std::vector<std::string> colours;
        int bits;
    } cases[] = {
        {"grey", {.input = JCS_GRAYSCALE, .stored = JCS_GRAYSCALE}, grey, 8},
        {"rgb", {.stored = JCS_RGB}, kAsMade, 24},
        {"adobe print", {.input = JCS_CMYK, .stored = JCS_CMYK}, kAsMade, 32},
        {"adobe print, luminance", {.input = JCS_CMYK, .stored = JCS_YCCK}, kAsMade, 32},
        {"plain print", {.input = JCS_CMYK, .stored = JCS_CMYK, .adobe = false}, kAsMade, 32},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        const std::string path = folder_.keep("a.jpg", madeJpeg(one.recipe));
        EXPECT_EQ(pictures_.info(path).bits, one.bits);
        EXPECT_EQ(quarters(pictures_.load(path)->scaled(32, 24)), one.colours);
    }
}

TEST_F(PictureFilesTest, TurnsAPhotoUprightAsItsExifSays) {
    const std::vector<std::vector<std::string>> turned{
        {"red", "green", "blue", "white"},  // 0: no Exif
        {"red", "green", "blue", "white"}, {"green", "red", "white", "blue"},
        {"white", "blue", "green", "red"}, {"blue", "white", "red", "green"},
        {"red", "blue", "green", "white"}, {"blue", "red", "white", "green"},
        {"white", "green", "blue", "red"}, {"green", "white", "red", "blue"},
        {"red", "green", "blue", "white"},  // 9: no code of Exif
    };
    for (std::size_t code = 0; code < turned.size(); ++code) {
        for (const bool highFirst : {false, true}) {
            SCOPED_TRACE(code);
            const std::string path =
                folder_.keep("a.jpg", madeJpeg({.orientation = static_cast<int>(code), .exifHighFirst = highFirst}));
            const bool swapped = code >= 5 && code <= 8;
            const PictureInfo info = pictures_.info(path);
            const auto picture = pictures_.load(path);
            EXPECT_EQ(info.width, swapped ? 48 : 64);
            EXPECT_EQ(info.height, swapped ? 64 : 48);
            EXPECT_EQ(picture->width(), info.width);
            EXPECT_EQ(picture->height(), info.height);
            EXPECT_EQ(quarters(picture->scaled(info.width, info.height)), turned[code]);
        }
    }
}

TEST_F(PictureFilesTest, KeepsItsMeasureAtEverySize) {
    const struct {
        int width;
        int height;
    } sizes[] = {{1, 1}, {1, 900}, {2047, 40}, {2048, 31}, {3001, 90}, {4100, 2200}};
    for (const auto& size : sizes) {
        for (const FormatCase& one : everyFormat(size.width, size.height)) {
            if (one.name == "run length" && size.width > 500) {
                continue;  // its runs are of 255 at most
            }
            SCOPED_TRACE(one.name + " " + std::to_string(size.width) + " x " + std::to_string(size.height));
            const auto picture = pictures_.load(folder_.keep("a", one.bytes));
            EXPECT_EQ(picture->width(), size.width);
            EXPECT_EQ(picture->height(), size.height);
            const Pixels full = picture->scaled(std::min(size.width, 130), std::min(size.height, 100));
            EXPECT_EQ(full.argb.size(), static_cast<std::size_t>(full.width * full.height));
            if (size.width > 2 && size.height > 2) {
                EXPECT_EQ(quarters(full), kAsMade);
            }
        }
    }
}

TEST_F(PictureFilesTest, LaysTransparentPlacesOnWhite) {
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 128));
    const std::string path = folder_.pathOf("a.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path), "png"));
    EXPECT_EQ(pictures_.info(path).bits, 32);
    EXPECT_THAT(pictures_.load(path)->scaled(1, 1).argb, ElementsAre(0xFF7F7F7FU));
}

TEST_F(PictureFilesTest, OutlivesItsFile) {
    const std::string path = folder_.keep("a.jpg", madeJpeg({}));
    const auto picture = pictures_.load(path);
    std::filesystem::remove(path);
    EXPECT_EQ(quarters(picture->scaled(64, 48)), kAsMade);
    EXPECT_THROW((void)pictures_.info(path), RunTimeError);
}

TEST_F(PictureFilesTest, RefusesToEnlarge) {
    const auto picture = pictures_.load(folder_.keep("a.jpg", madeJpeg({})));
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{0, 1}, {1, 0}, {-1, 5}, {65, 48}, {64, 49}}) {
        EXPECT_THROW((void)picture->scaled(width, height), RunTimeError);
    }
}

}  // namespace
}  // namespace orv::test
