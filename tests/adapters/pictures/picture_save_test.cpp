#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <fstream>
#include <iterator>
#include <limits>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/pictures/quality_map.h"
#include "adapters/pictures/quarters.h"
#include "adapters/pictures/tiff_file.h"

namespace orv::test {
namespace {

class PictureSaveTest : public testing::Test {
protected:
    /// Brought to a size, saved beside and read again.
    std::unique_ptr<Picture> through(const std::string& path, int width, int height, int quality = 2) const {
        const auto picture = pictures_.load(path, {width, height});
        picture->size(width, height);
        const PictureInfo info = pictures_.info(path);
        picture->save(target(), info.format, info.bits, quality);
        return pictures_.load(target());
    }
    std::string target() const { return folder_.pathOf("saved"); }
    std::string keptByQt(const QImage& image, const char* format) const {
        const std::string path = folder_.pathOf(std::to_string(image.format()) + "." + format);
        EXPECT_TRUE(image.save(QString::fromStdString(path), format));
        return path;
    }

    PictureFolder folder_;
    PictureFiles pictures_{folder_};
};

QImage fourColours(QImage::Format format) {
    const ByteVector png = madeByQt("png", 640, 480);
    return QImage::fromData(png.data(), static_cast<int>(png.size())).convertToFormat(format);
}

TEST_F(PictureSaveTest, KeepsFormatAndDepthAtEverySize) {
    const QList<QRgb> table{kRed, kGreen, kBlue, kWhite};
    const QImage indexed = fourColours(QImage::Format_RGB32).convertToFormat(QImage::Format_Indexed8, table);
    const std::string paths[] = {
        folder_.keep("a.jpg", madeJpeg({.width = 640, .height = 480})),
        folder_.keep("b.jpg", madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK})),
        folder_.keep("c.jpg", madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_YCCK})),
        folder_.keep("d.jpg",
                     madeJpeg({.width = 640, .height = 480, .input = JCS_CMYK, .stored = JCS_CMYK, .adobe = false})),
        folder_.keep("e.jpg", madeJpeg({.width = 640, .height = 480, .stored = JCS_RGB})),
        keptByQt(fourColours(QImage::Format_RGB32), "png"),
        folder_.keep("f.gif", madeGif(640, 480)),
        folder_.keep("g.bmp", madeRunLengthBmp(400, 300)),
        keptByQt(indexed, "bmp"),
        keptByQt(fourColours(QImage::Format_RGBX64), "png"),
    };
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        const PictureInfo info = pictures_.info(path);
        for (const auto& [width, height] : std::vector<std::pair<int, int>>{{64, 48}, {61, 47}, {1, 1}, {16, 300}}) {
            const auto saved = through(path, width, height);
            const PictureInfo now = pictures_.info(target());
            EXPECT_EQ(now.format, info.format);
            EXPECT_EQ(now.bits, info.bits);
            EXPECT_EQ(now.width, width);
            EXPECT_EQ(now.height, height);
            if (width > 2 && height > 2) {
                EXPECT_EQ(quarters(saved->scaled(width, height)), kAsMade);
            }
        }
    }
}

/// A picture with enough in it for a search to have something to do.
ByteVector grainy(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    unsigned grain = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            grain = grain * 1664525U + 1013904223U;
            const int light = (x * y / 7 + x * 3) % 200 + static_cast<int>(grain >> 27);
            image.setPixel(x, y, qRgb(light, 255 - light, (light + y) % 256));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, "jpeg", 98));
    return {bytes.begin(), bytes.end()};
}

/// The tables never get finer, but which codes the rest falls on can cost a few bytes more, now and then.
TEST_F(PictureSaveTest, AFileHardlyEverGrowsAsTheFactorRises) {
    const auto picture = pictures_.load(folder_.keep("a.jpg", grainy(200, 150)));
    std::vector<std::int32_t> sizes;
    for (int factor = 2; factor <= 255; ++factor) {
        picture->save(target(), static_cast<std::int32_t>(PictureFormat::Jpeg), 24, factor);
        sizes.push_back(pictures_.info(target()).sizeDisk);
    }
    int rises = 0;
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        EXPECT_LE(sizes[i], sizes[i - 1] + sizes[i - 1] / 1000 + 1) << "factor " << i + 2;
        rises += sizes[i] > sizes[i - 1] ? 1 : 0;
    }
    EXPECT_LE(rises, 3);
    EXPECT_LT(sizes.back() * 10, sizes.front());
}

TEST(QualityMap, NoEntryFallsAsTheFactorRises) {
    for (unsigned basic = 1; basic < 256; ++basic) {
        for (int factor = 3; factor <= 255; ++factor) {
            EXPECT_LE(scaledEntry(basic, tableScale(factor - 1)), scaledEntry(basic, tableScale(factor)));
        }
    }
    EXPECT_EQ(scaledEntry(99, tableScale(2)), 4U);
    EXPECT_EQ(scaledEntry(10, tableScale(255)), 255U);
}

/// A segment put behind the start mark.
ByteVector withSegment(ByteVector jpeg, std::uint8_t marker, const std::string& text) {
    const std::size_t length = text.size() + 2;
    ByteVector segment{0xFF, marker, static_cast<std::uint8_t>(length >> 8), static_cast<std::uint8_t>(length)};
    segment.insert(segment.end(), text.begin(), text.end());
    jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
    return jpeg;
}

TEST_F(PictureSaveTest, TheProfileStaysAndThePlaceGoes) {
    const std::string profile("ICC_PROFILE\0\1\1the colours as they are meant", 45);
    const ByteVector tagged = withSegment(withSegment(madeJpeg({.orientation = 6}), 0xE2, profile), 0xE1,
                                          "http://ns.adobe.com/xap/1.0/ GPSLatitude 35");
    static_cast<void>(through(folder_.keep("a.jpg", tagged), 24, 32));
    std::ifstream stream(target(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(bytes.find("the colours as they are"), std::string::npos);
    EXPECT_EQ(bytes.find("GPS"), std::string::npos);
    EXPECT_EQ(bytes.find("Exif"), std::string::npos);
}

TEST_F(PictureSaveTest, WhatIsTurnedIsWrittenUpright) {
    const std::string path = folder_.keep("a.jpg", madeJpeg({.orientation = 6}));
    const std::vector<std::string> expected{"blue", "red", "white", "green"};
    EXPECT_EQ(quarters(through(path, 24, 32)->scaled(24, 32)), expected);
    const auto whole = pictures_.load(path);
    whole->save(target(), static_cast<std::int32_t>(PictureFormat::Jpeg), 24, 2);
    EXPECT_EQ(quarters(pictures_.load(target())->scaled(48, 64)), expected);
}

TEST_F(PictureSaveTest, ATiffGoesThroughToo) {
    for (const auto& [format, bits] : std::vector<std::pair<QImage::Format, int>>{
             {QImage::Format_RGB32, 24}, {QImage::Format_Grayscale8, 8}, {QImage::Format_RGBX64, 48}}) {
        const PictureHeader header{PictureFormat::Tiff, 640, 480, bits, bits == 8 ? 1 : 3};
        const std::string path = folder_.keep("a.tif", tiffBytes({fourColours(format), {}, {}}, header));
        EXPECT_EQ(pictures_.info(path).bits, bits);
        const auto saved = through(path, 64, 48);
        const PictureInfo now = pictures_.info(target());
        EXPECT_EQ(now.bits, bits);
        EXPECT_EQ(now.format, static_cast<std::int32_t>(PictureFormat::Tiff));
        EXPECT_EQ(saved->width(), 64);
        if (bits != 8) {
            EXPECT_EQ(quarters(saved->scaled(64, 48)), kAsMade);
        }
        std::filesystem::resize_file(target(), std::filesystem::file_size(target()) / 2);
        EXPECT_THROW(static_cast<void>(pictures_.load(target())), RunTimeError);
    }
}

template <typename Call>
int numberOf(Call call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

TEST_F(PictureSaveTest, RefusesWhatItCanNotDoAndLeavesTheFileAlone) {
    constexpr auto kJpeg = static_cast<std::int32_t>(PictureFormat::Jpeg);
    const std::string path = folder_.keep("a.jpg", madeJpeg({.width = 640, .height = 480}));
    const auto picture = pictures_.load(path);
    const auto reduced = pictures_.load(path, {64, 48});
    const std::string standing = folder_.keep("standing", {1, 2, 3});
    std::filesystem::create_directory(folder_.pathOf("folder"));
    const auto invalid = static_cast<int>(Failure::InvalidCall);
    EXPECT_EQ(numberOf([&] { picture->save(standing, kJpeg, 24, 1); }), invalid);
    EXPECT_EQ(numberOf([&] { picture->save(standing, kJpeg, 24, 256); }), invalid);
    EXPECT_EQ(numberOf([&] { reduced->save(standing, kJpeg, 24, 2); }), invalid);
    EXPECT_EQ(numberOf([&] { picture->size(0, 10); }), invalid);
    EXPECT_EQ(numberOf([&] { picture->save(standing, kJpeg + 1, 24, 2); }),
              static_cast<int>(PictureFailure::NotWritable));
    EXPECT_NE(numberOf([&] { picture->save(folder_.pathOf("none/a.jpg"), kJpeg, 24, 2); }), 0);
    EXPECT_NE(numberOf([&] { picture->save(folder_.pathOf("folder"), kJpeg, 24, 2); }), 0);
    EXPECT_EQ(std::filesystem::file_size(standing), 3U);
    const auto entries = std::distance(std::filesystem::directory_iterator(folder_.pathOf("")), {});
    EXPECT_EQ(entries, 3) << "something was left behind";
}

}  // namespace
}  // namespace orv::test
